#pragma once

#include "devkit/ide/commandBars.h"

namespace velk::devkit {

// The visible toolbars of the shell, side by side in one row below the menu. Pixels.
class ToolbarRow {
public:
    static constexpr UINT first = 5000;
    static constexpr int height = 28;

    // Makes the toolbars anew inside the window.
    void rebuild(HWND window, const std::vector<com_ptr<CommandBar>>& bars);
    com_ptr<CommandBarControl> control(UINT command) const;

private:
    int addBar(HWND window, const CommandBar& bar, int left);
    void addButton(HWND toolbar, HIMAGELIST faces, const com_ptr<CommandBarControl>& control);

    struct Shown {
        unique_image_list faces; // outlives its window
        unique_window window;
    };
    std::vector<Shown> m_shown;
    std::vector<com_ptr<CommandBarControl>> m_controls;
};

} // namespace velk::devkit
