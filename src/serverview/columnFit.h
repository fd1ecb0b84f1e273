#pragma once

#include "serverview/RowModel.h"
#include "window/text_widths.h"

#include <string_view>
#include <vector>

namespace velk {

// The control shows no more of a text.
inline constexpr size_t shownCharacters = 259;
inline std::wstring_view shownTextOf(const Row& row, size_t column) noexcept
{
    return row.cell(column).substr(0, shownCharacters);
}

// The rows that may have the widest text of a column, of all rows: those whose characters are the widest, some of each
// font. To measure every text takes the system minutes where this takes milliseconds.
std::vector<const Row*> widestRows(const RowModel& rows, size_t column, const TextWidths& plain,
                                   const TextWidths& bold);

} // namespace velk
