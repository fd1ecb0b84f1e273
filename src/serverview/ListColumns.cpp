// Tested in tests/forms/serverview/detailsListTest.cpp.
#include "serverview/ListColumns.h"

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
    m_boldFont = boldFont;
    showOrder();
}

void ListColumns::show(int32_t folderKind, const std::vector<std::wstring>& headers)
{
    keepLooks();
    m_folderKind = folderKind;
    m_view.setColumns(headers);
    const auto known = m_looks.find(folderKind);
    m_areWidthsKnown = known != m_looks.end();
    m_order = m_areWidthsKnown ? known->second.order : RowOrder();
    showOrder();
    if (!m_areWidthsKnown)
        return;
    for (int column = 0; column < m_view.columnCount(); ++column)
        m_view.setColumnWidth(column, known->second.widths.at(static_cast<size_t>(column)));
}

void ListColumns::keepLooks()
{
    if (!m_areWidthsKnown)
        return;
    Looks& looks = m_looks[m_folderKind];
    looks.order = m_order;
    looks.widths.clear();
    for (int column = 0; column < m_view.columnCount(); ++column)
        looks.widths.push_back(m_view.columnWidth(column));
}

void ListColumns::setOrder(const RowOrder& order)
{
    m_order = order;
    showOrder();
}

void ListColumns::showOrder()
{
    for (int column = 0; column < m_view.columnCount(); ++column) {
        const bool isOrdered = m_order.column == static_cast<size_t>(column);
        m_view.setSortMark(column, !isOrdered             ? ListView::SortMark::none
                                   : m_order.isDescending ? ListView::SortMark::down
                                                          : ListView::SortMark::up);
    }
}

int ListColumns::widthOfCell(const Row& row, int column) const
{
    const auto cell = static_cast<size_t>(column);
    const std::wstring text(row.cell(cell));
    const int width = row.looks().bold ? m_view.widthOf(text, m_boldFont) : m_view.widthOf(text);
    return column == 0 ? width + m_view.pictureWidth() : width;
}

void ListColumns::fit(const RowModel& rows)
{
    if (m_areWidthsKnown || rows.size() == 0)
        return;
    const size_t looked = std::min(rows.size(), measuredRows);
    for (int column = 0; column < m_view.columnCount(); ++column) {
        int width = m_view.columnWidth(column);
        for (size_t row = 0; row < looked; ++row)
            width = std::max(width, widthOfCell(rows.at(row), column));
        m_view.setColumnWidth(column, std::min(width, m_view.dialogUnits(widestColumn)));
    }
    m_areWidthsKnown = true;
}

} // namespace velk
