// Tested in tests/forms/serverview/detailsListTest.cpp.
#include "window/list_view.h"

#include "window/list_selection.h"

#include <algorithm>

namespace velk {
namespace {

// Dialog units: room between a text and the borders of its column, as the control draws it, and beside a picture.
constexpr int cellPadding = 10;
constexpr int picturePadding = 3;
constexpr int unitsOfACharacter = 4;

// The font's average character, as dialogs measure it, and its height.
SIZE charactersOf(HWND window, HFONT font)
{
    constexpr wchar_t letters[] = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    constexpr int count = 52;
    const HDC dc = GetDC(window);
    const HGDIOBJ before = SelectObject(dc, font ? font : GetStockObject(SYSTEM_FONT));
    SIZE size{};
    GetTextExtentPoint32W(dc, letters, count, &size);
    SelectObject(dc, before);
    ReleaseDC(window, dc);
    return {(size.cx / (count / 2) + 1) / 2, size.cy};
}

// A triangle two thirds as wide as a line of text is high.
unique_bitmap arrowPicture(bool isUp, int lineHeight)
{
    const int height = std::max(1, (lineHeight + 2) / 3);
    const int width = 2 * height - 1;
    const HDC screen = GetDC(nullptr);
    unique_bitmap picture(CreateCompatibleBitmap(screen, width, height));
    const unique_memory_dc dc(CreateCompatibleDC(screen));
    ReleaseDC(nullptr, screen);
    const HGDIOBJ before = SelectObject(dc.get(), picture.get());
    const RECT area{0, 0, width, height};
    FillRect(dc.get(), &area, GetSysColorBrush(COLOR_BTNFACE));
    for (int line = 0; line < height; ++line) {
        const int half = isUp ? line : height - 1 - line;
        const RECT row{width / 2 - half, line, width / 2 + half + 1, line + 1};
        FillRect(dc.get(), &row, GetSysColorBrush(COLOR_BTNSHADOW));
    }
    SelectObject(dc.get(), before);
    return picture;
}

void setState(const ListView& list, int row, UINT mask, UINT state) noexcept
{
    LVITEMW item{};
    item.stateMask = mask;
    item.state = state;
    list.send(LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

} // namespace

ListView::ListView(HWND parent)
    : Control(WC_LISTVIEWW, parent, WS_TABSTOP | LVS_REPORT | LVS_OWNERDATA | LVS_SHOWSELALWAYS | LVS_SHAREIMAGELISTS,
              WS_EX_CLIENTEDGE)
{
    constexpr DWORD extended = LVS_EX_FULLROWSELECT | LVS_EX_HEADERDRAGDROP;
    send(LVM_SETEXTENDEDLISTVIEWSTYLE, extended, extended);
    measure(reinterpret_cast<HFONT>(send(WM_GETFONT)));
}

void ListView::measure(HFONT font) noexcept
{
    const SIZE character = charactersOf(hwnd(), font);
    m_characterWidth = character.cx;
    m_characterHeight = character.cy;
}

void ListView::setFont(HFONT font) noexcept
{
    Control::setFont(font);
    measure(font);
    for (int column = 0; column < m_columns; ++column)
        setSortMark(column, SortMark::none);
    m_upArrow.reset();
    m_downArrow.reset();
}

void ListView::setImages(HIMAGELIST images) const noexcept
{
    send(LVM_SETIMAGELIST, LVSIL_NORMAL, reinterpret_cast<LPARAM>(images));
    send(LVM_SETIMAGELIST, LVSIL_SMALL, reinterpret_cast<LPARAM>(images));
}

void ListView::setColumns(const std::vector<std::wstring>& headers)
{
    removeColumns();
    for (const std::wstring& header : headers) {
        std::wstring text = header;
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
        column.pszText = text.data();
        column.cx = widthOf(text);
        column.iSubItem = m_columns;
        send(LVM_INSERTCOLUMNW, static_cast<WPARAM>(m_columns), reinterpret_cast<LPARAM>(&column));
        ++m_columns;
    }
    // A header without columns may keep the picture of those that it had; a list without columns needs none.
    const LONG style = GetWindowLongW(hwnd(), GWL_STYLE);
    SetWindowLongW(hwnd(), GWL_STYLE, m_columns == 0 ? style | LVS_NOCOLUMNHEADER : style & ~LVS_NOCOLUMNHEADER);
}

void ListView::removeColumns()
{
    while (m_columns > 0)
        send(LVM_DELETECOLUMN, static_cast<WPARAM>(--m_columns));
}

int ListView::columnWidth(int column) const noexcept
{
    return static_cast<int>(send(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column)));
}

void ListView::setColumnWidth(int column, int pixels) const noexcept
{
    send(LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(column), MAKELPARAM(pixels, 0));
}

int ListView::widthOf(const std::wstring& text) const noexcept
{
    return static_cast<int>(send(LVM_GETSTRINGWIDTHW, 0, reinterpret_cast<LPARAM>(text.c_str()))) +
           dialogUnits(cellPadding);
}

int ListView::widthOf(const std::wstring& text, HFONT font) const noexcept
{
    const HDC dc = GetDC(hwnd());
    const HGDIOBJ before = SelectObject(dc, font);
    SIZE size{};
    GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &size);
    SelectObject(dc, before);
    ReleaseDC(hwnd(), dc);
    return size.cx + dialogUnits(cellPadding);
}

int ListView::pictureWidth() const noexcept
{
    int width = 0;
    int height = 0;
    ImageList_GetIconSize(reinterpret_cast<HIMAGELIST>(send(LVM_GETIMAGELIST, LVSIL_SMALL)), &width, &height);
    return width + dialogUnits(picturePadding);
}

int ListView::dialogUnits(int units) const noexcept
{
    return MulDiv(units, m_characterWidth, unitsOfACharacter);
}

void ListView::setSortMark(int column, SortMark mark) noexcept
{
    const auto header = reinterpret_cast<HWND>(send(LVM_GETHEADER));
    HDITEMW item{};
    item.mask = HDI_FORMAT;
    SendMessageW(header, HDM_GETITEMW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&item));
    // A picture of our own: hosts without visual styles do not draw the header's sort flags.
    item.fmt &= ~(HDF_BITMAP | HDF_BITMAP_ON_RIGHT);
    if (mark != SortMark::none) {
        unique_bitmap& arrow = mark == SortMark::up ? m_upArrow : m_downArrow;
        if (!arrow)
            arrow = arrowPicture(mark == SortMark::up, m_characterHeight);
        item.mask |= HDI_BITMAP;
        item.fmt |= HDF_BITMAP | HDF_BITMAP_ON_RIGHT;
        item.hbm = arrow.get();
    }
    SendMessageW(header, HDM_SETITEMW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&item));
}

