// Tested in tests/system/published/lateBoundTest.cpp.
#include "com/dispatch.h"

#include "base/module.h"
#include "base/never_destroyed.h"
#include "base/text.h"
#include "com/com_boundary.h"

#include <array>
#include <string>

namespace velk {
namespace {

std::array<com_ptr<ITypeLib>, 2>& loadedLibraries()
{
    static never_destroyed<std::array<com_ptr<ITypeLib>, 2>> libraries;
    return libraries.get();
}

ITypeLib* loadLibrary(TypeLibrary library)
{
    com_ptr<ITypeLib>& loaded = loadedLibraries()[static_cast<size_t>(library) - 1];
    if (!loaded)
        throwIfFailed(LoadTypeLibEx(typeLibraryPath(library).c_str(), REGKIND_NONE, loaded.put()));
    return loaded.get();
}

} // namespace

std::wstring typeLibraryPath(TypeLibrary library)
{
    const std::wstring path = module::path();
    return library == TypeLibrary::published ? path : path + L"\\" + numberText(static_cast<int32_t>(library));
}

com_ptr<ITypeInfo> typeInfoOf(TypeLibrary library, REFGUID guid)
{
    com_ptr<ITypeInfo> info;
    throwIfFailed(loadLibrary(library)->GetTypeInfoOfGuid(guid, info.put()));
    return info;
}

void forgetTypeLibraries() noexcept
{
    loadedLibraries().fill(nullptr);
}

namespace detail {

HRESULT getTypeInfo(TypeLibrary library, REFIID iid, UINT index, ITypeInfo** out) noexcept
{
    if (!out)
        return E_POINTER;
    *out = nullptr;
    if (index != 0)
        return DISP_E_BADINDEX;
    return atBoundary(L"GetTypeInfo", [&] { *out = typeInfoOf(library, iid).detach(); });
}

HRESULT getIds(TypeLibrary library, REFIID iid, LPOLESTR* names, UINT count, DISPID* ids) noexcept
{
    return atBoundary(L"GetIDsOfNames", [&] { return typeInfoOf(library, iid)->GetIDsOfNames(names, count, ids); });
}

HRESULT invoke(TypeLibrary library, REFIID iid, void* object, DISPID id, WORD flags, DISPPARAMS* parameters,
               VARIANT* result, EXCEPINFO* exception, UINT* badArgument) noexcept
{
    return atBoundary(L"Invoke", [&] {
        // Left-over rich errors of earlier calls would be taken for this call's.
        SetErrorInfo(0, nullptr);
        return typeInfoOf(library, iid)->Invoke(object, id, flags, parameters, result, exception, badArgument);
    });
}

} // namespace detail
} // namespace velk
