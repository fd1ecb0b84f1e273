#include "dllFixture.h"

#include <docobj.h>
#include <ocidl.h>

namespace velk {
namespace {

using CreateControl = HRESULT(WINAPI*)(LPCOLESTR, HWND, IStream*, IUnknown**, IUnknown**, REFIID, IUnknown*);

class HostingTest : public test::DllFixture {
protected:
    HostingTest() : atl(LoadLibraryW(L"atl.dll"))
    {
        callEntry("DllRegisterServer");
        const auto init =
            reinterpret_cast<BOOL(WINAPI*)()>(reinterpret_cast<void*>(GetProcAddress(atl.get(), "AtlAxWinInit")));
        init();
        host =
            CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW, 0, 0, 800, 600, nullptr, nullptr, nullptr, nullptr);
        site = CreateWindowExW(0, L"AtlAxWin", L"", WS_CHILD | WS_VISIBLE, 0, 0, 600, 300, host, nullptr, nullptr,
                               nullptr);
        const auto create =
            reinterpret_cast<CreateControl>(reinterpret_cast<void*>(GetProcAddress(atl.get(), "AtlAxCreateControlEx")));
        created = create(L"velkviadd.serverViewDoc", site, nullptr, nullptr, document.put(), IID_NULL, nullptr);
    }
    ~HostingTest() override
    {
        document.reset();
        if (IsWindow(host))
            DestroyWindow(host);
        callEntry("DllUnregisterServer");
    }
    HWND content()
    {
        HWND window = nullptr;
        const auto inPlace = document.tryAs<IOleInPlaceObject>();
        return inPlace && SUCCEEDED(inPlace->GetWindow(&window)) ? window : nullptr;
    }
    static SIZE sizeOf(HWND window)
    {
        RECT place{};
        GetWindowRect(window, &place);
        return {place.right - place.left, place.bottom - place.top};
    }

    unique_module atl;
    HWND host = nullptr;
    HWND site = nullptr;
    com_ptr<IUnknown> document;
    HRESULT created = E_FAIL;
};

TEST_F(HostingTest, controlContainer_showsTheDocument)
{
    EXPECT_EQ(created, S_OK);
    ASSERT_NE(content(), nullptr);
    EXPECT_NE(FindWindowExW(content(), nullptr, L"velkviadd.svrViewCtl", nullptr), nullptr);
}

TEST_F(HostingTest, documentAndControl_followTheHostsSize)
{
    SetWindowPos(site, nullptr, 0, 0, 400, 200, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_EQ(sizeOf(content()).cx, 400);
    EXPECT_EQ(sizeOf(FindWindowExW(content(), nullptr, L"velkviadd.svrViewCtl", nullptr)).cx, 400);
    EXPECT_EQ(sizeOf(FindWindowExW(content(), nullptr, L"velkviadd.svrViewCtl", nullptr)).cy, 200);
}

TEST_F(HostingTest, zeroSize_isPassedOnUnchanged)
{
    SetWindowPos(site, nullptr, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOZORDER);
    const SIZE control = sizeOf(FindWindowExW(content(), nullptr, L"velkviadd.svrViewCtl", nullptr));
    EXPECT_EQ(control.cx, 0);
    EXPECT_EQ(control.cy, 0);
    SetWindowPos(site, nullptr, 0, 0, 300, 100, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_EQ(sizeOf(content()).cx, 300);
}

TEST_F(HostingTest, tabKey_movesBetweenTreeAndList)
{
    const HWND view = FindWindowExW(content(), nullptr, L"velkviadd.svrViewCtl", nullptr);
    const HWND tree = FindWindowExW(view, nullptr, L"SysTreeView32", nullptr);
    const HWND list = FindWindowExW(view, nullptr, L"SysListView32", nullptr);
    ShowWindow(host, SW_SHOW);
    SetFocus(tree);
    MSG key{};
    key.hwnd = tree;
    key.message = WM_KEYDOWN;
    key.wParam = VK_TAB;
    EXPECT_EQ(document.tryAs<IOleInPlaceActiveObject>()->TranslateAccelerator(&key), S_OK);
    EXPECT_EQ(GetFocus(), list);
    key.hwnd = list;
    EXPECT_EQ(document.tryAs<IOleInPlaceActiveObject>()->TranslateAccelerator(&key), S_OK);
    EXPECT_EQ(GetFocus(), tree);
}

TEST_F(HostingTest, keyOfAnotherWindow_isLeftToTheHost)
{
    MSG key{};
    key.hwnd = host;
    key.message = WM_KEYDOWN;
    key.wParam = VK_TAB;
    EXPECT_EQ(document.tryAs<IOleInPlaceActiveObject>()->TranslateAccelerator(&key), S_FALSE);
}

TEST_F(HostingTest, hostsInterfaces_areAllAnswered)
{
    EXPECT_TRUE(document.tryAs<IDispatch>());
    EXPECT_TRUE(document.tryAs<IOleControl>());
    EXPECT_TRUE(document.tryAs<IViewObject2>());
    EXPECT_TRUE(document.tryAs<IPersistStreamInit>());
    EXPECT_TRUE(document.tryAs<IPersistStorage>());
    EXPECT_TRUE(document.tryAs<IProvideClassInfo2>());
    EXPECT_TRUE(document.tryAs<IOleDocument>());
    EXPECT_TRUE(document.tryAs<IOleDocumentView>());
    EXPECT_TRUE(document.tryAs<_serverViewDoc>());
}

TEST_F(HostingTest, destroyedHost_leavesNoWindowClassAndTheDllMayGo)
{
    document.reset();
    DestroyWindow(host);
    EXPECT_EQ(callEntry("DllCanUnloadNow"), S_OK);
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    EXPECT_FALSE(GetClassInfoExW(dll.get(), L"velkviadd.serverViewDoc", &description));
    EXPECT_FALSE(GetClassInfoExW(dll.get(), L"velkviadd.svrViewCtl", &description));
}

TEST_F(HostingTest, managerSetByReference_isReadBackUntilTheHostCloses)
{
    const com_ptr<_IntegrationMgr> manager = make<_IntegrationMgr>(CLSID_IntegrationMgr);
    const auto face = document.tryAs<_serverViewDoc>();
    com_ptr<_IntegrationMgr> read;
    EXPECT_EQ(face->putref_IMgr(manager.get()), S_OK);
    EXPECT_EQ(face->get_IMgr(read.put()), S_OK);
    EXPECT_EQ(read.get(), manager.get());
    DestroyWindow(host);
    EXPECT_EQ(face->get_IMgr(read.put()), S_OK);
    EXPECT_EQ(read.get(), nullptr);
}

} // namespace
} // namespace velk
