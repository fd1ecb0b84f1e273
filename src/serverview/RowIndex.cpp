// Tested in tests/unit/serverview/RowModelTest.cpp.
#include "serverview/RowIndex.h"

#include <bit>
#include <utility>

namespace velk {
namespace {

constexpr size_t fewestSlots = 16;

// Four of five slots may be taken.
constexpr bool hasRoom(size_t slots, size_t rows)
{
    return rows <= slots / 5 * 4;
}

} // namespace

// The slot of a handle, or the free one where it would stand.
size_t RowIndex::slotOf(int32_t handle) const noexcept
{
    size_t slot = homeOf(handle);
    while (m_slots[slot] && m_slots[slot]->handle() != handle)
        slot = after(slot);
    return slot;
}

Row* RowIndex::find(int32_t handle) const noexcept
{
    return m_slots.empty() ? nullptr : m_slots[slotOf(handle)];
}

void RowIndex::reserve(size_t rows)
{
    if (hasRoom(m_slots.size(), rows))
        return;
    size_t count = fewestSlots;
    while (!hasRoom(count, rows))
        count *= 2;
    std::vector<Row*> old(count);
    std::swap(old, m_slots);
    m_shift = 32u - static_cast<unsigned>(std::countr_zero(count));
    for (Row* const row : old)
        if (row)
            m_slots[slotOf(row->handle())] = row;
}

void RowIndex::insert(Row& row) noexcept
{
    replace(row);
    ++m_size;
}

void RowIndex::replace(Row& row) noexcept
{
    m_slots[slotOf(row.handle())] = &row;
}

void RowIndex::erase(int32_t handle) noexcept
{
    // What stands behind the free slot would be looked for in it first: move that up, as far as its home allows.
    size_t free = slotOf(handle);
    for (size_t slot = after(free); m_slots[slot]; slot = after(slot)) {
        const size_t mask = m_slots.size() - 1;
        const size_t fromHome = (slot - homeOf(m_slots[slot]->handle())) & mask;
        if (fromHome >= ((slot - free) & mask))
            m_slots[std::exchange(free, slot)] = m_slots[slot];
    }
    m_slots[free] = nullptr;
    --m_size;
}

void RowIndex::clear() noexcept
{
    m_slots = decltype(m_slots)();
    m_size = 0;
}

} // namespace velk
