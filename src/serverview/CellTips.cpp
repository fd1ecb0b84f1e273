#include "serverview/CellTips.h"

#include "base/boundary.h"
#include "window/list_headers.h"

namespace velk {
namespace {

constexpr wchar_t where[] = L"cell tips";
constexpr wchar_t why[] = L"no tip is shown";

// As the system's tips do it: a tip comes after the time of a double click, sooner when there was one just before, and
// goes after ten times as long.
UINT waiting(bool isAfterAnother) noexcept
{
    return isAfterAnother ? GetDoubleClickTime() / 5 : GetDoubleClickTime();
}
constexpr UINT watching = 100; // milliseconds between two looks at where the mouse is
constexpr DWORD timesAsLong = 10;

// Pixels beside a text in its cell, as the list and its header draw it.
int marginOf(int column, bool isHeader) noexcept
{
    const int edge = GetSystemMetrics(SM_CXEDGE);
    return column == 0 && !isHeader ? edge : 3 * edge;
}

POINT mouse() noexcept
{
    POINT place{};
    GetCursorPos(&place);
    return place;
}

bool isInFront() noexcept
{
    return GetWindowThreadProcessId(GetForegroundWindow(), nullptr) == GetCurrentThreadId();
}

} // namespace

CellTips::CellTips(HWND owner, DetailsList& list) : m_owner(owner), m_list(list), m_headerWatch(header()), m_tip(owner)
{
    m_headerWatch.setWitness([this](UINT message) { onMessage(message); });
}

HWND CellTips::header() const noexcept
{
    return reinterpret_cast<HWND>(m_list.view().send(LVM_GETHEADER));
}

std::optional<CellTips::Cell> CellTips::cellUnderMouse() const noexcept
{
    POINT place = mouse();
    const HWND pane = WindowFromPoint(place);
    ScreenToClient(pane, &place);
    if (pane == header()) {
        HDHITTESTINFO test{place, 0, -1};
        SendMessageW(pane, HDM_HITTEST, 0, reinterpret_cast<LPARAM>(&test));
        return test.iItem >= 0 ? std::optional(Cell{-1, test.iItem}) : std::nullopt;
    }
    if (pane != m_list.view().hwnd())
        return std::nullopt;
    LVHITTESTINFO test{};
    test.pt = place;
    m_list.view().send(LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&test));
    const bool isRow = test.iItem >= 0 && static_cast<size_t>(test.iItem) < m_list.rows().size();
    return isRow ? std::optional(Cell{test.iItem, test.iSubItem}) : std::nullopt;
}

CellTips::Looks CellTips::looksOfHeader(int column) const
{
    Looks looks{std::wstring(256, L'\0'), reinterpret_cast<HFONT>(SendMessageW(header(), WM_GETFONT, 0, 0)), {}};
    LVCOLUMNW asked{};
    asked.mask = LVCF_TEXT;
    asked.pszText = looks.text.data();
    asked.cchTextMax = static_cast<int>(looks.text.size());
    m_list.view().send(LVM_GETCOLUMNW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&asked));
    looks.text.resize(wcslen(looks.text.c_str()));
    SendMessageW(header(), HDM_GETITEMRECT, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&looks.place));
    looks.place.right -= headerMarkWidth(m_list.view(), column);
    InflateRect(&looks.place, -marginOf(column, true), 0);
    return looks;
}

CellTips::Looks CellTips::looksOf(const Cell& cell) const
{
    if (cell.row < 0)
        return looksOfHeader(cell.column);
    const Row& row = m_list.rows().at(static_cast<size_t>(cell.row));
    Looks looks{std::wstring(row.cell(m_list.columns().columnAt(cell.column))), m_list.fontOf(row), {}};
    looks.place = {cell.column == 0 ? LVIR_LABEL : LVIR_BOUNDS, cell.column, 0, 0};
    m_list.view().send(LVM_GETSUBITEMRECT, static_cast<WPARAM>(cell.row), reinterpret_cast<LPARAM>(&looks.place));
    InflateRect(&looks.place, -marginOf(cell.column, false), 0);
    return looks;
}

bool CellTips::isCutOff(const Cell& cell, const Looks& looks) const
{
    const ListView& view = m_list.view();
    const int width = view.widthOf(looks.text, looks.font) - view.widthOf({}, looks.font);
    RECT inSight{};
    GetClientRect(paneOf(cell), &inSight);
    return width > looks.place.right - looks.place.left || looks.place.left < inSight.left ||
           looks.place.left + width > inSight.right;
}

void CellTips::onMessage(UINT message) noexcept
{
    const bool isUsed = (message > WM_MOUSEMOVE && message <= WM_MOUSELAST) ||
                        (message >= WM_KEYFIRST && message <= WM_KEYLAST) || message == WM_VSCROLL ||
                        message == WM_HSCROLL;
    if (message == WM_MOUSEMOVE)
        swallow(where, why, [this] { moveTo(cellUnderMouse()); });
    else if (isUsed)
        rest();
}

void CellTips::moveTo(std::optional<Cell> cell)
{
    if (cell == m_cell)
        return;
    const bool isAfterAnother = m_tip.isShown();
    rest();
    m_cell = cell;
    if (cell)
        SetTimer(m_owner, timer, waiting(isAfterAnother), nullptr);
}

// No tip until the mouse comes to another cell.
void CellTips::rest() noexcept
{
    KillTimer(m_owner, timer);
    m_tip.hide();
}

void CellTips::onTimer() noexcept
{
    if (!swallow(where, why, [this] { showOrWatch(); }))
        rest();
}

void CellTips::showOrWatch()
{
    if (!m_cell || cellUnderMouse() != m_cell || !isInFront())
        return moveTo(std::nullopt);
    const Looks looks = looksOf(*m_cell);
    if (!m_tip.isShown()) {
        if (!isCutOff(*m_cell, looks))
            return rest();
        RECT place = looks.place;
        MapWindowPoints(paneOf(*m_cell), nullptr, reinterpret_cast<POINT*>(&place), 2);
        m_tip.show(looks.text, looks.font, place);
        m_shown = looks.text;
        m_since = GetTickCount();
        SetTimer(m_owner, timer, watching, nullptr);
    } else if (looks.text != m_shown || GetTickCount() - m_since > timesAsLong * GetDoubleClickTime()) {
        rest();
    }
}

} // namespace velk