void ListView::askForMessage() const noexcept
{
    RedrawWindow(hwnd(), nullptr, nullptr, RDW_INTERNALPAINT);
}

ListView::Redraw::~Redraw()
{
    m_list.send(WM_SETREDRAW, TRUE);
    m_list.redraw();
}

void ListView::setRowCount(size_t rows) const noexcept
{
    send(LVM_SETITEMCOUNT, rows, LVSICF_NOSCROLL);
}

int ListView::rowCount() const noexcept
{
    return static_cast<int>(send(LVM_GETITEMCOUNT));
}

void ListView::redraw() const noexcept
{
    InvalidateRect(hwnd(), nullptr, TRUE);
}

void ListView::redrawRows(int first, int last) const noexcept
{
    send(LVM_REDRAWITEMS, static_cast<WPARAM>(first), last);
}

int ListView::selectedRow() const noexcept
{
    const ListSelection selection(*this);
    return selection.count() == 0 ? -1 : selection.first();
}

int ListView::focusedRow() const noexcept
{
    return static_cast<int>(send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), MAKELPARAM(LVNI_FOCUSED, 0)));
}

int ListView::topRow() const noexcept
{
    return static_cast<int>(send(LVM_GETTOPINDEX));
}

int ListView::rowsOnAPage() const noexcept
{
    return static_cast<int>(send(LVM_GETCOUNTPERPAGE));
}

void ListView::selectRow(int row) const noexcept
{
    // Taking the focus away from all rows walks all of them, and so does taking the selection away where there is one.
    ListSelection(*this).clear();
    if (row >= 0)
        setState(*this, row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    else if (const int focused = focusedRow(); focused >= 0)
        setState(*this, focused, LVIS_FOCUSED, 0);
    // The control keeps the number of the row that Shift selects from, whatever stands there by now.
    ListSelection(*this).setAnchor(row);
}

void ListView::focusRow(int row) const noexcept
{
    setState(*this, row, LVIS_FOCUSED, LVIS_FOCUSED);
}

void ListView::bringIntoView(int row) const noexcept
{
    send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
}

int ListView::rowAt(POINT place) const noexcept
{
    LVHITTESTINFO test{};
    test.pt = place;
    return static_cast<int>(send(LVM_HITTEST, 0, reinterpret_cast<LPARAM>(&test)));
}

RECT ListView::placeOf(int row) const noexcept
{
    RECT place{};
    place.left = LVIR_LABEL;
    send(LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&place));
    return place;
}

void ListView::scrollToTop(int row) const noexcept
{
    RECT first{LVIR_BOUNDS, 0, 0, 0};
    if (row != topRow() && send(LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&first)))
        send(LVM_SCROLL, 0, (row - topRow()) * (first.bottom - first.top));
}

void followColours(const ListView& list) noexcept
{
    list.send(LVM_SETBKCOLOR, 0, static_cast<LPARAM>(GetSysColor(COLOR_WINDOW)));
}

} // namespace velk
