#pragma once

#include "base/win32.h"

#include <string>

namespace velk::devkit {

// The shell's font (the system's message font) and its bold face. Made once, kept for the process.
HFONT shellFont(bool bold = false);
// One line of bold text, centred by height, cut with dots when there is no room.
void drawCaption(HDC dc, const RECT& area, const std::wstring& text, COLORREF colour);
} // namespace velk::devkit
