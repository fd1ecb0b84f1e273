#pragma once

#include "base/win32.h"

namespace velk::devkit::input {

// What a hand does to mouse and keyboard: it goes the way of real input, to whatever window is there.

// Moves the pointer to a pixel of the screen; flags of buttons that change there (MOUSEEVENTF_LEFTDOWN, ...) may be
// given. The place goes with each change: a late report of an earlier place by the display cannot come between.
void mouse(POINT place, DWORD buttons = 0);
// A key is pressed and released.
void key(WORD key);
void keyDown(WORD key);
void keyUp(WORD key);

} // namespace velk::devkit::input
