#include "base/error.h"
#include "window/send_keys.h"

#include <gtest/gtest.h>
#include <string>

namespace velk {
namespace {

// A real edit control with the focus.
class SendKeysTest : public testing::Test {
protected:
    SendKeysTest()
    {
        edit = CreateWindowExW(0, L"EDIT", L"", WS_POPUP | WS_VISIBLE | ES_MULTILINE, 0, 0, 300, 100, nullptr, nullptr,
                               nullptr, nullptr);
        SetForegroundWindow(edit);
        SetFocus(edit);
    }
    ~SendKeysTest() override { DestroyWindow(edit); }
    std::wstring text() const
    {
        wchar_t content[256] = L"";
        GetWindowTextW(edit, content, 256);
        return content;
    }

    HWND edit = nullptr;
};

TEST_F(SendKeysTest, plainText_arrivesWhenWaitingIsOver)
{
    sendKeys(L"Select 1, 'a'", true);
    EXPECT_EQ(text(), L"Select 1, 'a'");
}

TEST_F(SendKeysTest, charactersOutsideTheLayout_arrive)
{
    sendKeys(L"\x65e5\x672c", true);
    EXPECT_EQ(text(), L"\x65e5\x672c");
}

TEST_F(SendKeysTest, editingKeys_edit)
{
    sendKeys(L"abc{LEFT}{BS}x{HOME}{DEL}{END}{!}", true);
    EXPECT_EQ(text(), L"xc!");
}

TEST_F(SendKeysTest, enter_beginsALine)
{
    sendKeys(L"a~b", true);
    EXPECT_EQ(text(), L"a\r\nb");
}

TEST_F(SendKeysTest, literalBraces_areTyped)
{
    sendKeys(L"{(}{{}x{}}{)}", true);
    EXPECT_EQ(text(), L"({x})");
}

TEST_F(SendKeysTest, badSyntax_sendsNothingAtAll)
{
    EXPECT_THROW(sendKeys(L"abc{ELEPHANT}", true), Error);
    sendKeys(L"z", true);
    EXPECT_EQ(text(), L"z");
}

TEST_F(SendKeysTest, shiftWithAKey_selects)
{
    sendKeys(L"abc+{HOME}x", true);
    EXPECT_EQ(text(), L"x");
}

TEST_F(SendKeysTest, controlWithAKey_goesToTheBeginning)
{
    sendKeys(L"a~b^{HOME}x", true);
    EXPECT_EQ(text(), L"xa\r\nb");
}

TEST_F(SendKeysTest, heldKeys_areUpAgainAfterwards)
{
    sendKeys(L"+^%{F16}", true);
    EXPECT_GE(GetKeyState(VK_SHIFT) | GetKeyState(VK_CONTROL) | GetKeyState(VK_MENU), 0); // the sign bit is "down"
    sendKeys(L"b", true);
    EXPECT_EQ(text(), L"b");
}

TEST_F(SendKeysTest, hostThatEndsDuringTheWait_hearsOfItInItsOwnLoop)
{
    PostQuitMessage(7);
    sendKeys(L"a", true);
    MSG message{};
    EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 7u);
    sendKeys(L"b", true);
    EXPECT_EQ(text(), L"ab");
}

TEST_F(SendKeysTest, withoutWaiting_theKeysComeLater)
{
    sendKeys(L"q", false);
    EXPECT_EQ(text(), L"");
    sendKeys(L"r", true);
    EXPECT_EQ(text(), L"qr");
}

} // namespace
} // namespace velk
