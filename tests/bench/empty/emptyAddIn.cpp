// An add-in of one class that does nothing: what loading, connecting and unloading costs whatever the add-in does.
#include "devkit/ide/extensibility.h"

#include <new>

namespace {

using velk::devkit::extensibilityIid;

long living = 0;

class Empty : public velk::devkit::Extensibility {
public:
    Empty() { ++living; }
    virtual ~Empty() { --living; }
    STDMETHODIMP QueryInterface(REFIID iid, void** out) noexcept override
    {
        const bool isKnown = iid == IID_IUnknown || iid == IID_IDispatch || iid == extensibilityIid;
        *out = isKnown ? this : nullptr;
        return isKnown ? (AddRef(), S_OK) : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++m_references; }
    STDMETHODIMP_(ULONG) Release() noexcept override
    {
        const ULONG left = --m_references;
        if (left == 0)
            delete this;
        return left;
    }
    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override { return *count = 0, S_OK; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) noexcept override
    {
        return E_NOTIMPL;
    }
    HRESULT __stdcall OnConnection(IDispatch*, int, IDispatch*, SAFEARRAY**) noexcept override { return S_OK; }
    HRESULT __stdcall OnDisconnection(int, SAFEARRAY**) noexcept override { return S_OK; }
    HRESULT __stdcall OnAddInsUpdate(SAFEARRAY**) noexcept override { return S_OK; }
    HRESULT __stdcall OnStartupComplete(SAFEARRAY**) noexcept override { return S_OK; }
    HRESULT __stdcall OnBeginShutdown(SAFEARRAY**) noexcept override { return S_OK; }

private:
    ULONG m_references = 0;
};

class Factory : public IClassFactory {
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** out) noexcept override
    {
        const bool isKnown = iid == IID_IUnknown || iid == IID_IClassFactory;
        *out = isKnown ? this : nullptr;
        return isKnown ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return 2; }
    STDMETHODIMP_(ULONG) Release() noexcept override { return 1; }
    STDMETHODIMP CreateInstance(IUnknown*, REFIID iid, void** out) noexcept override
    {
        Empty* const made = new (std::nothrow) Empty;
        return made ? made->QueryInterface(iid, out) : E_OUTOFMEMORY;
    }
    STDMETHODIMP LockServer(BOOL) noexcept override { return S_OK; }
};

Factory factory;

} // namespace

STDAPI DllGetClassObject(REFCLSID, REFIID iid, void** out) noexcept
{
    return factory.QueryInterface(iid, out);
}

STDAPI DllCanUnloadNow() noexcept
{
    return living == 0 ? S_OK : S_FALSE;
}
