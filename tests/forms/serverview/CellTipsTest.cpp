#include "serverview/CellTips.h"

#include "serverview/columnCommands.h"
#include "viewFixture.h"

namespace velk {
namespace {

// The mouse over a shown list with a view of a long name in narrow columns.
class CellTipsTest : public test::ViewFixture {
protected:
    CellTipsTest()
    {
        ShowWindow(host, SW_SHOW);
        SetForegroundWindow(host);
        addProject();
        tree().select(L"K24");
        addViewRow({.lHdl = 300, .strSchema = L"s", .strName = name, .strComment = comment});
        addViewRow({.lHdl = 301, .strSchema = L"s", .strName = L"a", .strComment = L"c"});
        shownRows();
        for (int column = 0; column < 3; ++column)
            list().view().setColumnWidth(column, 100);
        UpdateWindow(list().view().hwnd());
    }
    HWND header() { return reinterpret_cast<HWND>(list().view().send(LVM_GETHEADER)); }
    RECT place(int row, int column)
    {
        RECT cell{column == 0 ? LVIR_LABEL : LVIR_BOUNDS, column, 0, 0};
        list().view().send(LVM_GETSUBITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&cell));
        MapWindowPoints(list().view().hwnd(), nullptr, reinterpret_cast<POINT*>(&cell), 2);
        return cell;
    }
    void moveTo(HWND pane, RECT cell)
    {
        SetCursorPos(cell.left + 5, cell.top + 3);
        SendMessageW(pane, WM_MOUSEMOVE, 0, 0);
    }
    void moveTo(int row, int column) { moveTo(list().view().hwnd(), place(row, column)); }
    void moveToHeader(int column)
    {
        RECT item{};
        SendMessageW(header(), HDM_GETITEMRECT, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&item));
        MapWindowPoints(header(), nullptr, reinterpret_cast<POINT*>(&item), 2);
        item.left += 20; // away from the divider
        moveTo(header(), item);
    }
    void rest() { SendMessageW(view.hwnd(), WM_TIMER, CellTips::timer, 0); }
    static HWND tip()
    {
        for (HWND window = nullptr; (window = FindWindowExW(nullptr, window, TOOLTIPS_CLASSW, nullptr)) != nullptr;)
            if (IsWindowVisible(window) && GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId())
                return window;
        return nullptr;
    }
    static std::wstring tipText()
    {
        std::wstring text(2000, L'\0');
        GetWindowTextW(tip(), text.data(), 2000);
        return tip() ? std::wstring(text.c_str()) : L"(none)";
    }

    std::wstring name = std::wstring(60, L'n');
    std::wstring comment = std::wstring(300, L'c');
};

TEST_F(CellTipsTest, mouseThatRestsOnACutOffCell_getsItsWholeTextOverIt)
{
    moveTo(0, 0);
    EXPECT_EQ(tip(), nullptr);
    rest();
    EXPECT_EQ(tipText(), name);
    RECT shown{};
    GetWindowRect(tip(), &shown);
    const RECT cell = place(0, 0);
    EXPECT_LT(shown.top, cell.bottom);
    EXPECT_GT(shown.bottom, cell.top);
}

TEST_F(CellTipsTest, otherColumnsAndLongTexts_haveTheirTipsToo)
{
    moveTo(0, 2);
    rest();
    EXPECT_EQ(tipText(), comment);
}

TEST_F(CellTipsTest, columnBehindAHiddenOne_hasItsOwnText)
{
    setColumnShown(list(), 1, false);
    shownRows();
    list().view().setColumnWidth(0, 100);
    list().view().setColumnWidth(1, 100);
    ASSERT_EQ(cell(0, 1), comment);
    moveTo(0, 1);
    rest();
    EXPECT_EQ(tipText(), comment);
}

TEST_F(CellTipsTest, cellThatIsWhole_hasNone)
{
    moveTo(1, 0);
    rest();
    EXPECT_EQ(tip(), nullptr);
    moveTo(0, 1);
    rest();
    EXPECT_EQ(tip(), nullptr);
}

TEST_F(CellTipsTest, mouseThatGoesToAnotherCell_takesTheTipAway)
{
    moveTo(0, 0);
    rest();
    moveTo(1, 0);
    EXPECT_EQ(tip(), nullptr);
}

