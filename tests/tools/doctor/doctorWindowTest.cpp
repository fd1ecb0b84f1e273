#include "doctor/doctorWindow.h"

#include "facts.h"

#include <gmock/gmock.h>

namespace velk::doctor {
namespace {

using Id = WindowControls;

class DoctorWindowTest : public testing::Test {
protected:
    DoctorWindowTest()
        : window({}, [this](const Options& options) {
              asked.push_back(options.isFix);
              if (during)
                  during();
              return Report{{}, judge(machine), true};
          })
    {
        window.open();
    }

    HWND item(int id) const { return GetDlgItem(window.hwnd(), id); }
    void press(int id) { SendMessageW(window.hwnd(), WM_COMMAND, static_cast<WPARAM>(id), 0); }
    std::wstring text(int id) const
    {
        wchar_t result[4096] = L"";
        GetWindowTextW(item(id), result, ARRAYSIZE(result));
        return result;
    }
    int selectedRow() const
    {
        return static_cast<int>(SendMessageW(item(Id::lstChecks), LVM_GETNEXTITEM, WPARAM(-1), LVNI_SELECTED));
    }
    std::wstring cell(int row, int column) const
    {
        wchar_t result[260] = L"";
        LVITEMW asks{};
        asks.iSubItem = column;
        asks.pszText = result;
        asks.cchTextMax = ARRAYSIZE(result);
        SendMessageW(item(Id::lstChecks), LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&asks));
        return result;
    }
    void key(WPARAM code)
    {
        MSG message{GetFocus(), WM_KEYDOWN, code, 0, 0, {}};
        window.takesKey(message);
    }

