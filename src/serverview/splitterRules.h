#pragma once

#include <algorithm>

namespace velk {

// The splitter's rules, in twips of the control's inner area.
struct SplitterRules {
    static constexpr int treeRoom = 300;
    static constexpr int listRoom = 400;

    int barWidth; // the bar's width
    int width;    // the control's inner width

    // Whether the bar may stand at a position: both sides keep the room that they need.
    bool accepts(int position) const noexcept
    {
        return position - barWidth - treeRoom > 0 && position + barWidth + listRoom < width;
    }
    // Where the bar stands when the tree is to have a width: the list keeps its room in a view that is too narrow for
    // both.
    int barAt(int treeWidth) const noexcept
    {
        return std::clamp(treeWidth, 0, std::max(0, width - barWidth - listRoom));
    }
    // Whether the mouse is over a bar whose left edge is given.
    bool isOver(int barLeft, int x, int y) const noexcept
    {
        constexpr int reach = 5;
        return x >= barLeft && x <= barLeft + barWidth + reach && y > 0;
    }
};

} // namespace velk
