#include "com/string_arrays.h"

#include "base/error.h"
#include "com/bstr.h"

namespace velk {

std::vector<std::wstring> textsOf(SAFEARRAY* array)
{
    std::vector<std::wstring> texts;
    if (!array)
        return texts;
    VARTYPE type = VT_EMPTY;
    if (FAILED(SafeArrayGetVartype(array, &type)) || type != VT_BSTR || SafeArrayGetDim(array) != 1)
        throw Error(errorTypeMismatch);
    LONG lower = 0;
    LONG upper = -1;
    throwIfFailed(SafeArrayGetLBound(array, 1, &lower));
    throwIfFailed(SafeArrayGetUBound(array, 1, &upper));
    for (LONG index = lower; index <= upper; ++index) {
        bstr text;
        throwIfFailed(SafeArrayGetElement(array, &index, text.put()));
        texts.push_back(text.text());
    }
    return texts;
}

SAFEARRAY* arrayOf(const std::vector<std::wstring>& texts)
{
    SAFEARRAY* array = SafeArrayCreateVector(VT_BSTR, 0, static_cast<ULONG>(texts.size()));
    if (!array)
        throw Error(errorOutOfMemory);
    for (LONG index = 0; index < static_cast<LONG>(texts.size()); ++index) {
        const bstr text(texts[static_cast<size_t>(index)]);
        throwIfFailed(SafeArrayPutElement(array, &index, text.get()));
    }
    return array;
}

} // namespace velk
