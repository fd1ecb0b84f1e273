// The entry points of the stand-in's DLL.

#include "devkit/sourcesafe/registration.h"

#include "com/com_boundary.h"
#include "devkit/automation/faults.h"
#include "devkit/sourcesafe/VSSDatabase.h"

using namespace velk;

namespace {

class Factory : public ComObject<Factory, IClassFactory> {
public:
    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** out) noexcept override
    {
        if (!out)
            return E_POINTER;
        *out = nullptr;
        if (outer)
            return CLASS_E_NOAGGREGATION;
        if (const auto fault = devkit::faultOf(L"SourceSafe.CreateInstance"))
            return *fault;
        return atBoundary(L"CreateInstance",
                          [&] { return makeObject<devkit::vss::VSSDatabase>()->QueryInterface(iid, out); });
    }
    STDMETHODIMP LockServer(BOOL shall) noexcept override
    {
        if (shall)
            module::lock();
        else
            module::unlock();
        return S_OK;
    }
};

} // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID)
{
    if (reason == DLL_PROCESS_ATTACH)
        DisableThreadLibraryCalls(instance);
    return TRUE;
}

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, LPVOID* out) noexcept
{
    if (!out)
        return E_POINTER;
    *out = nullptr;
    if (clsid != devkit::vss::databaseClass)
        return CLASS_E_CLASSNOTAVAILABLE;
    return atBoundary(L"DllGetClassObject", [&] { return makeObject<Factory>()->QueryInterface(iid, out); });
}

STDAPI DllCanUnloadNow() noexcept
{
    return module::lockCount() == 0 ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer() noexcept
{
    return FAILED(atBoundary(L"DllRegisterServer", [] { devkit::vss::registerServer(); })) ? SELFREG_E_CLASS : S_OK;
}

STDAPI DllUnregisterServer() noexcept
{
    return FAILED(atBoundary(L"DllUnregisterServer", [] { devkit::vss::unregisterServer(); })) ? SELFREG_E_CLASS : S_OK;
}

// For tests: a function of the host's that lets calls fail; null for none.
extern "C" void WINAPI StandinSetFaultHook(devkit::FaultHook hook) noexcept
{
    devkit::setFaultHook(hook);
}
