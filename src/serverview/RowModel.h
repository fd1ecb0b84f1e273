#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace velk {

// A row of the details list: its cells in column order, the first being the object's name.
struct Row {
    std::wstring key;
    std::vector<std::wstring> cells;
    std::wstring tag;
    int image = 0;
    bool bold = false;
    uint32_t arrival = 0; // set by the model: its place in the Backend's order
};

// By which column the rows stand, from 0 on; without one they stand in the Backend's order.
struct RowOrder {
    std::optional<size_t> column;
    bool isDescending = false;
    friend bool operator==(const RowOrder&, const RowOrder&) = default;
};

// The rows of the details list. Adding, finding and changing a row take time that does not depend on the number of
// rows; a row that comes or goes in the middle moves those behind it.
class RowModel {
public:
    size_t size() const noexcept { return m_rows.size(); }
    const Row& at(size_t index) const { return m_rows.at(index); }
    Row& at(size_t index) { return m_rows.at(index); }
    std::optional<size_t> find(const std::wstring& key) const;
    // The first row from a place on whose name begins with a text, without regard to case; nothing behind the last row.
    std::optional<size_t> findName(const std::wstring& beginning, size_t from) const;

    // Adds a row at the end, whatever the order; error 35602 for a key that is there already.
    void add(Row row);
    // The place that the row had; error 35601 for a key that is not there.
    size_t remove(const std::wstring& key);
    void clear() noexcept;

    // Puts all rows into an order. A column whose cells are all whole numbers is ordered by their values, others as the
    // user's language orders texts; rows that do not differ keep the Backend's order.
    void sort(const RowOrder& order);
    // Moves the last row to where the order wants it, the others being in order already; gives its place.
    size_t placeLast(const RowOrder& order);

private:
    void renumber(size_t from);

    std::vector<Row> m_rows;
    std::unordered_map<std::wstring, size_t> m_index;
    uint32_t m_lastArrival = 0;
};

} // namespace velk
