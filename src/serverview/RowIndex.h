#pragma once

#include "serverview/Row.h"

#include <vector>

namespace velk {

// Finds rows by their handles, in a time that does not depend on their number. It owns none of them, and reads the
// handles in the rows: a row must live until it is erased or replaced.
class RowIndex {
public:
    size_t size() const noexcept { return m_size; }
    Row* find(int32_t handle) const noexcept; // null for none

    // Makes room for so many rows; what throws has changed nothing.
    void reserve(size_t rows);
    // Room must have been made, and the handle be new.
    void insert(Row& row) noexcept;
    // The handle must be there.
    void replace(Row& row) noexcept;
    void erase(int32_t handle) noexcept;
    void clear() noexcept;

private:
    // The slot where a handle is looked for first. Handles may come at any distance from each other.
    size_t homeOf(int32_t handle) const noexcept { return (static_cast<uint32_t>(handle) * 2654435769u) >> m_shift; }
    size_t after(size_t slot) const noexcept { return (slot + 1) & (m_slots.size() - 1); }
    size_t slotOf(int32_t handle) const noexcept;

    std::vector<Row*> m_slots; // none, or a power of two; null: free
    unsigned m_shift = 0;      // leaves as many bits of a hash as number a slot
    size_t m_size = 0;
};

} // namespace velk
