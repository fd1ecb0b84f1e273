#pragma once

namespace velk {

// The splitter's rules, in twips of the control's inner area.
struct SplitterRules {
    int barWidth; // the bar's width
    int width;    // the control's inner width

    // Whether the bar may stand at a position: both sides keep the room that they need.
    bool accepts(int position) const noexcept
    {
        constexpr int treeRoom = 300;
        constexpr int listRoom = 400;
        return position - barWidth - treeRoom > 0 && position + barWidth + listRoom < width;
    }
    // Whether the mouse is over a bar whose left edge is given.
    bool isOver(int barLeft, int x, int y) const noexcept
    {
        constexpr int reach = 5;
        return x >= barLeft && x <= barLeft + barWidth + reach && y > 0;
    }
};

} // namespace velk
