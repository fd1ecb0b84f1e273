#pragma once

#include "base/win32.h"

#include <string>

namespace velk::devkit {

// Writes what the screen shows where the window stands, other windows above it included, as a PNG file. Throws when
// the system cannot do it.
void writeScreenshot(HWND window, const std::wstring& path);

// The same of what the window itself has painted, whether or not the screen shows it yet.
void writeWindowPicture(HWND window, const std::wstring& path);

} // namespace velk::devkit
