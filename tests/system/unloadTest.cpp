#include "devkit/base/thread.h"
#include "dllFixture.h"

#include <typelib/extensibility.h>

namespace velk {
namespace {

class UnloadTest : public test::DllFixture {
protected:
    com_ptr<IClassFactory> factory() const
    {
        com_ptr<IClassFactory> made;
        entry<HRESULT(WINAPI*)(REFCLSID, REFIID, void**)>("DllGetClassObject")(CLSID_Connect, IID_IClassFactory,
                                                                               made.putVoid());
        return made;
    }
};

TEST_F(UnloadTest, freshDll_mayGo)
{
    EXPECT_EQ(callEntry("DllCanUnloadNow"), S_OK);
}

TEST_F(UnloadTest, livingObject_keepsTheDll)
{
    com_ptr<_ModelUtil> model = make<_ModelUtil>(CLSID_ModelUtil);
    ASSERT_TRUE(model);
    EXPECT_EQ(callEntry("DllCanUnloadNow"), S_FALSE);
    model.reset();
    EXPECT_EQ(callEntry("DllCanUnloadNow"), S_OK);
}

TEST_F(UnloadTest, serverLock_keepsTheDllUntilItIsUndone)
{
    factory()->LockServer(TRUE);
    EXPECT_EQ(callEntry("DllCanUnloadNow"), S_FALSE);
    factory()->LockServer(TRUE);
    factory()->LockServer(FALSE);
    EXPECT_EQ(callEntry("DllCanUnloadNow"), S_FALSE);
    factory()->LockServer(FALSE);
    EXPECT_EQ(callEntry("DllCanUnloadNow"), S_OK);
}

TEST_F(UnloadTest, classFactory_keepsTheDll)
{
    com_ptr<IClassFactory> held = factory();
    EXPECT_EQ(callEntry("DllCanUnloadNow"), S_FALSE);
    held.reset();
    EXPECT_EQ(callEntry("DllCanUnloadNow"), S_OK);
}

TEST_F(UnloadTest, secondThread_isRefusedWhileTheFirstHasAnObject)
{
    const auto onAnotherThread = [this] {
        HRESULT result = E_FAIL;
        {
            const devkit::Thread other([&] {
                com_ptr<IClassFactory> made;
                result = entry<HRESULT(WINAPI*)(REFCLSID, REFIID, void**)>("DllGetClassObject")(
                    CLSID_ModelUtil, IID_IClassFactory, made.putVoid());
            });
        }
        return result;
    };
    EXPECT_EQ(onAnotherThread(), S_OK);
    com_ptr<_ModelUtil> held = make<_ModelUtil>(CLSID_ModelUtil);
    ASSERT_TRUE(held);
    EXPECT_EQ(onAnotherThread(), RPC_E_WRONG_THREAD);
    EXPECT_TRUE(make<_ModelUtil>(CLSID_ModelUtil)); // the first goes on
    held.reset();
    EXPECT_EQ(callEntry("DllCanUnloadNow"), S_OK);
    EXPECT_EQ(onAnotherThread(), S_OK);
}

TEST_F(UnloadTest, partOfAnother_isRefused)
{
    const com_ptr<_ModelUtil> outer = make<_ModelUtil>(CLSID_ModelUtil);
    com_ptr<IUnknown> inner;
    EXPECT_EQ(factory()->CreateInstance(outer.get(), IID_IUnknown, inner.putVoid()), CLASS_E_NOAGGREGATION);
    EXPECT_FALSE(inner);
}

TEST_F(UnloadTest, unknownClass_isRefused)
{
    com_ptr<IClassFactory> factory;
    const auto getClassObject = entry<HRESULT(WINAPI*)(REFCLSID, REFIID, void**)>("DllGetClassObject");
    EXPECT_EQ(getClassObject(IID_IDispatch, IID_IClassFactory, factory.putVoid()), CLASS_E_CLASSNOTAVAILABLE);
}

TEST_F(UnloadTest, connect_answersTheFiveEventsOfTheHost)
{
    const com_ptr<_IDTExtensibility2> events = make<_IDTExtensibility2>(CLSID_Connect);
    ASSERT_TRUE(events);
    SAFEARRAY* none = nullptr;
    EXPECT_EQ(events->OnConnection(nullptr, ext_cm_AfterStartup, nullptr, &none), S_OK);
    EXPECT_EQ(events->OnAddInsUpdate(&none), S_OK);
    EXPECT_EQ(events->OnStartupComplete(nullptr), S_OK);
    EXPECT_EQ(events->OnBeginShutdown(&none), S_OK);
    EXPECT_EQ(events->OnDisconnection(ext_dm_UserClosed, &none), S_OK);
}

TEST_F(UnloadTest, unloadedAndLoadedAgain_works)
{
    make<_ModelUtil>(CLSID_ModelUtilVI);
    ASSERT_EQ(callEntry("DllCanUnloadNow"), S_OK);
    dll.reset();
    EXPECT_EQ(GetModuleHandleW(L"velkviadd.dll"), nullptr);
    dll.reset(LoadLibraryW(path().c_str()));
    EXPECT_TRUE(make<_ModelUtil>(CLSID_ModelUtilVI));
}

// Another module built by the same compiler may have brought the compiler's shared run-time library.
TEST_F(UnloadTest, sharedRunTimeInTheProcess_leavesTheDllItsExceptions)
{
    dll.reset();
    ASSERT_EQ(GetModuleHandleW(L"velkviadd.dll"), nullptr);
    const unique_module shared(LoadLibraryW(L"libgcc_s_dw2-1.dll"));
    ASSERT_TRUE(shared);
    dll.reset(LoadLibraryW(path().c_str()));
    const com_ptr<_IDTExtensibility2> events = make<_IDTExtensibility2>(CLSID_Connect);
    ASSERT_TRUE(events);
    SAFEARRAY* none = nullptr;
    EXPECT_EQ(events->OnConnection(nullptr, ext_cm_AfterStartup, nullptr, &none), S_OK); // thrown and caught inside
    EXPECT_EQ(events->OnDisconnection(ext_dm_UserClosed, &none), S_OK);
}

} // namespace
} // namespace velk
