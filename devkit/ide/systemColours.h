#pragma once

#include "base/win32.h"

#include <string>

namespace velk::devkit {

// Gives the system other colours, until it ends or gets the next ones: "black" are those of high contrast on black,
// with which a frame and the windows in it have no theme; "standard" is all as it was before. False when there are none
// of that name.
bool useSystemColours(HWND frame, const std::wstring& name);

} // namespace velk::devkit
