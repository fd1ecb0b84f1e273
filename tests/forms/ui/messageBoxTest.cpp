#include "ui/messageBox.h"

#include "base/unique_any.h"
#include "support/shownMessages.h"
#include "support/waitingForm.h"
#include "window/dialog.h"

#include <gtest/gtest.h>

namespace velk {
namespace {

class MessageBoxTest : public testing::Test {
protected:
    MessageBoxTest()
    {
        setMainWindow(mainWindow.get());
        SetActiveWindow(mainWindow.get());
    }
    ~MessageBoxTest() override { setMainWindow(nullptr); }

    const unique_window mainWindow{CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 400, 300,
                                                   nullptr, nullptr, nullptr, nullptr)};
    test::WaitingForm first{mainWindow.get()};
    test::WaitingForm second{mainWindow.get()};
    bool wasRun = false;
};

TEST_F(MessageBoxTest, nothingOpen_theBoxBelongsToTheMainWindow)
{
    EXPECT_EQ(boxOwner(), mainWindow.get());
}

TEST_F(MessageBoxTest, mainWindowThatIsGone_ownsNothing)
{
    unique_window gone(
        CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW, 0, 0, 100, 100, nullptr, nullptr, nullptr, nullptr));
    const HWND old = gone.get();
    setMainWindow(old);
    EXPECT_EQ(dialogOwner(), old);
    gone.reset();
    EXPECT_NE(dialogOwner(), old);
}

TEST_F(MessageBoxTest, dialogShown_theBoxBelongsToItUntilItCloses)
{
    first.showAndRun([&] {
        wasRun = true;
        EXPECT_EQ(boxOwner(), first.hwnd());
    });
    EXPECT_TRUE(wasRun);
    EXPECT_EQ(boxOwner(), mainWindow.get());
}

TEST_F(MessageBoxTest, dialogOverAnother_theBoxBelongsToTheUpperThenToTheLower)
{
    first.showAndRun([&] {
        second.showAndRun([&] {
            wasRun = true;
            EXPECT_EQ(boxOwner(), second.hwnd());
        });
        EXPECT_EQ(boxOwner(), first.hwnd());
    });
    EXPECT_TRUE(wasRun);
}

TEST_F(MessageBoxTest, paletteThatIsActiveOverADialog_ownsNoBox)
{
    first.showAndRun([&] {
        const unique_window palette(CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50,
                                                    mainWindow.get(), nullptr, nullptr, nullptr));
        SetActiveWindow(palette.get());
        EXPECT_EQ(GetLastActivePopup(mainWindow.get()), palette.get());
        EXPECT_EQ(boxOwner(), first.hwnd());
        wasRun = true;
    });
    EXPECT_TRUE(wasRun);
}

TEST_F(MessageBoxTest, systemsBoxOverADialog_blocksTheDialogWhileItIsOpen)
{
    static HWND owner;
    static bool wasOwnerEnabled;
    owner = nullptr;
    struct Answer {
        static void CALLBACK fire(HWND, UINT, UINT_PTR id, DWORD)
        {
            if (const HWND box = FindWindowW(L"#32770", L"A title of its own")) {
                KillTimer(nullptr, id);
                owner = GetWindow(box, GW_OWNER);
                wasOwnerEnabled = IsWindowEnabled(owner) != FALSE;
                PostMessageW(box, WM_CLOSE, 0, 0);
            }
        }
    };
    first.showAndRun([&] {
        SetTimer(nullptr, 0, 20, Answer::fire);
        EXPECT_EQ(showMessage(L"text", MB_OK, L"A title of its own"), IDOK);
        EXPECT_TRUE(IsWindowEnabled(first.hwnd()));
    });
    EXPECT_EQ(owner, first.hwnd());
    EXPECT_FALSE(wasOwnerEnabled);
}

TEST_F(MessageBoxTest, boxesClosedWithCancel_areCounted)
{
    test::ShownMessages boxes;
    const uint32_t before = cancelledBoxes();
    for (const int answer : {IDCANCEL, IDNO, IDYES, IDCANCEL}) {
        boxes.answer = answer;
        showMessage(L"Go on?", MB_YESNOCANCEL);
    }
    EXPECT_EQ(cancelledBoxes() - before, 2u);
}

TEST_F(MessageBoxTest, boxWithOkOnly_isNeverCancelled)
{
    test::ShownMessages boxes;
    const uint32_t before = cancelledBoxes();
    boxes.answer = IDCANCEL;
    showMessage(L"Done.");
    EXPECT_EQ(cancelledBoxes(), before);
}

} // namespace
} // namespace velk
