#pragma once

#include "base/unique_any.h"
#include "serverview/RowModel.h"
#include "window/list_view.h"

#include <map>
#include <string>
#include <vector>

namespace velk {

// The columns of the details list. For each kind of folder, for the life of the list, they keep the width and the order
// that the user gave them.
class ListColumns {
public:
    explicit ListColumns(ListView& view) noexcept : m_view(view) {}

    // The list's font, and the one that some of its rows have.
    void setFonts(HFONT font, HFONT boldFont);

    // Gives the list the columns of a folder kind; a kind without columns gets none.
    void show(int32_t folderKind, const std::vector<std::wstring>& headers);

    // By which column the rows stand, with its mark in the header.
    const RowOrder& order() const noexcept { return m_order; }
    void setOrder(const RowOrder& order);

    // Makes columns that nobody gave a width as wide as the first rows need.
    void fit(const RowModel& rows);

private:
    void keepLooks();
    void showOrder();
    int widthOfCell(const Row& row, int column) const; // pixels

    // What the user gave a kind of folder.
    struct Looks {
        std::vector<int> widths; // pixels
        RowOrder order;
    };

    ListView& m_view;
    HFONT m_boldFont = nullptr;
    std::map<int32_t, Looks> m_looks; // by folder kind
    int32_t m_folderKind = 0;
    RowOrder m_order;
    bool m_areWidthsKnown = false;
};

} // namespace velk
