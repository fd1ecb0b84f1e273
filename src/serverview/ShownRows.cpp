// Tested in tests/forms/serverview/detailsListTest.cpp.
#include "serverview/ShownRows.h"

#include "base/boundary.h"

#include <algorithm>

namespace velk {
namespace {

// A place that a hidden row has goes to its neighbour.
std::optional<int32_t> shownInstead(const RowModel& rows, const std::optional<int32_t>& handle) noexcept
{
    const Row* row = handle ? rows.find(*handle) : nullptr;
    if (row && row->isHidden())
        row = rows.neighbourOf(*row);
    return row ? std::optional(row->handle()) : std::nullopt;
}

} // namespace

ShownRows::Place ShownRows::placeOfUser() noexcept
{
    const auto handleAt = [this](int row) {
        return row >= 0 && static_cast<size_t>(row) < m_rows.size()
                   ? std::optional(m_rows.at(static_cast<size_t>(row)).handle())
                   : std::nullopt;
    };
    return {KeptSelection(m_selection, m_rows), handleAt(m_view.focusedRow()), handleAt(m_view.topRow())};
}

ShownRows::Place& ShownRows::beginChange()
{
    if (!m_unshown || !m_unshown->areRowsOthers) {
        Place place = placeOfUser(); // by messages, before which changes of looks are shown
        m_unshown = Unshown{.place = std::move(place), .areRowsOthers = true};
        m_view.askForMessage();
    }
    return m_unshown->place;
}

ShownRows::Place ShownRows::beginAnew()
{
    Place before = std::exchange(beginChange(), {});
    m_unshown->isCleared = true;
    m_isOrderLost = false;
    m_isHeld = false;
    return before;
}

void ShownRows::leaveHiddenRows() noexcept
{
    Place& place = m_unshown->place;
    place.focused = shownInstead(m_rows, place.focused);
    place.top = shownInstead(m_rows, place.top);
}

void ShownRows::leave(const Row& row) noexcept
{
    if (m_unshown->isCleared || m_unshown->leftCount == m_unshown->left.size() ||
        !m_unshown->place.selected.areSeveral())
        return;
    if (const std::optional<size_t> place = m_rows.placeOf(row))
        m_unshown->left[m_unshown->leftCount++] = static_cast<int>(*place);
}

void ShownRows::draw(const Row& changed)
{
    if (!m_unshown) {
        const int top = m_view.topRow();
        m_unshown = Unshown{.top = top, .bottom = top + m_view.rowsOnAPage()};
    }
    const std::optional<size_t> found = m_unshown->areRowsOthers ? std::nullopt : m_rows.placeOf(changed);
    const int row = found ? static_cast<int>(*found) : -1;
    if (row < m_unshown->top || row > m_unshown->bottom)
        return;
    if (m_unshown->lastStale < 0)
        m_view.askForMessage();
    m_unshown->firstStale = std::min(m_unshown->firstStale, row);
    m_unshown->lastStale = std::max(m_unshown->lastStale, row);
}

void ShownRows::show() noexcept
{
    if (!m_unshown)
        return;
    const Unshown changes = *std::exchange(m_unshown, std::nullopt);
    if (changes.areRowsOthers)
        showRows(changes);
    else if (changes.lastStale >= 0)
        m_view.redrawRows(changes.firstStale, changes.lastStale);
}

void ShownRows::showRows(const Unshown& changes) noexcept
{
    placeRows();
    const int count = static_cast<int>(m_rows.size());
    swallow(L"ShownRows", L"the columns keep the widths of their headers", [this] { m_columns.fit(m_rows); });
    if (changes.isCleared || m_view.rowCount() != count) {
        const ListView::Redraw together(m_view);
        if (changes.isCleared)
            m_view.setRowCount(0);
        showThatRowsLeft(changes);
        m_view.setRowCount(m_rows.size());
    }
    m_view.redraw();
    goTo(changes.place, changes.isCleared ? 0 : m_view.topRow());
    m_filter.tell();
}

// Whatever else happened to the rows: what the control has selected then is compared with what is to be.
void ShownRows::showThatRowsLeft(const Unshown& changes) noexcept
{
    for (size_t number = 0; number < changes.leftCount; ++number)
        swallow(L"ShownRows", L"the control is told each selected row",
                [&] { m_selection.removeRow(changes.left[number]); });
}

int ShownRows::rowOf(const std::optional<int32_t>& handle) const noexcept
{
    const Row* row = handle ? m_rows.find(*handle) : nullptr;
    const std::optional<size_t> place = row ? m_rows.placeOf(*row) : std::nullopt;
    return place ? static_cast<int>(*place) : -1;
}

void ShownRows::goTo(const Place& place, int otherwiseTop) noexcept
{
    const int top = rowOf(place.top);
    m_view.scrollToTop(top >= 0 ? top : otherwiseTop);
    place.selected.restore(m_view, m_selection, m_rows);
    if (const int focused = rowOf(place.focused); focused >= 0)
        m_view.focusRow(focused);
}

void ShownRows::placeRows() noexcept
{
    if (m_isHeld)
        return;
    const bool all = std::exchange(m_isOrderLost, false) && m_columns.order().column;
    if (!swallow(L"ShownRows", L"the rows are there, in another order",
                 [&] { all ? m_rows.sort(m_columns.order()) : m_rows.placeAdded(m_columns.order()); }))
        m_rows.placeAddedLast();
}

} // namespace velk
