#pragma once

#include "serverview/FilteredRows.h"
#include "serverview/RowIndex.h"

#include <optional>
#include <vector>

namespace velk {

// By which column the rows stand, from 0 on; without one they stand in the Backend's order.
struct RowOrder {
    std::optional<size_t> column;
    bool isDescending = false;
    friend bool operator==(const RowOrder&, const RowOrder&) = default;
};

// The rows of the details list. Adding, finding, changing and removing a row take time that does not depend on the
// number of rows; what comes and goes together moves the others once. What throws has changed nothing.
class RowModel {
public:
    RowModel() = default;
    RowModel(const RowModel&) = delete;
    RowModel& operator=(const RowModel&) = delete;
    ~RowModel() { clear(); }

    // The rows that have their places, which those that were added have not until they are placed, and that the filter
    // matches: to whoever asks for places, neighbours or names there are no others.
    size_t size() const noexcept { return shown().size(); }
    // With those that the filter hides.
    size_t sizeUnfiltered() const noexcept;
    bool hasAdded() const noexcept { return m_placed < m_rows.size(); }
    // The row at a place below size().
    const Row& at(size_t place) const noexcept { return *shown()[place]; }
    // Null for a handle that no row has, placed or hidden or not.
    const Row* find(int32_t handle) const noexcept { return m_index.find(handle); }
    // Nothing for a row that has no place yet, or is hidden.
    std::optional<size_t> placeOf(const Row& row) const noexcept;
    // The row behind a placed one, or the one before the last; null for a row that is alone. A hidden row has its
    // neighbours where it would stand.
    const Row* neighbourOf(const Row& row) const noexcept;
    // The first row from a place on whose name begins with a text, without regard to case; nothing behind the last row.
    std::optional<size_t> findName(std::wstring_view beginning, size_t from) const noexcept;

    // Adds a row without a place; error 35602 for a handle that is there already.
    void add(Row::Owner row);
    // Error 35601 for a handle that is not there.
    void remove(int32_t handle);
    void clear() noexcept;
    // Gives back the memory that is kept for further rows, if that can be done; the next ones need new.
    void giveBackRoom() noexcept { m_rows.shrink_to_fit(); }

    // What can change in a row, which keeps its place whatever the order. Gives the row when something did; null when
    // nothing did, or no row has the handle.
    struct Dress {
        std::wstring_view name;
        std::wstring_view tag;
        RowLooks looks;
    };
    const Row* change(int32_t handle, const Dress& dress);

    // Hides the rows that it does not match, from now on: of rows that come and change, too. Until there is one that is
    // not empty it costs nothing.
    void setFilter(RowFilter filter);
    // Whether a change would hide a row or bring it back.
    bool hidesOrShows(int32_t handle, const Dress& dress) const;

    // Puts all rows into an order. A column whose cells are all whole numbers is ordered by their values, others as the
    // user's language orders texts; rows that do not differ keep the Backend's order.
    void sort(const RowOrder& order);
    // Puts the added rows where the order wants them, the others being in order already.
    void placeAdded(const RowOrder& order);
    // The same behind all others, whatever the order.
    void placeAddedLast() noexcept;

private:
    FilteredRows::Rows shown() const noexcept;
    std::optional<size_t> placeAmong(FilteredRows::Rows rows, const Row& row) const noexcept;
    size_t slotOf(const Row& row) const noexcept;
    void number() const noexcept;
    void closeGaps() const noexcept;
    bool areNumbers(size_t column) const noexcept;
    bool isReverseOf(const RowOrder& order) const noexcept;
    void reverse() noexcept;

    // Rows in their order, and then those without a place. A removed row leaves a gap until somebody looks.
    mutable std::vector<Row*> m_rows;
    mutable size_t m_placed = 0; // slots, gaps included
    mutable size_t m_gaps = 0;
    mutable size_t m_firstGap = 0;
    // How far rows may have moved away from the slot that they have noted.
    static constexpr size_t anywhere = static_cast<size_t>(-1);
    mutable size_t m_movedUp = 0;
    mutable size_t m_movedDown = 0;
    RowIndex m_index;
    uint32_t m_lastArrival = 0;

    // The order that all placed rows are known to be in, and for each whether it differs from the one before.
    std::optional<RowOrder> m_order;
    std::vector<bool> m_differs;
    bool m_areNumbers = false; // in the order of the last time

    FilteredRows m_filtered;
};

} // namespace velk
