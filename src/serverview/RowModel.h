#pragma once

#include <cstddef>
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
};

// The rows of the details list in the Backend's order. Adding, finding and changing a row take time that does not
// depend on the number of rows; removing one moves those behind it.
class RowModel {
public:
    size_t size() const noexcept { return m_rows.size(); }
    const Row& at(size_t index) const { return m_rows.at(index); }
    Row& at(size_t index) { return m_rows.at(index); }
    std::optional<size_t> find(const std::wstring& key) const;

    // Error 35602 for a key that is there already.
    void add(Row row);
    // The place that the row had; error 35601 for a key that is not there.
    size_t remove(const std::wstring& key);
    void clear() noexcept;

private:
    std::vector<Row> m_rows;
    std::unordered_map<std::wstring, size_t> m_index;
};

} // namespace velk
