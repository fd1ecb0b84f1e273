// Tested in tests/forms/serverview/listColumnsTest.cpp.
#include "serverview/ListColumns.h"

#include "serverview/columnFit.h"
#include "window/list_headers.h"
#include "window/twips.h"

#include <algorithm>

namespace velk {
namespace {

// A first fill looks at that many rows to find the widths of the columns, and keeps them within bounds (dialog units).
constexpr size_t measuredRows = 200;
constexpr int widestColumn = 220;

} // namespace

void ListColumns::setFonts(HFONT font, HFONT boldFont)
{
    m_view.setFont(font);
    m_font = font;
    m_boldFont = boldFont;
    showOrder();
}

void ListColumns::show(int32_t folderKind, const std::vector<std::wstring>& headers)
{
    keepLooks();
    m_kind = nullptr;
    m_folderKind = folderKind;
    m_headers = headers;
    m_shown.clear();
    m_order = {};
    if (!headers.empty()) {
        Kind& kind = m_kinds[folderKind];
        if (kind.given.widths.size() != headers.size())
            kind = {{}, columnLooksOf(kind.earlier, headers.size()), {}};
        m_kind = &kind;
        m_shown = kind.given.shown();
        m_order = kind.given.order;
    }
    showColumns();
}

void ListColumns::showColumns()
{
    std::vector<std::wstring> shownHeaders;
    for (const size_t column : m_shown)
        shownHeaders.push_back(m_headers[column]);
    m_view.setColumns(shownHeaders);
    showOrder();
    showWidths();
}

void ListColumns::showWidths()
{
    if (!m_kind)
        return;
    for (const size_t column : m_shown)
        if (const std::optional<int> width = widthKnown(column))
            m_view.setColumnWidth(numberOf(column), *width);
    if (!m_kind->given.places.empty())
        setColumnsFromLeft(m_view, m_kind->given.shownPlaces());
}

std::optional<int> ListColumns::widthKnown(size_t column) const
{
    const int shown = m_kind->widths.empty() ? -1 : m_kind->widths[column];
    const int given = m_kind->given.widths[column];
    return shown >= 0 ? std::optional(shown) : given > 0 ? std::optional(toPixels(given)) : std::nullopt;
}

void ListColumns::keepWidth(size_t column)
{
    const int width = m_view.columnWidth(numberOf(column));
    if (!m_kind->widths.empty())
        m_kind->widths[column] = width;
    if (int& given = m_kind->given.widths[column]; given > 0)
        given = std::max(1, toTwips(width));
}

void ListColumns::keepLooks()
{
    if (!m_kind)
        return;
    for (const size_t column : m_shown)
        keepWidth(column);
    m_kind->given.movePlaces(columnsFromLeft(m_view));
}

std::wstring ListColumns::given(int32_t folderKind)
{
    if (folderKind == m_folderKind)
        keepLooks();
    const Kind& kind = m_kinds[folderKind];
    return kind.given.widths.empty() ? kind.earlier : keptTextOf(kind.given);
}

void ListColumns::changed()
{
    if (m_kind && m_listener)
        m_listener(m_folderKind);
}

void ListColumns::setOrder(const RowOrder& order)
{
    m_order = order;
    showOrder();
    if (!m_kind)
        return;
    m_kind->given.order = order;
    changed();
}

void ListColumns::showOrder()
{
    for (int number = 0; number < m_view.columnCount(); ++number) {
        const bool isOrdered = m_order.column == columnAt(number);
        m_view.setSortMark(number, !isOrdered             ? ListView::SortMark::none
                                   : m_order.isDescending ? ListView::SortMark::down
                                                          : ListView::SortMark::up);
    }
}

size_t ListColumns::columnAt(int number) const noexcept
{
    const auto index = static_cast<size_t>(number);
    return index < m_shown.size() ? m_shown[index] : index;
}

int ListColumns::numberOf(size_t column) const noexcept
{
    const auto place = std::lower_bound(m_shown.begin(), m_shown.end(), column);
    return place != m_shown.end() && *place == column ? static_cast<int>(place - m_shown.begin()) : -1;
}

void ListColumns::setShown(size_t column, bool isShown, const RowModel& rows)
{
    if (!m_kind || column == 0 || column >= m_headers.size() || isShown == this->isShown(column))
        return;
    keepLooks();
    m_kind->given.hide(column, !isShown);
    m_shown = m_kind->given.shown();
    {
        const ListView::Redraw together(m_view);
        showColumns();
        if (isShown && !widthKnown(column))
            m_view.setColumnWidth(numberOf(column),
                                  widthForFirstRows(column, rows, m_view.columnWidth(numberOf(column))));
    }
    changed();
}

int ListColumns::widthOfCell(const Row& row, size_t column, std::wstring_view text) const
{
    const int width =
        row.looks().bold ? m_view.widthOf(std::wstring(text), m_boldFont) : m_view.widthOf(std::wstring(text));
    return column == 0 ? width + m_view.pictureWidth() : width;
}

int ListColumns::widthForFirstRows(size_t column, const RowModel& rows, int least) const
{
    int width = least;
    for (size_t row = 0; row < std::min(rows.size(), measuredRows); ++row)
        width = std::max(width, widthOfCell(rows.at(row), column, rows.at(row).cell(column)));
    return std::min(width, m_view.dialogUnits(widestColumn));
}

void ListColumns::fit(const RowModel& rows)
{
    if (!m_kind || !m_kind->widths.empty() || rows.size() == 0)
        return;
    for (const size_t column : m_shown) {
        const int number = numberOf(column);
        if (m_kind->given.widths[column] == 0)
            m_view.setColumnWidth(number, widthForFirstRows(column, rows, m_view.columnWidth(number)));
    }
    m_kind->widths.assign(m_headers.size(), -1);
}

void ListColumns::fitToContents(size_t column, const RowModel& rows)
{
    if (!isShown(column))
        return;
    int width = m_view.widthOf(m_headers[column]) + headerMarkWidth(m_view, numberOf(column));
    for (const Row* row : widestRows(rows, column, TextWidths(m_font), TextWidths(m_boldFont)))
        width = std::max(width, widthOfCell(*row, column, shownTextOf(*row, column)));
    m_view.setColumnWidth(numberOf(column), width);
    giveWidth(column);
}

void ListColumns::giveWidth(size_t column)
{
    if (!m_kind)
        return;
    m_kind->given.widths[column] = std::max(1, toTwips(m_view.columnWidth(numberOf(column))));
    changed();
}

void ListColumns::reset()
{
    if (!m_kind)
        return;
    *m_kind = {{}, ColumnLooks(m_headers.size()), {}};
    m_shown = m_kind->given.shown();
    m_order = {};
    m_view.setColumns(m_headers);
    showOrder();
    changed();
}

void ListColumns::onHeaderNotify(const NMHEADERW& notification)
{
    const UINT code = notification.hdr.code;
    const int number = notification.iItem;
    if (code == HDN_ENDDRAG) // the columns get their places after it
        return changed();
    if (!m_kind || number < 0 || number >= m_view.columnCount())
        return;
    if (code == HDN_BEGINTRACKW || code == HDN_BEGINTRACKA)
        m_widthBefore = m_view.columnWidth(number);
    if (code != HDN_ENDTRACKW && code != HDN_ENDTRACKA)
        return;
    // The width comes after it where the header does not show it while it is dragged.
    const bool isTold = notification.pitem && (notification.pitem->mask & HDI_WIDTH) != 0;
    if ((isTold ? notification.pitem->cxy : m_view.columnWidth(number)) != m_widthBefore)
        giveWidth(columnAt(number));
}

} // namespace velk
