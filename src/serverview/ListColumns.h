#pragma once

#include "base/unique_any.h"
#include "serverview/columnLooks.h"
#include "serverview/RowModel.h"
#include "window/list_view.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace velk {

// The columns of the details list. For each kind of folder, for the life of the list, they keep the widths and the
// order of the rows; and what of it the user gave, with the columns' places and which of them he hid, also for the next
// life. Columns have the numbers of the rows' cells, hidden ones included; the control numbers those that are shown.
class ListColumns {
public:
    explicit ListColumns(ListView& view) noexcept : m_view(view) {}

    // The list's font, and the one that some of its rows have.
    void setFonts(HFONT font, HFONT boldFont);

    // Gives the list the columns of a folder kind; a kind without columns gets none.
    void show(int32_t folderKind, const std::vector<std::wstring>& headers);
    int32_t folderKind() const noexcept { return m_folderKind; }
    const std::vector<std::wstring>& headers() const noexcept { return m_headers; }

    // By which column the rows stand, with its mark in the header.
    const RowOrder& order() const noexcept { return m_order; }
    void setOrder(const RowOrder& order);

    // The column that the control has under a number; and back, -1 for a hidden one.
    size_t columnAt(int number) const noexcept;
    int numberOf(size_t column) const noexcept;
    bool isShown(size_t column) const noexcept { return numberOf(column) >= 0; }
    // The first column stays. One that is shown again gets back its width, or what the rows need.
    void setShown(size_t column, bool isShown, const RowModel& rows);

    // Makes columns that nobody gave a width as wide as the first rows need.
    void fit(const RowModel& rows);
    // Makes a column that is shown as wide as its header and all rows need.
    void fitToContents(size_t column, const RowModel& rows);
    // All columns are shown, in their order; their widths have to be found anew, and rows stand as they came.
    void reset();

    // The header's notifications: the user gives widths and moves columns.
    void onHeaderNotify(const NMHEADERW& notification);

    // What the user gave the columns of a kind, as the text that is kept of it; that of an earlier life; and who hears
    // of a change.
    std::wstring given(int32_t folderKind);
    void setGiven(int32_t folderKind, std::wstring keptText) { m_kinds[folderKind].earlier = std::move(keptText); }
    void setListener(std::function<void(int32_t folderKind)> listener) { m_listener = std::move(listener); }

private:
    // What is known of a kind of folder.
    struct Kind {
        std::wstring earlier; // until the kind is shown
        ColumnLooks given;
        std::vector<int> widths; // pixels, -1 for one that was not shown; empty while no rows came
    };
    void keepLooks();
    void keepWidth(size_t column);
    void showOrder();
    void showColumns();
    void showWidths();
    std::optional<int> widthKnown(size_t column) const; // pixels
    void changed();
    void giveWidth(size_t column);
    int widthForFirstRows(size_t column, const RowModel& rows, int least) const; // pixels
    int widthOfCell(const Row& row, size_t column, std::wstring_view text) const;

    ListView& m_view;
    HFONT m_font = nullptr;
    HFONT m_boldFont = nullptr;
    std::map<int32_t, Kind> m_kinds; // by folder kind
    Kind* m_kind = nullptr;          // that is shown; null for one without columns
    int32_t m_folderKind = 0;
    std::vector<std::wstring> m_headers;
    std::vector<size_t> m_shown; // columns by the control's numbers
    RowOrder m_order;
    int m_widthBefore = 0; // of the column whose divider the user has in hand
    std::function<void(int32_t)> m_listener;
};

} // namespace velk
