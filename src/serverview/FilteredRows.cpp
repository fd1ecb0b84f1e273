// Tested in tests/unit/serverview/rowFilteringTest.cpp.
#include "serverview/FilteredRows.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace velk {

FilteredRows::Rows FilteredRows::Filtered::refreshed(Rows placed) noexcept
{
    if (std::exchange(isStale, false)) {
        shown.clear();
        std::copy_if(placed.begin(), placed.end(), std::back_inserter(shown),
                     [](const Row* row) { return !row->isHidden(); });
    }
    return shown;
}

// Looks only at the rows that are left, and at those that will be when they have a place.
void FilteredRows::Filtered::narrow(const RowFilter& narrower, Rows added) noexcept
{
    const auto hide = [&narrower](Row* row) {
        if (!row->m_isHidden)
            row->m_isHidden = !narrower.matches(*row);
    };
    std::for_each(shown.begin(), shown.end(), hide);
    std::for_each(added.begin(), added.end(), hide);
    std::erase_if(shown, [](const Row* row) { return row->isHidden(); });
}

void FilteredRows::set(RowFilter filter, Rows placed, Rows added)
{
    if (m_filtered && !filter.isEmpty() && filter.isWithin(m_filtered->filter)) {
        m_filtered->refreshed(placed);
        m_filtered->narrow(filter, added);
        m_filtered->filter = std::move(filter);
        return;
    }
    std::unique_ptr<Filtered> made;
    if (!filter.isEmpty()) {
        made = std::make_unique<Filtered>();
        made->shown.reserve(placed.size() + added.size());
        made->filter = std::move(filter);
    }
    m_filtered = std::move(made);
    for (const Rows rows : {placed, added})
        for (Row* const row : rows)
            judge(*row);
}

void FilteredRows::makeRoom(size_t rows)
{
    if (m_filtered && m_filtered->shown.capacity() < rows)
        m_filtered->shown.reserve(std::max(rows, 2 * m_filtered->shown.capacity()));
}

} // namespace velk
