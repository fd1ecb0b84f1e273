#include "serverview/HeaderMenu.h"

#include "serverview/columnCommands.h"
#include "ui/ownTexts.h"
#include "window/list_headers.h"
#include "window/menu.h"

namespace velk {
namespace {

// A column's line has its number, from 1 on; there are never so many of them.
enum Line { fitThis = 1000, fitAll, resetAll, filter };

// A text of the tool's as a caption: nothing in it is a mnemonic, a column for keys, or a separator.
std::wstring captionOf(const std::wstring& header)
{
    std::wstring caption;
    for (const wchar_t character : header)
        caption += character == L'&' ? L"&&" : std::wstring(1, character == L'\t' ? L' ' : character);
    return caption == L"-" ? L"- " : caption;
}

std::vector<MenuLine> linesFor(const ListColumns& columns, bool isOverColumn, bool isFilterOpen)
{
    std::vector<MenuLine> lines;
    int id = 0;
    for (const std::wstring& header : columns.headers()) {
        const bool isShown = columns.isShown(static_cast<size_t>(id++));
        lines.push_back({id, captionOf(header), id > 1, {}, isShown});
    }
    lines.push_back({0, L"-"});
    lines.push_back({fitThis, ownTexts::sizeColumn, isOverColumn});
    lines.push_back({fitAll, ownTexts::sizeAllColumns});
    lines.push_back({0, L"-"});
    lines.push_back({resetAll, ownTexts::resetColumns});
    lines.push_back({0, L"-"});
    lines.push_back({filter, ownTexts::filterCue, true, {}, isFilterOpen});
    return lines;
}

} // namespace

bool HeaderMenu::isMeant(HWND pane, bool isByKeyboard) const
{
    const ListView& list = m_parts.list();
    if (m_parts.life.isOver() || list.columnCount() == 0)
        return false;
    // The system's lists leave no way to their headers to the keyboard.
    return isByKeyboard ? pane == list.hwnd() && GetKeyState(VK_CONTROL) < 0 : pane == headerOf(list);
}

std::optional<size_t> HeaderMenu::columnAt(POINT place) const
{
    const int number = velk::columnAt(m_parts.list(), place);
    if (number < 0 || number >= m_parts.list().columnCount())
        return std::nullopt;
    return m_parts.serverDetailsView->columns().columnAt(number);
}

POINT HeaderMenu::belowHeader() const
{
    RECT place{};
    GetWindowRect(m_parts.list().hwnd(), &place);
    const LONG left = place.left;
    GetWindowRect(headerOf(m_parts.list()), &place);
    return {left, place.bottom};
}

void HeaderMenu::open(HWND owner, POINT place, bool isByKeyboard)
{
    // The tool goes on while the menu is open: the view may be gone when the user has chosen, or show other columns.
    const Session life = m_parts.life;
    const std::optional<size_t> column = isByKeyboard ? std::nullopt : columnAt(place);
    const ListColumns& columns = m_parts.serverDetailsView->columns();
    const std::vector<MenuLine> lines = linesFor(columns, column.has_value(), m_parts.filterStrip->isOpen());
    const int32_t folderKind = columns.folderKind();
    const int chosen = showPopupMenu(lines, owner, isByKeyboard ? belowHeader() : place);
    if (chosen != 0 && !life.isOver() && m_parts.serverDetailsView->columns().folderKind() == folderKind)
        carryOut(chosen, column);
}

void HeaderMenu::carryOut(int chosen, std::optional<size_t> column)
{
    DetailsList& list = *m_parts.serverDetailsView;
    if (chosen == fitAll)
        fitAllColumns(list);
    else if (chosen == filter && m_parts.filterStrip->isOpen())
        m_parts.filterStrip->close();
    else if (chosen == filter)
        m_parts.filterStrip->open();
    else if (chosen == resetAll)
        resetColumns(list);
    else if (chosen == fitThis && column)
        fitColumn(list, *column);
    else if (chosen < fitThis)
        setColumnShown(list, static_cast<size_t>(chosen - 1), !list.columns().isShown(static_cast<size_t>(chosen - 1)));
}

} // namespace velk
