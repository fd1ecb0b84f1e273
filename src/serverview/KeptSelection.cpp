#include "serverview/KeptSelection.h"

#include "base/boundary.h"

#include <algorithm>

namespace velk {
namespace {

std::optional<int32_t> handleAt(int place, const RowModel& rows)
{
    return place >= 0 && static_cast<size_t>(place) < rows.size()
               ? std::optional(rows.at(static_cast<size_t>(place)).handle())
               : std::nullopt;
}

int placeOf(const std::optional<int32_t>& handle, const RowModel& rows)
{
    const Row* row = handle ? rows.find(*handle) : nullptr;
    const std::optional<size_t> place = row ? rows.placeOf(*row) : std::nullopt;
    return place ? static_cast<int>(*place) : -1;
}

} // namespace

KeptSelection::KeptSelection(ListSelection& selection, const RowModel& rows) noexcept
{
    const int count = selection.count();
    if (count == 1)
        m_one = handleAt(selection.first(), rows);
    if (count > 1 && !swallow(L"KeptSelection", L"nothing is selected", [&] { keepSeveral(selection, rows); }))
        *this = {};
}

void KeptSelection::keepSeveral(ListSelection& selection, const RowModel& rows)
{
    m_anchor = handleAt(selection.anchor(), rows);
    const std::vector<int>& places = selection.rows();
    m_several.reserve(places.size());
    for (const int place : places)
        if (const std::optional<int32_t> handle = handleAt(place, rows))
            m_several.push_back({*handle});
    std::ranges::sort(m_several, {}, &Kept::handle);
}

void KeptSelection::remove(int32_t handle) noexcept
{
    if (m_one == handle)
        m_one.reset();
    const auto kept = std::ranges::lower_bound(m_several, handle, {}, &Kept::handle);
    if (kept != m_several.end() && kept->handle == handle)
        kept->isGone = true;
}

void KeptSelection::restore(const ListView& list, ListSelection& selection, const RowModel& rows) const noexcept
{
    if (m_several.empty())
        list.selectRow(placeOf(m_one, rows));
    // Numbers that the list kept would be other objects'.
    else if (!swallow(L"KeptSelection", L"nothing is selected", [&] { restoreSeveral(selection, rows); }))
        list.selectRow(-1);
}

void KeptSelection::restoreSeveral(ListSelection& selection, const RowModel& rows) const
{
    std::vector<int> wanted;
    wanted.reserve(m_several.size());
    for (const Kept& kept : m_several)
        if (const int place = kept.isGone ? -1 : placeOf(kept.handle, rows); place >= 0)
            wanted.push_back(place);
    std::ranges::sort(wanted);
    selection.change(wanted);
    selection.setAnchor(placeOf(m_anchor, rows));
}

} // namespace velk
