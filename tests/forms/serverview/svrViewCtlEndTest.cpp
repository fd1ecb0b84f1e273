#include "base/unique_any.h"
#include "serverview/svrViewCtl.h"
#include "serverview/viewAPIs.h"
#include "support/fakeBackend.h"

#include <gtest/gtest.h>
#include <memory>

namespace velk {
namespace {

// A view that goes inside the tool's call for a folder that the user selects.
class ViewEndTest : public testing::Test {
protected:
    ViewEndTest()
    {
        backend.numbersAsTexts = true;
        view->create(host.get(), {0, 0, 1000, 400});
        view->setupGUI();
        addFolderNode(L"", L"5", L"K1", L"orders", L"True");
        addFolderNode(L"K1", L"7", L"K2", L"Procedures", L"False");
        addFolderNode(L"K1", L"9", L"K3", L"Functions", L"False");
        view->serverTreeView().expand(L"K1");
        view->serverTreeView().select(L"K2");
        tree = view->serverTreeView().hwnd();
        SetFocus(tree);
        backend.on.RZSetCurrentFolder = [this](int32_t, int32_t) {
            if (isDestroyed && view)
                DestroyWindow(view->hwnd());
            view.reset();
            return 1;
        };
    }
    ~ViewEndTest() override { EXPECT_FALSE(IsWindow(tree)) << "the tree stays"; }
    // What the host's message loop does next.
    static void workOffMessages()
    {
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageW(&message);
    }
    test::FakeBackend backend;
    const unique_window host{CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPED | WS_VISIBLE, 0, 0, 1200, 600, nullptr,
                                             nullptr, nullptr, nullptr)};
    std::shared_ptr<svrViewCtl> view = std::make_shared<svrViewCtl>();
    HWND tree = nullptr;
    bool isDestroyed = false; // its window, by the host, before it is let go of
};

TEST_F(ViewEndTest, byAKeyWithTheHostsWindow_isSurvived)
{
    isDestroyed = true;
    SendMessageW(tree, WM_KEYDOWN, VK_DOWN, 0);
    EXPECT_FALSE(view);
    workOffMessages();
}

TEST_F(ViewEndTest, byAKey_isSurvived)
{
    SendMessageW(tree, WM_KEYDOWN, VK_DOWN, 0);
    EXPECT_FALSE(view);
    workOffMessages();
}

TEST_F(ViewEndTest, byTheCollapseOfABranch_isSurvived)
{
    SendMessageW(tree, WM_KEYDOWN, VK_LEFT, 0);
    EXPECT_FALSE(view);
    workOffMessages();
}

TEST_F(ViewEndTest, byTheMouse_isSurvived)
{
    view->serverTreeView().select(L"K2");
    RECT place = view->serverTreeView().placeOfSelected();
    const LPARAM at = MAKELPARAM(place.left + 3, place.top + (place.bottom - place.top) * 3 / 2);
    PostMessageW(tree, WM_LBUTTONUP, 0, at);
    SendMessageW(tree, WM_LBUTTONDOWN, MK_LBUTTON, at);
    workOffMessages();
    EXPECT_FALSE(view);
}

} // namespace
} // namespace velk
