#include <array>

#include "support/fakeManager.h"
#include "support/shownControls.h"
#include "ui/uiFont.h"
#include "viewFixture.h"

namespace velk {
namespace {

// Counts how often a list is told to draw rows again, while it lives. One at a time.
class DrawingAsked {
public:
    explicit DrawingAsked(HWND list) : m_list(list)
    {
        count = 0;
        below = reinterpret_cast<WNDPROC>(SetWindowLongPtrW(list, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&counting)));
    }
    DrawingAsked(const DrawingAsked&) = delete;
    DrawingAsked& operator=(const DrawingAsked&) = delete;
    ~DrawingAsked() { SetWindowLongPtrW(m_list, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(below)); }
    int times() const { return count; }

private:
    static LRESULT CALLBACK counting(HWND list, UINT message, WPARAM wParam, LPARAM lParam)
    {
        count += message == LVM_REDRAWITEMS;
        return CallWindowProcW(below, list, message, wParam, lParam);
    }

    static inline WNDPROC below = nullptr;
    static inline int count = 0;
    HWND m_list;
};

// How tree and list look, asked by the system's own messages.
class LooksTest : public test::ViewFixture {
protected:
    LooksTest()
    {
        addProject();
        tree().select(L"K20");
        dirty.bIsDirty = true;
    }
    ~LooksTest() override { uiFont() = {}; }
    static LOGFONTW fontOf(HWND window)
    {
        LOGFONTW description{};
        GetObjectW(reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0)), sizeof description, &description);
        return description;
    }
    static std::wstring nameOf(HWND window)
    {
        std::array<wchar_t, 64> text{};
        GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
        return text.data();
    }
    std::wstring shownPicture(int row)
    {
        LVITEMW asked{};
        asked.mask = LVIF_IMAGE;
        asked.iItem = row;
        list().view().send(LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&asked));
        return publishedView().ImageList1->keyOf(asked.iImage);
    }
    // The answer for a row that is about to be drawn; notes the weight of the font that it is drawn in.
    LRESULT draw(int row)
    {
        const unique_memory_dc dc(CreateCompatibleDC(nullptr));
        NMLVCUSTOMDRAW question{};
        question.nmcd.hdr.hwndFrom = list().view().hwnd();
        question.nmcd.hdr.code = static_cast<UINT>(NM_CUSTOMDRAW);
        question.nmcd.dwDrawStage = CDDS_ITEMPREPAINT;
        question.nmcd.dwItemSpec = static_cast<DWORD_PTR>(row);
        question.nmcd.hdc = dc.get();
        const HGDIOBJ before = SelectObject(dc.get(), GetStockObject(DEFAULT_GUI_FONT));
        const LRESULT answer = SendMessageW(view.hwnd(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&question));
        LOGFONTW chosen{};
        GetObjectW(SelectObject(dc.get(), before), sizeof chosen, &chosen);
        weight = chosen.lfWeight;
        return answer;
    }
    void useFontOf(int points)
    {
        uiFont() = {L"Tahoma", points, 1};
        view.setupGUI();
    }
    // The width of the name column of views or tables when a name is that long.
    int widthForName(const std::wstring& folder, size_t length)
    {
        tree().select(folder);
        addViewRow({.lHdl = 300, .strName = std::wstring(length, L'x')});
        return list().view().columnWidth(0);
    }
    SIZE arrowSize(size_t column)
    {
        list().sortBy(column);
        HDITEMW item{};
        item.mask = HDI_BITMAP;
        SendMessageW(reinterpret_cast<HWND>(list().view().send(LVM_GETHEADER)), HDM_GETITEMW, column,
                     reinterpret_cast<LPARAM>(&item));
        BITMAP picture{};
        GetObjectW(item.hbm, sizeof picture, &picture);
        return {picture.bmWidth, picture.bmHeight};
    }

    trzProcedure plain{.lHdl = 100, .strName = L"raise"};
    trzProcedure dirty{.lHdl = 100, .strName = L"raise"};
    LONG weight = 0;
};

TEST_F(LooksTest, setUp_givesTreeAndListTheUiFont)
{
    uiFont() = {L"Tahoma", 12, 1};
    view.setupGUI();
    EXPECT_STREQ(fontOf(tree().hwnd()).lfFaceName, L"Tahoma");
    EXPECT_STREQ(fontOf(list().view().hwnd()).lfFaceName, L"Tahoma");
    EXPECT_EQ(fontOf(tree().hwnd()).lfHeight, -16); // 12 points at 96 dpi
    EXPECT_EQ(fontOf(list().view().hwnd()).lfHeight, -16);
}

TEST_F(LooksTest, imageList_isTheTreesAndForBothSizesTheLists)
{
    const auto pictures = reinterpret_cast<LRESULT>(publishedView().ImageList1->get());
    EXPECT_EQ(tree().send(TVM_GETIMAGELIST, TVSIL_NORMAL), pictures);
    EXPECT_EQ(list().view().send(LVM_GETIMAGELIST, LVSIL_NORMAL), pictures);
    EXPECT_EQ(list().view().send(LVM_GETIMAGELIST, LVSIL_SMALL), pictures);
}

TEST_F(LooksTest, newView_hasNoColumnsUntilAFolderIsSelected)
{
    svrViewCtl fresh;
    fresh.create(host, {0, 0, 100, 100});
    const auto header = reinterpret_cast<HWND>(fresh.serverDetailsView().view().send(LVM_GETHEADER));
    EXPECT_EQ(Header_GetItemCount(header), 0);
}

TEST_F(LooksTest, changedProcedure_showsItsOtherPicture)
{
    addProcedureRow(plain);
    EXPECT_EQ(shownPicture(0), L"StoredProcedure");
    updateProcedureRow(dirty);
    EXPECT_EQ(shownPicture(0), L"DirtyStoredProcedure");
    updateProcedureRow(plain);
    EXPECT_EQ(shownPicture(0), L"StoredProcedure");
}

