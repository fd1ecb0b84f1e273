#include "base/text.h"
#include "serverview/columnCommands.h"
#include "severalFixture.h"
#include "support/outOfMemory.h"
#include "ui/ownTexts.h"

namespace velk {
namespace {

using test::Calls;
using test::Lines;

class CopyTest : public test::SeveralFixture {
protected:
    CopyTest() { putOnClipboard(L"before"); }
    ~CopyTest() override { CloseClipboard(); }
    void putOnClipboard(const wchar_t* text)
    {
        const size_t size = (wcslen(text) + 1) * sizeof(wchar_t);
        const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, size);
        memcpy(GlobalLock(block), text, size);
        GlobalUnlock(block);
        ASSERT_TRUE(OpenClipboard(host));
        EmptyClipboard();
        SetClipboardData(CF_UNICODETEXT, block);
        CloseClipboard();
    }
    std::wstring clipboard(UINT format = CF_UNICODETEXT)
    {
        if (!OpenClipboard(host))
            return L"(held)";
        const HANDLE data = GetClipboardData(format);
        const void* text = data ? GlobalLock(data) : nullptr;
        std::wstring read = !text                      ? L"(none)"
                            : format == CF_UNICODETEXT ? std::wstring(static_cast<const wchar_t*>(text))
                                                       : toWide(static_cast<const char*>(text));
        if (text)
            GlobalUnlock(data);
        CloseClipboard();
        return read;
    }
    // Opened by another window, as by another program.
    void holdClipboard() { ASSERT_TRUE(OpenClipboard(host)); }
};

TEST_F(CopyTest, controlC_copiesTheNamesOfTheSelectedRowsAsShown)
{
    showRows(4);
    select({0, 2, 3});
    sortBy(0);
    sortBy(0);
    EXPECT_TRUE(press('C', {VK_CONTROL}));
    EXPECT_EQ(clipboard(), L"p3\r\np2\r\np0");
    EXPECT_EQ(clipboard(CF_TEXT), L"p3\r\np2\r\np0");
    EXPECT_EQ(backend.calls, Calls{}); // the tool's own Copy is another thing
}

TEST_F(CopyTest, controlCOnOneRow_copiesItsNameAlone)
{
    showRows(2);
    select({1});
    EXPECT_TRUE(press('C', {VK_CONTROL}));
    EXPECT_EQ(clipboard(), L"p1");
}

TEST_F(CopyTest, controlShiftC_copiesAllColumnsBelowTheirHeaders)
{
    tree().select(L"K24");
    addViewRow({.lHdl = 300, .strSchema = L"s", .strName = L"v", .strComment = L"two\r\nlines"});
    list().view().selectRow(0);
    SetFocus(list().view().hwnd());
    EXPECT_TRUE(press('C', {VK_CONTROL, VK_SHIFT}));
    EXPECT_EQ(clipboard(), header(0) + L"\t" + header(1) + L"\t" + header(2) + L"\r\nv\ts\ttwo lines");
}

TEST_F(CopyTest, movedColumns_areCopiedAsTheyStand)
{
    tree().select(L"K24");
    addViewRow({.lHdl = 300, .strSchema = L"s", .strName = L"v", .strComment = L"c"});
    addViewRow({.lHdl = 301, .strSchema = L"t", .strName = L"w", .strComment = L"d"});
    select({0, 1});
    SetFocus(list().view().hwnd());
    int places[] = {2, 0, 1};
    list().view().send(LVM_SETCOLUMNORDERARRAY, 3, reinterpret_cast<LPARAM>(places));
    EXPECT_TRUE(press('C', {VK_CONTROL, VK_SHIFT}));
    EXPECT_EQ(clipboard(), header(2) + L"\t" + header(0) + L"\t" + header(1) + L"\r\nc\tv\ts\r\nd\tw\tt");
}

TEST_F(CopyTest, hiddenColumn_isNotCopied)
{
    tree().select(L"K24");
    addViewRow({.lHdl = 300, .strSchema = L"s", .strName = L"v", .strComment = L"c"});
    list().view().selectRow(0);
    SetFocus(list().view().hwnd());
    const std::wstring headers = header(0) + L"\t" + header(2);
    setColumnShown(list(), 1, false);
    EXPECT_TRUE(press('C', {VK_CONTROL, VK_SHIFT}));
    EXPECT_EQ(clipboard(), headers + L"\r\nv\tc");
}

TEST_F(CopyTest, cellOfAnyLength_isCopiedWhole)
{
    tree().select(L"K24");
    const std::wstring comment(700, L'c');
    addViewRow({.lHdl = 300, .strSchema = L"s", .strName = L"v", .strComment = comment});
    list().view().selectRow(0);
    SetFocus(list().view().hwnd());
    press('C', {VK_CONTROL, VK_SHIFT});
    EXPECT_TRUE(clipboard().ends_with(L"v\ts\t" + comment));
}

TEST_F(CopyTest, nothingSelected_leavesTheKeyToTheIdeAndTheClipboardAlone)
{
    showRows(2);
    select({});
    EXPECT_FALSE(press('C', {VK_CONTROL}));
    EXPECT_FALSE(press('C', {VK_CONTROL, VK_SHIFT}));
    EXPECT_EQ(clipboard(), L"before");
}

TEST_F(CopyTest, keysInTheTree_areLeftToTheIde)
{
    showRows(2);
    select({0});
    SetFocus(tree().hwnd());
    EXPECT_FALSE(press('C', {VK_CONTROL}));
    EXPECT_FALSE(press('C', {VK_CONTROL, VK_SHIFT}));
    EXPECT_FALSE(press('A', {VK_CONTROL}));
    EXPECT_EQ(clipboard(), L"before");
}

TEST_F(CopyTest, keysOfAnotherWindow_areLeftToIt)
{
    showRows(2);
    select({0});
    SetFocus(host);
    EXPECT_FALSE(press('C', {VK_CONTROL}));
    EXPECT_FALSE(press('C', {VK_CONTROL, VK_SHIFT}));
    EXPECT_FALSE(press('A', {VK_CONTROL}));
    EXPECT_EQ(clipboard(), L"before");
    EXPECT_EQ(list().selectedCount(), 1u);
}

TEST_F(CopyTest, clipboardThatAnotherProgramHolds_isTold)
{
    showRows(2);
    select({0, 1});
    holdClipboard();
    EXPECT_TRUE(press('C', {VK_CONTROL}));
    CloseClipboard();
    EXPECT_EQ(messages, Lines{std::wstring(ownTexts::clipboardIsHeld) + L"|velkviadd"});
    EXPECT_EQ(clipboard(), L"before");
}

TEST_F(CopyTest, withoutMemory_isToldAndTouchesNothing)
{
    showRows(2);
    select({0, 1});
    shownRows();
    {
        hold(VK_CONTROL, true);
        MSG message{};
        message.hwnd = GetFocus();
        message.message = WM_KEYDOWN;
        message.wParam = 'C';
        const test::OutOfMemory none;
        EXPECT_TRUE(view.translateKey(message));
        EXPECT_TRUE(none.wasFelt());
    }
    hold(VK_CONTROL, false);
    EXPECT_EQ(clipboard(), L"before");
}

TEST_F(CopyTest, controlA_selectsAllRows)
{
    showRows(5);
    select({2});
    EXPECT_TRUE(press('A', {VK_CONTROL}));
    EXPECT_EQ(list().selectedCount(), 5u);
    EXPECT_EQ(list().view().focusedRow(), 2);
}

TEST_F(CopyTest, controlAWithoutAFocusedRow_focusesTheFirst)
{
    showRows(5);
    EXPECT_TRUE(press('A', {VK_CONTROL}));
    EXPECT_EQ(list().view().focusedRow(), 0);
}

TEST_F(CopyTest, controlAInAnEmptyList_isLeftToTheIde)
{
    showRows(0);
    EXPECT_FALSE(press('A', {VK_CONTROL}));
}

} // namespace
} // namespace velk
