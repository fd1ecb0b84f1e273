// The DLL's four entry points, and its attachment to the host's process.
// Tested in tests/system/unloadTest.cpp.

#include "addin/classFactory.h"
#include "addin/entry/runTime.h"
#include "addin/registration.h"
#include "backend/library.h"
#include "com/com_boundary.h"
#include "com/dispatch.h"
#include "scc/VSSAPI.h"
#include "ui/uiFont.h"

using namespace velk;

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID processEnds) noexcept
{
    if (reason == DLL_PROCESS_ATTACH)
        DisableThreadLibraryCalls(instance);
    else if (reason == DLL_PROCESS_DETACH && !processEnds)
        giveBackRunTime();
    return TRUE;
}

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, LPVOID* out) noexcept
{
    if (!out)
        return E_POINTER;
    *out = nullptr;
    // There is one user-interface thread, and nothing here has a lock. An apartment of another thread would share what
    // the first one keeps.
    const module::keep_loaded asking;
    if (!module::isOwnThread())
        return RPC_E_WRONG_THREAD;
    for (const PublishedClass& row : publishedClasses())
        if (*row.clsid == clsid)
            return atBoundary(L"DllGetClassObject",
                              [&] { return makeObject<ClassFactory>(row)->QueryInterface(iid, out); });
    return CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() noexcept
{
    // What is kept for speed must not outlive the code, and must not be let go of under the loader's lock.
    if (module::lockCount() != 0)
        return S_FALSE;
    forgetTypeLibraries();
    closeSourceSafe();
    unloadBackend();
    forgetUiFont();
    setFailureObserver(nullptr);
    // What went may have let somebody make an object here meanwhile.
    return module::lockCount() == 0 ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer() noexcept
{
    return FAILED(atBoundary(L"DllRegisterServer", [] { registerAddin(); })) ? SELFREG_E_CLASS : S_OK;
}

STDAPI DllUnregisterServer() noexcept
{
    return FAILED(atBoundary(L"DllUnregisterServer", [] { unregisterAddin(); })) ? SELFREG_E_CLASS : S_OK;
}
