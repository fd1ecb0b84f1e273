#include "window/dialog.h"

#include "base/boundary.h"
#include "base/unique_any.h"
#include "support/outOfMemory.h"
#include "support/waitingForm.h"

#include <gtest/gtest.h>
#include <optional>

namespace velk {
namespace {

class DialogTest : public testing::Test {
protected:
    static RECT placeOf(HWND window)
    {
        RECT place{};
        GetWindowRect(window, &place);
        return place;
    }
    static bool isEnabled(HWND window) { return IsWindowEnabled(window) != FALSE; }

    const unique_window owner{CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 400, 300,
                                              nullptr, nullptr, nullptr, nullptr)};
    test::WaitingForm first{owner.get()};
    test::WaitingForm second{owner.get()};
    bool wasRun = false;
};

TEST_F(DialogTest, shownForm_blocksItsOwnerUntilItIsHidden)
{
    first.showAndRun([&] {
        wasRun = true;
        EXPECT_FALSE(isEnabled(owner.get()));
        EXPECT_TRUE(isEnabled(first.hwnd()));
        first.hide();
    });
    EXPECT_TRUE(wasRun);
    EXPECT_TRUE(isEnabled(owner.get()));
}

// Whatever could not be had: there is a whole form, or none.
TEST_F(DialogTest, formWithoutMemory_isNotThere)
{
    bool isEnough = false;
    for (int given = 0; !isEnough; ++given) {
        std::optional<test::WaitingForm> form;
        const test::OutOfMemory none(given);
        const auto failure = attempt([&] { form.emplace(owner.get()); });
        isEnough = !none.wasFelt();
        EXPECT_EQ(failure.has_value(), !isEnough) << given;
    }
}

TEST_F(DialogTest, form_standsInTheMiddleOfItsOwner)
{
    SetWindowPos(owner.get(), nullptr, 200, 150, 400, 300, SWP_NOZORDER);
    first.showAndRun([&] {
        wasRun = true;
        const RECT form = placeOf(first.hwnd());
        EXPECT_NEAR((form.left + form.right) / 2, 400, 1);
        EXPECT_NEAR((form.top + form.bottom) / 2, 300, 1);
    });
    EXPECT_TRUE(wasRun);
}

TEST_F(DialogTest, formOfAnOwnerOverTheEdge_staysOnTheScreen)
{
    MONITORINFO screen{};
    screen.cbSize = sizeof screen;
    GetMonitorInfoW(MonitorFromWindow(owner.get(), MONITOR_DEFAULTTONEAREST), &screen);
    SetWindowPos(owner.get(), nullptr, screen.rcWork.right - 20, screen.rcWork.bottom - 20, 400, 300, SWP_NOZORDER);
    first.showAndRun([&] {
        wasRun = true;
        const RECT form = placeOf(first.hwnd());
        EXPECT_EQ(form.right, screen.rcWork.right);
        EXPECT_EQ(form.bottom, screen.rcWork.bottom);
    });
    EXPECT_TRUE(wasRun);
}

TEST_F(DialogTest, formThatIsShown_hasTheFocusOnItsFirstControl)
{
    first.showAndRun([&] {
        wasRun = true;
        EXPECT_EQ(GetFocus(), GetNextDlgTabItem(first.hwnd(), nullptr, FALSE));
    });
    EXPECT_TRUE(wasRun);
}

TEST_F(DialogTest, formThatIsShownAlready_isNotShownTwice)
{
    first.showAndRun([&] {
        wasRun = true;
        first.showModal();
        EXPECT_TRUE(isEnabled(first.hwnd()));
    });
    EXPECT_TRUE(wasRun);
    EXPECT_TRUE(isEnabled(owner.get()));
}

TEST_F(DialogTest, hostThatEndsWhileTheFormWaits_hearsOfItInItsOwnLoop)
{
    PostQuitMessage(7);
    first.showModal();
    MSG message{};
    EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 7u);
    EXPECT_TRUE(isEnabled(owner.get()));
}

TEST_F(DialogTest, formShownOverAnother_blocksItAndFreesItWhenItCloses)
{
    first.showAndRun([&] {
        second.showAndRun([&] {
            wasRun = true;
            EXPECT_FALSE(isEnabled(first.hwnd()));
            EXPECT_TRUE(isEnabled(second.hwnd()));
            second.hide();
        });
        EXPECT_TRUE(isEnabled(first.hwnd()));
        EXPECT_FALSE(isEnabled(owner.get()));
        first.hide();
    });
    EXPECT_TRUE(wasRun);
    EXPECT_TRUE(isEnabled(owner.get()));
}

} // namespace
} // namespace velk
