#include "serverview/objectKeys.h"

#include "base/error.h"
#include "base/text.h"

#include <algorithm>

namespace velk {
namespace {

// As roundToLong(leadingNumber(text)); what all our keys and tags are made of, digits alone, does without all that Val
// reads. The kind of the selected node is asked for with each notification.
int32_t numberAtBeginning(std::wstring_view text)
{
    constexpr size_t mostDigits = 9;
    const bool isPlain = !text.empty() && text.size() <= mostDigits &&
                         std::all_of(text.begin(), text.end(), [](wchar_t c) { return c >= L'0' && c <= L'9'; });
    if (!isPlain)
        return roundToLong(leadingNumber(text));
    int32_t number = 0;
    for (const wchar_t digit : text)
        number = number * 10 + (digit - L'0');
    return number;
}

} // namespace

std::wstring makeKey(int32_t handle)
{
    return L"K" + numberText(handle);
}

int32_t keyToHandle(const std::wstring& key)
{
    // "Corrupt key" has always been raised with a text for its number; what callers get, and rely on, is that mismatch.
    if (!key.starts_with(L'K'))
        throw Error(errorTypeMismatch);
    return numberAtBeginning(std::wstring_view(key).substr(1));
}

std::wstring kindTag(int32_t kind)
{
    return numberText(kind);
}

int32_t kindOfTag(const std::wstring& tag)
{
    return numberAtBeginning(tag);
}

std::wstring fileOfTag(const std::wstring& tag)
{
    const size_t mark = tag.find(L'#');
    return mark == std::wstring::npos ? std::wstring() : tag.substr(mark + 1);
}

} // namespace velk
