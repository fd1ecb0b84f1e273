#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

namespace velk {

// How a row looks, beside its texts.
struct RowLooks {
    int image = 0;
    bool bold = false;
    friend bool operator==(const RowLooks&, const RowLooks&) = default;
};

// A row of the details list: the handle of its object, the cells in column order, the first being the object's name,
// and a tag. All of it is one block of memory; the texts do not change.
class Row {
public:
    struct Deleter {
        void operator()(Row* row) const noexcept;
    };
    using Owner = std::unique_ptr<Row, Deleter>;

    static Owner make(int32_t handle, std::span<const std::wstring_view> cells, std::wstring_view tag, RowLooks looks);
    // The same row with another name and tag.
    Owner renamed(std::wstring_view name, std::wstring_view tag) const;

    int32_t handle() const noexcept { return m_handle; }
    // Empty for a column that the row has no cell for.
    std::wstring_view cell(size_t column) const noexcept
    {
        return column < m_cells ? text(column) : std::wstring_view();
    }
    std::wstring_view name() const noexcept { return cell(0); }
    // The texts of all cells, one behind the other.
    std::wstring_view texts() const noexcept { return {characters(), m_cells == 0 ? 0 : endOf(m_cells - size_t{1})}; }
    std::wstring_view tag() const noexcept { return text(m_cells); }
    RowLooks looks() const noexcept { return {m_image, m_isBold}; }
    // By the filter of its model.
    bool isHidden() const noexcept { return m_isHidden; }

private:
    friend class RowModel;
    friend class FilteredRows;

    Row(int32_t handle, size_t cells, bool isLong, RowLooks looks) noexcept;
    void setLooks(RowLooks looks) noexcept;
    // Behind this object stand the ends of the texts, cells and tag, and then their characters. Ends are halves of a
    // word where that is enough, and words in rows of very long texts.
    size_t ends() const noexcept { return (m_cells + size_t{1}) * (m_isLong ? 2 : 1); }
    const uint16_t* halves() const noexcept { return reinterpret_cast<const uint16_t*>(this + 1); }
    size_t endOf(size_t number) const noexcept
    {
        return m_isLong ? halves()[2 * number] | static_cast<size_t>(halves()[2 * number + 1]) << 16 : halves()[number];
    }
    const wchar_t* characters() const noexcept { return reinterpret_cast<const wchar_t*>(halves() + ends()); }
    std::wstring_view text(size_t number) const noexcept
    {
        const size_t begin = number == 0 ? 0 : endOf(number - 1);
        return {characters() + begin, endOf(number) - begin};
    }

    int32_t m_handle;
    uint32_t m_arrival = 0; // its place in the Backend's order
    uint32_t m_slot = 0;    // where it stood among the model's rows when they were numbered
    int16_t m_image = 0;
    bool m_isBold : 1 = false;
    bool m_isHidden : 1 = false;
    bool m_isLong : 1;
    uint8_t m_cells;
};

} // namespace velk