TEST_F(CellTipsTest, mouseThatLeavesTheList_takesTheTipAwayAtTheNextLook)
{
    moveTo(0, 0);
    rest();
    SetCursorPos(place(0, 0).left, place(0, 0).top + 200);
    rest();
    EXPECT_EQ(tip(), nullptr);
}

TEST_F(CellTipsTest, keyButtonOrWheel_takesTheTipAway)
{
    for (const unsigned message : {0u + WM_KEYDOWN, 0u + WM_RBUTTONUP, 0u + WM_MOUSEWHEEL, 0u + WM_VSCROLL}) {
        moveTo(1, 0);
        moveTo(0, 0);
        rest();
        EXPECT_NE(tip(), nullptr);
        list().view().send(message, message == WM_VSCROLL ? SB_ENDSCROLL : 0);
        EXPECT_EQ(tip(), nullptr) << message;
    }
}

TEST_F(CellTipsTest, rowThatChangesUnderTheTip_takesItAway)
{
    moveTo(0, 0);
    rest();
    removeListRow(16, 300);
    rest();
    EXPECT_EQ(tip(), nullptr);
}

TEST_F(CellTipsTest, cutOffHeader_getsItsTextAndAWholeOneNone)
{
    moveToHeader(0);
    rest();
    EXPECT_EQ(tip(), nullptr);
    list().view().setColumnWidth(0, 26);
    moveToHeader(1);
    moveToHeader(0);
    rest();
    EXPECT_EQ(tipText(), L"#500");
}

TEST_F(CellTipsTest, boldCell_isMeasuredInItsFont)
{
    tree().select(L"K20");
    trzProcedure routine{.lHdl = 100, .strName = std::wstring(20, L'm')};
    addProcedureRow(routine);
    const int plain = list().view().widthOf(routine.strName, list().fontOf(list().rows().at(0)));
    list().view().setColumnWidth(0, plain + list().view().pictureWidth());
    shownRows();
    moveTo(0, 0);
    rest();
    EXPECT_EQ(tip(), nullptr);
    routine.bIsDirty = true;
    updateProcedureRow(routine);
    moveTo(list().view().hwnd(), {0, 0, 0, 0});
    moveTo(0, 0);
    rest();
    EXPECT_EQ(tipText(), routine.strName);
}

TEST_F(CellTipsTest, viewThatGoes_takesTheTipAlong)
{
    moveTo(0, 0);
    rest();
    DestroyWindow(view.hwnd());
    EXPECT_EQ(tip(), nullptr);
}

TEST_F(CellTipsTest, list_leavesItsOwnTipsAwayAndTheTreeKeepsIts)
{
    EXPECT_EQ(list().view().send(LVM_GETEXTENDEDLISTVIEWSTYLE) & LVS_EX_LABELTIP, 0);
    EXPECT_EQ(GetWindowLongW(tree().hwnd(), GWL_STYLE) & TVS_NOTOOLTIPS, 0);
}

TEST_F(CellTipsTest, headerOfAFittedColumnThatOrdersTheRows_isNotCutOff)
{
    list().sortBy(1);
    shownRows();
    fitColumn(list(), 1);
    moveToHeader(1);
    rest();
    EXPECT_EQ(tipText(), L"(none)") << list().view().columnWidth(1);
}

TEST_F(CellTipsTest, viewThatIsDockedInAnotherFrame_hasItsTipsWhenTheFirstFrameIsGone)
{
    moveTo(0, 0);
    rest();
    ASSERT_EQ(tipText(), name);
    const HWND other =
        CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPED, 0, 0, 1200, 600, nullptr, nullptr, nullptr, nullptr);
    SetParent(view.hwnd(), other);
    ShowWindow(other, SW_SHOW);
    SetForegroundWindow(other);
    DestroyWindow(std::exchange(host, other));
    moveTo(1, 0);
    moveTo(0, 0);
    rest();
    EXPECT_EQ(tipText(), name);
}

TEST_F(CellTipsTest, viewThatIsDockedInAnotherFrame_hasItsTips)
{
    moveTo(0, 0);
    rest();
    ASSERT_EQ(tipText(), name);
    const HWND other =
        CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPED, 0, 0, 1200, 600, nullptr, nullptr, nullptr, nullptr);
    SetParent(view.hwnd(), other);
    ShowWindow(other, SW_SHOW);
    SetForegroundWindow(other);
    moveTo(1, 0);
    moveTo(0, 0);
    rest();
    EXPECT_EQ(tipText(), name);
    DestroyWindow(other);
}

} // namespace
} // namespace velk