    Facts machine = test::healthyMachine();
    std::vector<bool> asked;
    std::function<void()> during;
    DoctorWindow window;
};

TEST_F(DoctorWindowTest, healthyMachine_isToldInASentenceAndARowEach)
{
    window.look(false);
    EXPECT_EQ(text(Id::lblSentence), L"Everything that the add-in needs is in order.");
    EXPECT_EQ(SendMessageW(item(Id::lstChecks), LVM_GETITEMCOUNT, 0, 0), static_cast<LRESULT>(checkRows().size()));
    EXPECT_EQ(cell(0, 0), L"OK");
    EXPECT_EQ(cell(0, 1), L"Windows");
    EXPECT_FALSE(IsWindowEnabled(item(Id::cmdFix)));
}

TEST_F(DoctorWindowTest, firstComplaint_isSelectedAndToldInFull)
{
    machine.log.path = L"C:\\no such folder\\add-in.log";
    machine.log.isFullPath = true;
    window.look(false);
    EXPECT_EQ(cell(selectedRow(), 1), L"Log");
    EXPECT_THAT(text(Id::txtDetails), testing::StartsWith(L"WARNING: Log\r\n"));
    EXPECT_FALSE(IsWindowEnabled(item(Id::cmdFix)));
}

TEST_F(DoctorWindowTest, complaintThatTheSentenceNames_isSelected)
{
    machine.addin.file.version.clear();
    machine.language.codePage = 65001;
    machine.backend.texts.answer.clear();
    window.look(false);
    EXPECT_THAT(text(Id::lblSentence), testing::HasSubstr(L"Tool's texts"));
    EXPECT_EQ(cell(selectedRow(), 1), L"Tool's texts");
}

TEST_F(DoctorWindowTest, complaintThatCanBeFixed_enablesTheButtonWhichFixes)
{
    machine.registration.classes[1].server = {};
    window.look(false);
    EXPECT_TRUE(IsWindowEnabled(item(Id::cmdFix)));
    press(Id::cmdFix);
    EXPECT_EQ(asked, (std::vector{false, true}));
}

TEST_F(DoctorWindowTest, anotherRow_showsWhatStandsBehindIt)
{
    window.look(false);
    SetFocus(item(Id::lstChecks));
    SendMessageW(item(Id::lstChecks), WM_KEYDOWN, VK_DOWN, 0);
    EXPECT_THAT(text(Id::txtDetails), testing::StartsWith(L"OK: Registry view\r\n"));
}

TEST_F(DoctorWindowTest, copy_putsAllLinesOnTheClipboard)
{
    window.look(false);
    press(Id::cmdCopy);
    ASSERT_TRUE(OpenClipboard(window.hwnd()));
    const HANDLE block = GetClipboardData(CF_UNICODETEXT);
    const std::wstring copied = static_cast<const wchar_t*>(GlobalLock(block));
    GlobalUnlock(block);
    CloseClipboard();
    EXPECT_EQ(copied, linesOf({{}, judge(machine), true}, Details::ofAll));
}

TEST_F(DoctorWindowTest, f5_looksAgain)
{
    key(VK_F5);
    EXPECT_EQ(asked, std::vector{false});
}

TEST_F(DoctorWindowTest, tab_goesFromTheListOverTheDetailsToTheButtons)
{
    ShowWindow(window.hwnd(), SW_SHOW);
    window.look(false);
    EXPECT_EQ(GetFocus(), item(Id::lstChecks));
    key(VK_TAB);
    EXPECT_EQ(GetFocus(), item(Id::txtDetails));
    key(VK_TAB);
    EXPECT_EQ(GetFocus(), item(Id::cmdCopy)); // there is nothing to fix
}

TEST_F(DoctorWindowTest, escape_closesTheWindow)
{
    ShowWindow(window.hwnd(), SW_SHOW);
    window.look(false);
    key(VK_ESCAPE);
    EXPECT_EQ(window.hwnd(), nullptr);
}

TEST_F(DoctorWindowTest, escapeInTheDetails_closesTheWindow)
{
    ShowWindow(window.hwnd(), SW_SHOW);
    window.look(false);
    SetFocus(item(Id::txtDetails));
    key(VK_ESCAPE);
    EXPECT_EQ(window.hwnd(), nullptr);
}

TEST_F(DoctorWindowTest, closedWhileItLooks_goesAfterwards)
{
    during = [this] {
        EXPECT_FALSE(IsWindowEnabled(item(Id::cmdAgain)));
        press(Id::cmdClose);
        EXPECT_NE(window.hwnd(), nullptr);
    };
    window.look(false);
    EXPECT_EQ(window.hwnd(), nullptr);
}

TEST_F(DoctorWindowTest, lookThatFails_isToldAndCanBeRepeated)
{
    during = [] { throw std::bad_alloc(); };
    press(Id::cmdAgain);
    EXPECT_EQ(text(Id::lblSentence), L"The doctor itself failed: Out of memory");
    EXPECT_EQ(window.exitCode(), exitFailed);
    during = nullptr;
    press(Id::cmdAgain);
    EXPECT_EQ(text(Id::lblSentence), L"Everything that the add-in needs is in order.");
    EXPECT_EQ(window.exitCode(), exitGood);
}

TEST_F(DoctorWindowTest, lookThatFailsWhileItIsClosed_endsTheWindow)
{
    during = [this] {
        press(Id::cmdClose);
        throw std::bad_alloc();
    };
    press(Id::cmdAgain);
    EXPECT_EQ(window.hwnd(), nullptr);
    EXPECT_EQ(window.exitCode(), exitFailed);
}

TEST(ToFixTest, doctorWithMoreRights_looksAtTheSameInTheSameManner)
{
    Options options;
    options.addin = L"velkviadd.dll";
    options.wait = 7;
    const Options forFix = toFix(options);
    EXPECT_TRUE(forFix.isWindow && forFix.isFix);
    EXPECT_EQ(forFix.wait, 7u);
    EXPECT_THAT(forFix.addin, testing::AllOf(testing::HasSubstr(L":\\"), testing::EndsWith(L"\\velkviadd.dll")));
    EXPECT_EQ(toFix({}).addin, L"");
}

TEST_F(DoctorWindowTest, lookWithinALook_isNone)
{
    during = [this] { window.look(false); };
    window.look(false);
    EXPECT_EQ(asked.size(), 1u);
}

TEST_F(DoctorWindowTest, everyColumn_hasRoomForItsTexts)
{
    machine.addin.file.path = L"C:\\" + std::wstring(150, L'w') + L"\\velkviadd.dll";
    window.look(false);
    const LRESULT width = SendMessageW(item(Id::lstChecks), LVM_GETCOLUMNWIDTH, 2, 0);
    const std::wstring longest = cell(3, 2);
    EXPECT_GE(width,
              SendMessageW(item(Id::lstChecks), LVM_GETSTRINGWIDTHW, 0, reinterpret_cast<LPARAM>(longest.c_str())));
    EXPECT_GT(longest.size(), 150u);
}

} // namespace
} // namespace velk::doctor
