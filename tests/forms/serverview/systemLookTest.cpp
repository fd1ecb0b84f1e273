#include "com/picture.h"
#include "serverview/pictures.h"
#include "support/shownControls.h"
#include "ui/uiFont.h"
#include "viewFixture.h"

namespace velk {
namespace {

// The view on a system whose settings change. What a test changes of them is as before at its end.
class SystemLookTest : public test::ViewFixture {
protected:
    SystemLookTest()
    {
        addProject();
        tree().select(L"K20");
        metrics.cbSize = sizeof metrics;
        SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0);
    }
    ~SystemLookTest() override
    {
        SetSysColors(1, &shadow, &shadowBefore);
        SetSysColors(1, &window, &windowBefore);
        SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0);
    }
    void tell(UINT message) { SendMessageW(view.hwnd(), message, 0, 0); }
    static LONG fontHeight(HWND window)
    {
        LOGFONTW description{};
        GetObjectW(reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0)), sizeof description, &description);
        return description.lfHeight;
    }
    // The colour of the middle of the lowest line of a column's upward arrow.
    COLORREF arrowColour(size_t column)
    {
        HDITEMW item{};
        item.mask = HDI_BITMAP;
        SendMessageW(reinterpret_cast<HWND>(list().view().send(LVM_GETHEADER)), HDM_GETITEMW, column,
                     reinterpret_cast<LPARAM>(&item));
        BITMAP picture{};
        GetObjectW(item.hbm, sizeof picture, &picture);
        const unique_memory_dc dc(CreateCompatibleDC(nullptr));
        const HGDIOBJ before = SelectObject(dc.get(), item.hbm);
        const COLORREF colour = GetPixel(dc.get(), picture.bmWidth / 2, picture.bmHeight - 1);
        SelectObject(dc.get(), before);
        return colour;
    }
    // Counts what a window is told from now on.
    static void listenTo(HWND window)
    {
        heard.clear();
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&listener));
    }
    static LRESULT CALLBACK listener(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept
    {
        heard.push_back(message);
        return DefWindowProcW(window, message, wParam, lParam);
    }
    static SIZE sizeOfStrip(int bitmapResource)
    {
        const unique_bitmap strip = loadBitmap(bitmapResource);
        BITMAP description{};
        GetObjectW(strip.get(), sizeof description, &description);
        return {description.bmWidth, description.bmHeight};
    }
    static int sizeOf(LRESULT imageList)
    {
        int width = 0;
        int height = 0;
        ImageList_GetIconSize(reinterpret_cast<HIMAGELIST>(imageList), &width, &height);
        return width == height ? width : -1;
    }
    static int shownSize(const TreeView& tree) { return sizeOf(tree.send(TVM_GETIMAGELIST, TVSIL_NORMAL)); }
    static int shownSize(const ListView& list) { return sizeOf(list.send(LVM_GETIMAGELIST, LVSIL_SMALL)); }

    static inline std::vector<UINT> heard;
    const int shadow = COLOR_BTNSHADOW;
    const COLORREF shadowBefore = GetSysColor(COLOR_BTNSHADOW);
    const int window = COLOR_WINDOW;
    const COLORREF windowBefore = GetSysColor(COLOR_WINDOW);
    NONCLIENTMETRICSW metrics{};
};

TEST_F(SystemLookTest, everyStrip_hasAPictureOfItsSizeForEachKey)
{
    for (const PictureStrip& strip : pictureStrips()) {
        EXPECT_EQ(sizeOfStrip(strip.resource).cy, strip.size);
        EXPECT_EQ(sizeOfStrip(strip.resource).cx, strip.size * static_cast<int>(imageKeys().size()));
    }
}

TEST_F(SystemLookTest, view_showsThePicturesOfTheSystemsSmallIcons)
{
    const int size = pictureStripFor(GetSystemMetrics(SM_CXSMICON)).size;
    EXPECT_EQ(shownSize(tree()), size);
    EXPECT_EQ(shownSize(list().view()), size);
}

TEST_F(SystemLookTest, biggerIcons_bringBothPanesBiggerPictures)
{
    ViewParts parts{std::make_unique<TreeView>(host), std::make_unique<DetailsList>(host), {}, Session::none()};
    SystemLook look(parts);
    look.setPictures(16);
    const ImageList* before = look.ImageList1();
    look.setPictures(24);
    EXPECT_EQ(look.ImageList1(), before); // who holds it names pictures by their keys
    EXPECT_EQ(before->indexOf(L"VelkView"), 10);
    EXPECT_EQ(shownSize(*parts.serverTreeView), 24);
    EXPECT_EQ(shownSize(parts.list()), 24);
}

TEST_F(SystemLookTest, otherColours_reachTheSortMark)
{
    list().sortBy(0);
    const COLORREF other = RGB(1, 2, 3);
    SetSysColors(1, &shadow, &other);
    tell(WM_SYSCOLORCHANGE);
    EXPECT_EQ(arrowColour(0), other);
    EXPECT_EQ(test::sortMark(list().view(), 0), ListView::SortMark::up);
}

TEST_F(SystemLookTest, otherColours_reachTheListsBackground)
{
    const COLORREF other = RGB(1, 2, 3);
    SetSysColors(1, &window, &other);
    tell(WM_SYSCOLORCHANGE);
    EXPECT_EQ(static_cast<COLORREF>(list().view().send(LVM_GETBKCOLOR)), other);
}

TEST_F(SystemLookTest, otherColoursAndSettings_areToldToTheWindowsInTheView)
{
    const HWND pane = CreateWindowExW(0, L"STATIC", L"", WS_CHILD, 0, 0, 9, 9, view.hwnd(), nullptr, nullptr, nullptr);
    const HWND inIt = CreateWindowExW(0, L"STATIC", L"", WS_CHILD, 0, 0, 9, 9, pane, nullptr, nullptr, nullptr);
    listenTo(inIt);
    tell(WM_SYSCOLORCHANGE);
    tell(WM_SETTINGCHANGE);
    EXPECT_EQ(heard, (std::vector<UINT>{WM_SYSCOLORCHANGE, WM_SETTINGCHANGE}));
}

TEST_F(SystemLookTest, otherMessageFont_isTheViewsWhereTheToolNamesNone)
{
    NONCLIENTMETRICSW larger = metrics;
    larger.lfMessageFont.lfHeight = metrics.lfMessageFont.lfHeight * 2;
    SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, larger.cbSize, &larger, 0);
    tell(WM_SETTINGCHANGE);
    EXPECT_EQ(fontHeight(tree().hwnd()), larger.lfMessageFont.lfHeight);
    EXPECT_EQ(fontHeight(list().view().hwnd()), larger.lfMessageFont.lfHeight);
}

TEST_F(SystemLookTest, settingBeforeTheSetUp_leavesTheControlsTheirFont)
{
    svrViewCtl fresh;
    fresh.create(host, {0, 0, 100, 100});
    const LRESULT before = fresh.serverTreeView().send(WM_GETFONT);
    SendMessageW(fresh.hwnd(), WM_SETTINGCHANGE, 0, 0);
    EXPECT_EQ(fresh.serverTreeView().send(WM_GETFONT), before);
}

} // namespace
} // namespace velk
