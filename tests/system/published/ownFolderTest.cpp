// The add-in in another folder than the program: what it looks for there.
#include "installedDll.h"

#include "base/module.h"
#include "unit/addin/fakeIde.h"

#include <typelib/extensibility.h>

namespace velk {
namespace {

class OwnFolder : public test::InstalledDll {
protected:
    ~OwnFolder() override
    {
        manager.reset();
        if (connect)
            connect->OnDisconnection(ext_dm_UserClosed, nullptr);
        connect.reset();
    }
    // Loading the add-in fetches its texts, and loads the Backend library for that.
    void load()
    {
        connect = make<_IDTExtensibility2>(CLSID_Connect);
        connect->OnConnection(ide.dte.get(), ext_cm_Startup, ide.addin.get(), nullptr);
    }
    static std::wstring loadedBackend()
    {
        wchar_t path[MAX_PATH] = L"";
        if (const HMODULE library = GetModuleHandleW(L"velkvsadd.dll"))
            GetModuleFileNameW(library, path, MAX_PATH);
        return path;
    }
    std::wstring projectFileWithoutSolution()
    {
        ide.solution->value(L"FullName", variant(L""));
        manager = make<_IMgrVI>(CLSID_IMgrVI);
        manager->setupIM(ide.dte.get(), ide.addin.get());
        manager->openRZCommunication();
        bstr name;
        manager.tryAs<_IntegrationMgr>()->getRZFileName(name.put());
        manager->closeRZCommunication();
        manager->deleteRZUI();
        return std::wstring(name.view());
    }

    test::FakeIde ide;
    com_ptr<_IDTExtensibility2> connect;
    com_ptr<_IMgrVI> manager;
};

TEST_F(OwnFolder, backendBesideTheAddInAndBesideTheProgram_isTheAddIns)
{
    put(VELK_COMPLETE_BACKEND, addinFolder());
    put(VELK_INCOMPLETE_BACKEND, programFolder());
    load();
    EXPECT_EQ(loadedBackend(), addinFolder() + L"\\velkvsadd.dll");
}

TEST_F(OwnFolder, backendBesideTheProgramOnly_isFound)
{
    put(VELK_COMPLETE_BACKEND, programFolder());
    load();
    EXPECT_EQ(loadedBackend(), programFolder() + L"\\velkvsadd.dll");
}

TEST_F(OwnFolder, projectWithoutASolution_isKeptInTheAddInsFolder)
{
    put(VELK_COMPLETE_BACKEND, addinFolder());
    EXPECT_EQ(projectFileWithoutSolution(), addinFolder() + L"\\rz\\project1.rzv");
}

TEST_F(OwnFolder, sessionThatEnded_keepsTheLibraryUntilTheDllMayGo)
{
    put(VELK_COMPLETE_BACKEND, addinFolder());
    load();
    EXPECT_EQ(connect->OnDisconnection(ext_dm_UserClosed, nullptr), S_OK);
    EXPECT_EQ(loadedBackend(), addinFolder() + L"\\velkvsadd.dll");
    connect.reset();
    EXPECT_EQ(callEntry("DllCanUnloadNow"), S_OK);
    EXPECT_EQ(loadedBackend(), L"");
}

} // namespace
} // namespace velk
