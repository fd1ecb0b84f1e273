#pragma once

#include "serverview/KeptSelection.h"
#include "serverview/ListColumns.h"
#include "serverview/ListFilter.h"

#include <array>
#include <climits>
#include <optional>

namespace velk {

// What the control of a list is told of its rows: the changes up to its next message together, before that message.
class ShownRows {
public:
    ShownRows(ListView& view, ListSelection& selection, ListColumns& columns, ListFilter& filter,
              RowModel& rows) noexcept
        : m_view(view), m_selection(selection), m_columns(columns), m_filter(filter), m_rows(rows)
    {
    }

    // Where the user is, by the handles of rows.
    struct Place {
        KeptSelection selected;
        std::optional<int32_t> focused;
        std::optional<int32_t> top;
    };

    // From here on to the control's next message, rows come, go and move. To be called while they stand as the control
    // shows them. Gives where the user is to be afterwards, which can be changed until then.
    Place& beginChange();
    // The same for all rows' going: the user is nowhere afterwards. Gives where the user was.
    Place beginAnew();
    // Where the user was on rows that a filter hides now, the next ones in sight are meant.
    void leaveHiddenRows() noexcept;
    // Since the change began a row goes that has its place still. Is to be said for the sake of many selected rows,
    // whose places the control can change by itself; costs nothing without several.
    void leave(const Row& row) noexcept;
    // A row looks otherwise.
    void draw(const Row& changed);
    // Tells the control now.
    void show() noexcept;

    // Puts the rows that were added where the order wants them; not while they are held.
    void placeRows() noexcept;
    void hold() noexcept { m_isHeld = true; }
    // After so many rows came that all are to be put in order anew.
    void letGo() noexcept
    {
        m_isHeld = false;
        m_isOrderLost = true;
    }

private:
    // What the control has not been told yet.
    struct Unshown {
        Place place{};
        bool areRowsOthers = false; // rows came, went or moved; otherwise some look otherwise
        std::array<int, 8> left{};  // places of rows that went, each after those before it; more are too many
        size_t leftCount = 0;
        bool isCleared = false; // all went before those that are there came
        int top = 0;            // rows on screen
        int bottom = -1;
        int firstStale = INT_MAX; // of those on screen
        int lastStale = -1;
    };
    Place placeOfUser() noexcept;
    void showRows(const Unshown& changes) noexcept;
    void showThatRowsLeft(const Unshown& changes) noexcept;
    int rowOf(const std::optional<int32_t>& handle) const noexcept;
    void goTo(const Place& place, int otherwiseTop) noexcept;

    ListView& m_view;
    ListSelection& m_selection;
    ListColumns& m_columns;
    ListFilter& m_filter;
    RowModel& m_rows;
    std::optional<Unshown> m_unshown;
    bool m_isHeld = false;
    bool m_isOrderLost = false;
};

} // namespace velk
