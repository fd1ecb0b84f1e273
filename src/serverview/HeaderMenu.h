#pragma once

#include "serverview/viewParts.h"

#include <optional>

namespace velk {

// The menu of the list's header: which columns are shown, how wide they are, and whether rows are filtered.
class HeaderMenu {
public:
    explicit HeaderMenu(ViewParts& parts) noexcept : m_parts(parts) {}

    // Whether a context menu that is asked for of a window is this one: of the header, or of the list by the keyboard
    // with Ctrl held.
    bool isMeant(HWND pane, bool isByKeyboard) const;
    // Opens it over the owner and does what the user chooses; a place of the screen, in pixels.
    void open(HWND owner, POINT place, bool isByKeyboard);

private:
    std::optional<size_t> columnAt(POINT place) const;
    POINT belowHeader() const;
    void carryOut(int chosen, std::optional<size_t> column);

    ViewParts& m_parts;
};

} // namespace velk
