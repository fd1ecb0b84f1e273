#pragma once

#include "com/com_ptr.h"

#include "base/win32.h"
#include <string>

namespace velk {

// Numbers of the type library resources of this module.
enum class TypeLibrary : int { published = 1, host = 2 };

// Names the library that describes an interface; specialised beside the interface where it is not the published one.
template <class Interface>
struct described_in {
    static constexpr TypeLibrary library = TypeLibrary::published;
};

// Description of an interface (or class) from a type library in this module's resources; the libraries stay loaded
// until forgetTypeLibraries. Throws when there is none.
com_ptr<ITypeInfo> typeInfoOf(TypeLibrary library, REFGUID guid);
void forgetTypeLibraries() noexcept;

// Path by which the library is loaded and registered ("...\name.dll" or "...\name.dll\2").
std::wstring typeLibraryPath(TypeLibrary library);

namespace detail {
HRESULT getTypeInfo(TypeLibrary library, REFIID iid, UINT index, ITypeInfo** out) noexcept;
HRESULT getIds(TypeLibrary library, REFIID iid, LPOLESTR* names, UINT count, DISPID* ids) noexcept;
HRESULT invoke(TypeLibrary library, REFIID iid, void* object, DISPID id, WORD flags, DISPPARAMS* parameters,
               VARIANT* result, EXCEPINFO* exception, UINT* badArgument) noexcept;
} // namespace detail

// Gives a dual interface its IDispatch half from the type library.
template <class Interface>
class dual : public Interface {
public:
    using Described = Interface;

    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override
    {
        if (!count)
            return E_POINTER;
        *count = 1;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** out) noexcept override
    {
        return detail::getTypeInfo(described_in<Interface>::library, __uuidof(Interface), index, out);
    }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) noexcept override
    {
        return detail::getIds(described_in<Interface>::library, __uuidof(Interface), names, count, ids);
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* exception, UINT* badArgument) noexcept override
    {
        return detail::invoke(described_in<Interface>::library, __uuidof(Interface), static_cast<Interface*>(this), id,
                              flags, parameters, result, exception, badArgument);
    }
};

} // namespace velk
