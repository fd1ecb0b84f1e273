#include "serverview/RowModel.h"

#include "base/error.h"

#include <algorithm>
#include <cwchar>

namespace velk {
namespace {

// Rows that moved farther than that are numbered anew before one is looked for.
constexpr size_t farthest = 512;

// So many gaps are closed even if nobody looks, when they are most of the slots.
constexpr size_t manyGaps = 1024;

bool areOther(const Row& row, const RowModel::Dress& texts) noexcept
{
    return row.name() != texts.name || row.tag() != texts.tag;
}

} // namespace

size_t RowModel::sizeUnfiltered() const noexcept
{
    closeGaps();
    return m_placed;
}

void RowModel::closeGaps() const noexcept
{
    if (m_gaps == 0)
        return;
    const auto stays = [](const Row* row) { return row != nullptr; };
    const auto placedEnd = m_rows.begin() + static_cast<std::ptrdiff_t>(m_placed);
    const auto placedGaps =
        m_firstGap < m_placed ? std::count(m_rows.begin() + static_cast<std::ptrdiff_t>(m_firstGap), placedEnd, nullptr)
                              : 0;
    auto kept = m_rows.begin() + static_cast<std::ptrdiff_t>(m_firstGap);
    kept = std::copy_if(kept, m_rows.end(), kept, stays);
    m_rows.erase(kept, m_rows.end());
    m_placed -= static_cast<size_t>(placedGaps);
    if (m_movedUp != anywhere)
        m_movedUp += m_gaps;
    m_gaps = 0;
}

void RowModel::number() const noexcept
{
    for (size_t slot = 0; slot < m_rows.size(); ++slot)
        if (m_rows[slot])
            m_rows[slot]->m_slot = static_cast<uint32_t>(slot);
    m_movedUp = 0;
    m_movedDown = 0;
}

size_t RowModel::slotOf(const Row& row) const noexcept
{
    if (m_movedUp > farthest || m_movedDown > farthest)
        number();
    const size_t noted = row.m_slot;
    const size_t first = noted - std::min(noted, m_movedUp);
    const auto begin = m_rows.begin() + static_cast<std::ptrdiff_t>(std::min(first, m_rows.size()));
    if (noted < m_rows.size() && m_rows[noted] == &row)
        return noted;
    return static_cast<size_t>(std::find(begin, m_rows.end(), &row) - m_rows.begin());
}

FilteredRows::Rows RowModel::shown() const noexcept
{
    closeGaps();
    return m_filtered.of({m_rows.data(), m_placed});
}

// They stand in the order of the slots that they have noted, where these are what they say. Gaps do no harm there.
std::optional<size_t> RowModel::placeAmong(FilteredRows::Rows rows, const Row& row) const noexcept
{
    if (rows.empty() || row.isHidden())
        return std::nullopt;
    if (m_movedUp != 0 || m_movedDown != 0)
        number();
    const auto found = std::lower_bound(rows.begin(), rows.end(), row.m_slot,
                                        [](const Row* other, uint32_t slot) { return other->m_slot < slot; });
    return found != rows.end() && *found == &row ? std::optional(static_cast<size_t>(found - rows.begin()))
                                                 : std::nullopt;
}

std::optional<size_t> RowModel::placeOf(const Row& row) const noexcept
{
    if (m_filtered.isOn())
        return placeAmong(shown(), row);
    closeGaps();
    const size_t slot = slotOf(row);
    return slot < m_placed ? std::optional(slot) : std::nullopt;
}

const Row* RowModel::neighbourOf(const Row& row) const noexcept
{
    const auto isThere = [this](size_t slot) { return m_rows[slot] && !m_rows[slot]->isHidden(); };
    const size_t slot = slotOf(row);
    for (size_t next = slot + 1; next < m_placed; ++next)
        if (isThere(next))
            return m_rows[next];
    for (size_t next = std::min(slot, m_placed); next-- > 0;)
        if (isThere(next))
            return m_rows[next];
    return nullptr;
}

std::optional<size_t> RowModel::findName(std::wstring_view beginning, size_t from) const noexcept
{
    const FilteredRows::Rows rows = shown();
    for (size_t place = from; place < rows.size(); ++place) {
        const std::wstring_view name = rows[place]->name();
        if (name.size() >= beginning.size() && _wcsnicmp(name.data(), beginning.data(), beginning.size()) == 0)
            return place;
    }
    return std::nullopt;
}

void RowModel::add(Row::Owner row)
{
    if (m_index.find(row->handle()))
        throw Error(errorKeyNotUnique);
    m_filtered.judge(*row);
    m_filtered.makeRoom(m_index.size() + 1);
    m_index.reserve(m_index.size() + 1);
    m_rows.push_back(row.get());
    row->m_arrival = ++m_lastArrival;
    row->m_slot = static_cast<uint32_t>(m_rows.size() - 1);
    m_index.insert(*row.release());
}

void RowModel::remove(int32_t handle)
{
    Row* const row = m_index.find(handle);
    if (!row)
        throw Error(errorElementNotFound);
    const size_t slot = slotOf(*row);
    if (!row->isHidden())
        m_filtered.forget();
    m_rows[slot] = nullptr;
    m_firstGap = m_gaps == 0 ? slot : std::min(m_firstGap, slot);
    ++m_gaps;
    m_index.erase(handle);
    Row::Deleter()(row);
    m_order.reset();
    if (m_gaps > manyGaps && m_gaps > m_rows.size() / 2)
        closeGaps();
}

void RowModel::clear() noexcept
{
    for (Row* const row : m_rows)
        if (row)
            Row::Deleter()(row);
    m_rows = decltype(m_rows)(); // an empty list in braces would keep their memory
    m_placed = m_gaps = m_movedUp = m_movedDown = 0;
    m_index.clear();
    m_order.reset();
    m_differs = decltype(m_differs)();
    m_filtered.forget();
}

const Row* RowModel::change(int32_t handle, const Dress& dress)
{
    Row* row = m_index.find(handle);
    if (!row)
        return nullptr;
    const bool areTextsNew = areOther(*row, dress);
    if (!areTextsNew && row->looks() == dress.looks)
        return nullptr;
    if (areTextsNew) {
        const std::optional<size_t> place = placeAmong(m_filtered.known(), *row); // gaps stay: one for each change
        const size_t slot = slotOf(*row); // may number the rows anew, which the copy is to know
        Row::Owner changed = row->renamed(dress.name, dress.tag);
        m_rows[slot] = changed.get();
        m_index.replace(*changed);
        m_filtered.judge(*changed);
        if (changed->isHidden() != row->isHidden())
            m_filtered.forget();
        else if (place)
            m_filtered.replace(*place, *changed);
        Row::Deleter()(row);
        row = changed.release();
        m_order.reset();
    }
    row->setLooks(dress.looks);
    return row;
}

void RowModel::setFilter(RowFilter filter)
{
    closeGaps();
    const FilteredRows::Rows rows(m_rows);
    m_filtered.set(std::move(filter), rows.first(m_placed), rows.subspan(m_placed));
}

bool RowModel::hidesOrShows(int32_t handle, const Dress& dress) const
{
    const Row* const row = m_filtered.isOn() ? m_index.find(handle) : nullptr;
    return row && areOther(*row, dress) && m_filtered.misjudges(*row->renamed(dress.name, dress.tag), row->isHidden());
}

} // namespace velk
