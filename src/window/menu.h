#pragma once

#include "base/win32.h"

#include <functional>
#include <string>
#include <vector>

namespace velk {

// A line of a popup menu. A caption of "-" is a separator; a line with a submenu opens it.
struct MenuLine {
    int id; // above 0
    std::wstring caption;
    bool enabled = true;
    std::vector<MenuLine> submenu{};
    bool checked = false;
};

// Shows a popup menu at a place on the screen (pixels) and waits for the choice: the line's id, 0 when the user left
// the menu. Runs a message loop of its own, in which anything may happen, the owner's end included.
int showPopupMenu(const std::vector<MenuLine>& lines, HWND owner, POINT place);

// What showPopupMenu shows and answers instead of the system's menu, for tests without a user. An empty function
// restores the system's menu.
using MenuPresenter = std::function<int(const std::vector<MenuLine>& lines, POINT place)>;
void setMenuPresenter(MenuPresenter presenter);

} // namespace velk
