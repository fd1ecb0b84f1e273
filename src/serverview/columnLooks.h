#pragma once

#include "serverview/RowModel.h"

#include <string>
#include <string_view>
#include <vector>

namespace velk {

// What the user gave the columns of a kind of folder. Columns have the numbers of the rows' cells.
struct ColumnLooks {
    explicit ColumnLooks(size_t columns = 0) : widths(columns) {}

    std::vector<int> widths;    // twips, 0 where none was given
    std::vector<size_t> places; // all columns from left to right; empty: as they come
    std::vector<size_t> hidden; // ascending, never the first
    RowOrder order;

    bool isHidden(size_t column) const noexcept;
    void hide(size_t column, bool isHidden);
    // The columns that are shown, ascending: the control has these, and numbers them anew.
    std::vector<size_t> shown() const;
    // Those from left to right, by the control's numbers; and the places of all after the user moved some.
    std::vector<int> shownPlaces() const;
    void movePlaces(const std::vector<int>& shownPlaces);

    friend bool operator==(const ColumnLooks&, const ColumnLooks&) = default;
};

// The text that is kept of it, empty where nothing was given; a width that is out of bounds is not kept as it is. And
// back, for a folder with so many columns: what does not fit them in every part counts as nothing given.
std::wstring keptTextOf(const ColumnLooks& looks);
ColumnLooks columnLooksOf(std::wstring_view keptText, size_t columns);

} // namespace velk
