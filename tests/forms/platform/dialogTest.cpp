#include "platform/dialog.h"

#include "platform/unique_any.h"

#include <functional>
#include <gtest/gtest.h>

namespace velk {
namespace {

constexpr DialogRow rows[] = {{100, DialogControl::button, L"Button", 4, 4, 40, 14}};
constexpr DialogLayout layout{100, 40, rows};

// A form that runs a piece of the test while it waits.
class WaitingForm : public Dialog {
public:
    void showAndRun(std::function<void()> whileWaiting)
    {
        m_whileWaiting = std::move(whileWaiting);
        PostMessageW(hwnd(), WM_COMMAND, 100, 0);
        showModal();
    }

protected:
    void onCommand(int, int) override { m_whileWaiting(); }

private:
    std::function<void()> m_whileWaiting;
};

class DialogTest : public testing::Test {
protected:
    DialogTest()
    {
        first.load(owner.get(), layout, {});
        second.load(owner.get(), layout, {});
    }
    static bool isEnabled(HWND window) { return IsWindowEnabled(window) != FALSE; }

    const unique_window owner{CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 400, 300,
                                              nullptr, nullptr, nullptr, nullptr)};
    WaitingForm first;
    WaitingForm second;
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
