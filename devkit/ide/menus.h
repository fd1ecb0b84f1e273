#pragma once

#include "devkit/ide/commandBars.h"

namespace velk::devkit {

// The shell's Win32 menu, made from the menu bar. Commands are numbered from `first` on, in the order of the list.
class MenuStrip {
public:
    static constexpr UINT first = 1000;

    // Makes the menu anew and gives it to the window.
    void rebuild(HWND window, const CommandBar& bar);
    // The control behind a command number; null when it is none of ours.
    com_ptr<CommandBarControl> control(UINT command) const;

private:
    void fill(HMENU menu, const CommandBar& bar);

    std::vector<com_ptr<CommandBarControl>> m_controls;
};

} // namespace velk::devkit
