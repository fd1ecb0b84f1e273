// Tested in tests/forms/serverview/keptSelectionTest.cpp.
#include "window/list_selection.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <utility>

namespace velk {
namespace {

std::vector<int> numbersUpTo(int count)
{
    std::vector<int> numbers(static_cast<size_t>(count));
    std::iota(numbers.begin(), numbers.end(), 0);
    return numbers;
}

std::vector<int> withoutThose(const std::vector<int>& rows, const std::vector<int>& left)
{
    std::vector<int> kept;
    std::set_difference(rows.begin(), rows.end(), left.begin(), left.end(), std::back_inserter(kept));
    return kept;
}

} // namespace

int ListSelection::count() const noexcept
{
    return static_cast<int>(m_list.send(LVM_GETSELECTEDCOUNT));
}

int ListSelection::first() const noexcept
{
    // Looking for a selected row walks those above it. The focused one is found at once.
    const int focused = m_list.focusedRow();
    return has(focused) ? focused : next(-1);
}

int ListSelection::next(int row) const noexcept
{
    return static_cast<int>(m_list.send(LVM_GETNEXTITEM, static_cast<WPARAM>(row), MAKELPARAM(LVNI_SELECTED, 0)));
}

const std::vector<int>& ListSelection::rows()
{
    const int selected = count();
    m_few.clear();
    if (selected == 1)
        m_few.push_back(first());
    if (selected <= 1)
        return m_few;
    if (!isRemembered(selected))
        readSeveral(selected);
    return m_several;
}

// A list that has become shorter keeps what is selected, but for what stood behind its new end.
bool ListSelection::isRemembered(int selected) noexcept
{
    m_several.erase(std::ranges::lower_bound(m_several, m_list.rowCount()), m_several.end());
    return m_several.size() == static_cast<size_t>(selected) && has(m_several.front()) && has(m_several.back());
}

void ListSelection::readSeveral(int selected)
{
    m_several.clear();
    if (selected == m_list.rowCount()) {
        m_several = numbersUpTo(selected);
        return;
    }
    std::vector<int> found;
    found.reserve(static_cast<size_t>(selected));
    for (int row = next(-1); row >= 0 && found.size() < static_cast<size_t>(selected); row = next(row))
        found.push_back(row);
    m_several = std::move(found);
}

bool ListSelection::has(int row) const noexcept
{
    return row >= 0 && m_list.send(LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_SELECTED) != 0;
}

void ListSelection::setState(int row, UINT state) const noexcept
{
    LVITEMW item{};
    item.stateMask = LVIS_SELECTED;
    item.state = state;
    m_list.send(LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

void ListSelection::add(int row) const noexcept
{
    setState(row, LVIS_SELECTED);
}

void ListSelection::remove(int row) const noexcept
{
    setState(row, 0);
}

void ListSelection::addAll() const noexcept
{
    const ListView::Redraw together(m_list);
    setState(-1, LVIS_SELECTED);
}

void ListSelection::clear() const noexcept
{
    const int selected = count();
    if (selected == 1)
        remove(first());
    if (selected <= 1)
        return;
    const ListView::Redraw together(m_list);
    setState(-1, 0);
}

void ListSelection::change(const std::vector<int>& wanted)
{
    const std::vector<int>& known = rows();
    std::vector<int> leaving = withoutThose(known, wanted);
    std::vector<int> coming = withoutThose(wanted, known);
    if (leaving.empty() && coming.empty())
        return;
    const ListView::Redraw together(m_list);
    const size_t all = static_cast<size_t>(m_list.rowCount());
    if (leaving.size() + coming.size() > std::min(wanted.size(), all - wanted.size())) {
        const bool areMost = wanted.size() > all - wanted.size();
        leaving = areMost ? withoutThose(numbersUpTo(static_cast<int>(all)), wanted) : std::vector<int>();
        coming = areMost ? std::vector<int>() : wanted;
        areMost ? addAll() : clear();
    }
    for (const int row : leaving)
        remove(row);
    for (const int row : coming)
        add(row);
    m_several = wanted; // the list has told of all of that
}

void ListSelection::removeRow(int row)
{
    std::vector<int> several = std::exchange(m_several, {});
    m_list.send(LVM_DELETEITEM, static_cast<WPARAM>(row));
    auto below = std::ranges::lower_bound(several, row);
    if (below != several.end() && *below == row)
        below = several.erase(below);
    for (; below != several.end(); ++below)
        --*below;
    m_several = std::move(several);
}

int ListSelection::anchor() const noexcept
{
    return static_cast<int>(m_list.send(LVM_GETSELECTIONMARK));
}

void ListSelection::setAnchor(int row) const noexcept
{
    m_list.send(LVM_SETSELECTIONMARK, 0, row);
}

} // namespace velk
