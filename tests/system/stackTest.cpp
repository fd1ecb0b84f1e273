// 32-bit Windows promises whoever it calls a stack that is aligned to 4 bytes, no more; a compiler that is not told so
// keeps doubles and VARIANTs where they may not stand. What is entered here is entered on such stacks.
#include "dllFixture.h"
#include "support/documentHost.h"
#include "support/fakeObject.h"
#include "support/stackOff.h"

#include <gmock/gmock.h>
#include <typelib/extensibility.h>

namespace velk {
namespace {

using test::enterWithStackOff;
using test::methodOf;

class StackTest : public test::DllFixture, public testing::WithParamInterface<uint32_t> {
protected:
    template <class... Arguments>
    HRESULT enterExport(const char* name, Arguments... arguments) const
    {
        return static_cast<HRESULT>(enterWithStackOff(GetParam(), entry<void*>(name), arguments...));
    }
    template <class Interface, class... Arguments>
    HRESULT enterMethod(Interface* object, size_t place, Arguments... arguments) const
    {
        return static_cast<HRESULT>(enterWithStackOff(GetParam(), methodOf(object, place), object, arguments...));
    }
    LRESULT enterProcedure(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const
    {
        const auto procedure = reinterpret_cast<void*>(GetWindowLongPtrW(window, GWLP_WNDPROC));
        return static_cast<LRESULT>(enterWithStackOff(GetParam(), procedure, window, message, wParam, lParam));
    }
};

TEST_P(StackTest, calledEntry_findsTheStackOff)
{
    const auto probe = reinterpret_cast<void*>(velkPlaceOfArguments);
    EXPECT_EQ(enterWithStackOff(GetParam(), probe), 16 - GetParam());
    EXPECT_EQ(enterWithStackOff(GetParam(), probe, 1, 2, 3), 16 - GetParam());
}

TEST_P(StackTest, exports_work)
{
    com_ptr<IClassFactory> factory;
    EXPECT_EQ(enterExport("DllRegisterServer"), S_OK);
    EXPECT_EQ(enterExport("DllGetClassObject", &CLSID_ModelUtilVI, &IID_IClassFactory, factory.putVoid()), S_OK);
    EXPECT_EQ(enterExport("DllCanUnloadNow"), S_FALSE);
    factory.reset();
    EXPECT_EQ(enterExport("DllCanUnloadNow"), S_OK);
    EXPECT_EQ(enterExport("DllUnregisterServer"), S_OK);
}

TEST_P(StackTest, entryObject_answersTheHost)
{
    const com_ptr<_IDTExtensibility2> events = make<_IDTExtensibility2>(CLSID_Connect);
    SAFEARRAY* none = nullptr;
    IDispatch* const nothing = nullptr;
    EXPECT_EQ(enterMethod(events.get(), 7, nothing, ext_cm_AfterStartup, nothing, &none), S_OK); // OnConnection
    EXPECT_EQ(enterMethod(events.get(), 8, ext_dm_UserClosed, &none), S_OK);                     // OnDisconnection
}

TEST_P(StackTest, method_isInvokedByNumber)
{
    const com_ptr<_IMgrVI> manager = make<_IMgrVI>(CLSID_IMgrVI);
    DISPPARAMS noArguments{};
    VARIANT answer{};
    EXCEPINFO* const noDetails = nullptr;
    UINT* const noPlace = nullptr;
    const LCID locale = LOCALE_USER_DEFAULT;
    EXPECT_EQ(enterMethod(manager.get(), 6, 6L, &IID_NULL, locale, uint32_t{DISPATCH_PROPERTYGET}, &noArguments,
                          &answer, noDetails, noPlace), // Invoke: VIInstance
              S_OK);
    EXPECT_EQ(answer.vt, VT_DISPATCH);
    EXPECT_EQ(answer.pdispVal, nullptr);
}

TEST_P(StackTest, factoryAndMethod_makeAndFailAsEver)
{
    com_ptr<IClassFactory> factory;
    com_ptr<_IntegrationMgr> manager;
    IUnknown* const alone = nullptr;
    enterExport("DllGetClassObject", &CLSID_IMgrVI, &IID_IClassFactory, factory.putVoid());
    EXPECT_EQ(enterMethod(factory.get(), 3, alone, &__uuidof(_IntegrationMgr), manager.putVoid()), S_OK);
    SAFEARRAY* projects = nullptr;
    EXPECT_EQ(enterMethod(manager.get(), 11, &projects), manager->getProjList(&projects));
}

TEST_P(StackTest, manager_worksOnTheIde)
{
    const auto window = test::fakeObject(L"MainWindow");
    window->value(L"WindowState", variant(int32_t{0}));
    const auto ide = test::fakeObject(L"DTE");
    ide->value(L"MainWindow", asVariant(window));
    const com_ptr<_IMgrVI> manager = make<_IMgrVI>(CLSID_IMgrVI);
    IDispatch* const dte = ide.get();
    EXPECT_EQ(enterMethod(manager.get(), 7, dte, dte), S_OK);                 // setupIM
    EXPECT_EQ(enterMethod(manager.tryAs<_IntegrationMgr>().get(), 16), S_OK); // minimizeVSAppWin
    EXPECT_EQ(window->read(L"WindowState").asLong(), 1);
    EXPECT_EQ(enterMethod(manager.tryAs<_IntegrationMgr>().get(), 17), S_OK); // restoreVSAppWinState
    EXPECT_EQ(window->read(L"WindowState").asLong(), 0);
}

TEST_P(StackTest, windowsOfTheView_paintAndSize)
{
    const HWND frame = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 500, 400, nullptr,
                                       nullptr, nullptr, nullptr);
    const auto host = makeObject<test::DocumentHost>(frame);
    EXPECT_EQ(host->show(make<IUnknown>(CLSID_serverViewDoc).get()), S_OK);
    const HWND document = FindWindowExW(frame, nullptr, L"velkviadd.serverViewDoc", nullptr);
    const HWND view = FindWindowExW(document, nullptr, L"velkviadd.svrViewCtl", nullptr);
    EXPECT_EQ(enterProcedure(document, WM_SIZE, SIZE_RESTORED, MAKELPARAM(320, 200)), 0);
    EXPECT_EQ(enterProcedure(view, WM_SIZE, SIZE_RESTORED, MAKELPARAM(320, 200)), 0);
    EXPECT_EQ(enterProcedure(view, WM_PAINT), 0);
    EXPECT_EQ(enterProcedure(view, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(view), -1), 0);
    host->close();
    DestroyWindow(frame);
}

INSTANTIATE_TEST_SUITE_P(bytes, StackTest, testing::Values(4U, 8U, 12U), testing::PrintToStringParamName());

} // namespace
} // namespace velk