TEST_F(LooksTest, dirtyProcedure_isDrawnBold)
{
    addProcedureRow(dirty);
    EXPECT_EQ(draw(0), CDRF_NEWFONT);
    EXPECT_EQ(weight, FW_BOLD);
    updateProcedureRow(plain);
    EXPECT_EQ(draw(0), CDRF_DODEFAULT);
    EXPECT_LT(weight, FW_BOLD);
}

TEST_F(LooksTest, drawing_isAskedForRowByRow)
{
    addProcedureRow(plain);
    NMLVCUSTOMDRAW question{};
    question.nmcd.hdr.hwndFrom = list().view().hwnd();
    question.nmcd.hdr.code = static_cast<UINT>(NM_CUSTOMDRAW);
    question.nmcd.dwDrawStage = CDDS_PREPAINT;
    EXPECT_EQ(SendMessageW(view.hwnd(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&question)), CDRF_NOTIFYITEMDRAW);
}

TEST_F(LooksTest, changedRow_isDrawnAnewAloneAmongItsLike)
{
    addProcedureRow({.lHdl = 99, .strName = L"first"});
    addProcedureRow(plain);
    addProcedureRow({.lHdl = 101, .strName = L"last"});
    ShowWindow(host, SW_SHOW);
    UpdateWindow(host);
    const HWND window = list().view().hwnd();
    ValidateRect(window, nullptr);
    updateProcedureRow(dirty);
    SendMessageW(window, WM_NULL, 0, 0); // any message finds the control up to date
    RECT stale{};
    EXPECT_TRUE(GetUpdateRect(window, &stale, FALSE));
    EXPECT_LE(stale.top, list().view().placeOf(1).top);
    EXPECT_GE(stale.bottom, list().view().placeOf(1).bottom);
    EXPECT_LE(stale.bottom, list().view().placeOf(2).bottom - 1);
}

TEST_F(LooksTest, changedRowOutOfSight_isNotDrawn)
{
    for (int32_t handle = 1; handle < 100; ++handle)
        addProcedureRow({.lHdl = handle, .strName = L"other"});
    addProcedureRow(plain);
    ShowWindow(host, SW_SHOW);
    UpdateWindow(host);
    const HWND window = list().view().hwnd();
    SendMessageW(window, WM_NULL, 0, 0);
    ValidateRect(window, nullptr);
    const DrawingAsked asked(window);
    updateProcedureRow(dirty);
    SendMessageW(window, WM_NULL, 0, 0);
    RECT stale{};
    EXPECT_FALSE(GetUpdateRect(window, &stale, FALSE));
    EXPECT_EQ(asked.times(), 0);
    updateProcedureRow({.lHdl = 1, .strName = L"changed"});
    SendMessageW(window, WM_NULL, 0, 0);
    EXPECT_EQ(asked.times(), 1);
    EXPECT_EQ(shownPicture(99), L"DirtyStoredProcedure");
}

TEST_F(LooksTest, treeAndList_haveNamesForThoseWhoDoNotSeeThem)
{
    EXPECT_EQ(nameOf(tree().hwnd()), L"#400"); // the tool window's caption
    EXPECT_EQ(nameOf(list().view().hwnd()), L"Procedures");
    tree().select(L"K24");
    EXPECT_EQ(nameOf(list().view().hwnd()), L"Views");
    removeNode(L"K1");
    EXPECT_EQ(nameOf(list().view().hwnd()), L"");
}

TEST_F(LooksTest, widestColumn_followsTheFont)
{
    useFontOf(8);
    const int narrow = widthForName(L"K23", 500);
    EXPECT_EQ(narrow, list().view().dialogUnits(220));
    useFontOf(24);
    EXPECT_GT(widthForName(L"K24", 500), 2 * narrow);
}

TEST_F(LooksTest, roomBesideATextAndItsPicture_followsTheFont)
{
    useFontOf(8);
    const int narrow = widthForName(L"K23", 9);
    const int text = list().view().widthOf(std::wstring(9, L'x'));
    EXPECT_EQ(narrow, text + list().view().pictureWidth());
    EXPECT_EQ(list().view().pictureWidth(), 16 + list().view().dialogUnits(3));
    EXPECT_EQ(list().view().widthOf(L""), list().view().dialogUnits(10));
}

TEST_F(LooksTest, dialogUnit_isAQuarterOfTheFontsAverageCharacter)
{
    useFontOf(8);
    const int small = list().view().dialogUnits(400);
    useFontOf(24);
    EXPECT_NEAR(list().view().dialogUnits(400), 3 * small, small / 2);
}

TEST_F(LooksTest, arrowInAHeader_isMadeAnewForAnotherFont)
{
    useFontOf(8);
    const SIZE before = arrowSize(0);
    useFontOf(24);
    EXPECT_EQ(test::sortMark(list().view(), 0), ListView::SortMark::up);
    EXPECT_GT(arrowSize(1).cy, 2 * before.cy);
}

TEST_F(LooksTest, pictureOfTheSelectedConnection_changesWithItsState)
{
    addProject();
    tree().select(L"K10");
    trzConnection changed = connection;
    changed.bConnected = !connection.bConnected;
    updateConnectionNode(changed);
    TVITEMW item{};
    item.mask = TVIF_IMAGE | TVIF_SELECTEDIMAGE;
    item.hItem = reinterpret_cast<HTREEITEM>(tree().send(TVM_GETNEXTITEM, TVGN_CARET));
    tree().send(TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    EXPECT_EQ(item.iSelectedImage, item.iImage);
}

} // namespace
} // namespace velk
