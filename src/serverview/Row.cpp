// Tested in tests/unit/serverview/RowModelTest.cpp.
#include "serverview/Row.h"

#include "base/error.h"

#include <array>
#include <limits>
#include <new>

namespace velk {
namespace {

constexpr size_t mostCells = 16;

} // namespace

Row::Row(int32_t handle, size_t cells, bool isLong, RowLooks looks) noexcept
    : m_handle(handle), m_isLong(isLong), m_cells(static_cast<uint8_t>(cells))
{
    setLooks(looks);
}

void Row::setLooks(RowLooks looks) noexcept
{
    m_image = static_cast<int16_t>(looks.image);
    m_isBold = looks.bold;
}

void Row::Deleter::operator()(Row* row) const noexcept
{
    row->~Row();
    ::operator delete(row);
}

Row::Owner Row::make(int32_t handle, std::span<const std::wstring_view> cells, std::wstring_view tag, RowLooks looks)
{
    if (cells.size() > mostCells)
        throw Error(errorOverflow);
    size_t length = tag.size();
    for (const std::wstring_view cell : cells)
        length += cell.size();
    if (length > std::numeric_limits<int32_t>::max() / sizeof(wchar_t))
        throw std::bad_alloc();
    const bool isLong = length > std::numeric_limits<uint16_t>::max();
    const size_t ends = (cells.size() + 1) * (isLong ? 2 : 1);
    const size_t size = sizeof(Row) + ends * sizeof(uint16_t) + length * sizeof(wchar_t);
    Owner made(new (::operator new(size)) Row(handle, cells.size(), isLong, looks));
    auto* half = const_cast<uint16_t*>(made->halves());
    auto* const characters = const_cast<wchar_t*>(made->characters());
    size_t used = 0;
    const auto append = [&](std::wstring_view text) {
        text.copy(characters + used, text.size());
        used += text.size();
        *half++ = static_cast<uint16_t>(used & 0xffff);
        if (isLong)
            *half++ = static_cast<uint16_t>(used >> 16);
    };
    for (const std::wstring_view cell : cells)
        append(cell);
    append(tag);
    return made;
}

Row::Owner Row::renamed(std::wstring_view name, std::wstring_view tag) const
{
    std::array<std::wstring_view, mostCells> cells;
    for (size_t column = 0; column < m_cells; ++column)
        cells[column] = cell(column);
    cells[0] = name;
    Owner made = make(m_handle, {cells.data(), m_cells}, tag, looks());
    made->m_arrival = m_arrival;
    made->m_slot = m_slot;
    return made;
}

} // namespace velk
