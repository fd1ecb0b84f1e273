#pragma once

#include "serverview/DetailsList.h"
#include "window/message_watch.h"
#include "window/tip.h"

#include <optional>
#include <string>

namespace velk {

// Tips with the whole text of a cell or a header of the list that is cut off, while the mouse rests on it. The tree has
// its own.
class CellTips {
public:
    // The owner gets the timer's messages.
    CellTips(HWND owner, DetailsList& list);

    static constexpr UINT_PTR timer = 2;

    // The list got a message.
    void onMessage(UINT message) noexcept;
    void onTimer() noexcept;

private:
    // What the mouse is on; row is -1 for a header.
    struct Cell {
        int row;
        int column;
        friend bool operator==(const Cell&, const Cell&) = default;
    };
    struct Looks {
        std::wstring text;
        HFONT font;
        RECT place; // of the text, as far as there is room for it; in the pane
    };
    HWND header() const noexcept;
    HWND paneOf(const Cell& cell) const noexcept { return cell.row < 0 ? header() : m_list.view().hwnd(); }
    std::optional<Cell> cellUnderMouse() const noexcept;
    Looks looksOf(const Cell& cell) const;
    Looks looksOfHeader(int column) const;
    bool isCutOff(const Cell& cell, const Looks& looks) const;
    void moveTo(std::optional<Cell> cell);
    void showOrWatch();
    void rest() noexcept;

    HWND m_owner;
    DetailsList& m_list;
    MessageWatch m_headerWatch;
    Tip m_tip;
    std::optional<Cell> m_cell;
    std::wstring m_shown;
    DWORD m_since = 0; // the tip is there
};

} // namespace velk
