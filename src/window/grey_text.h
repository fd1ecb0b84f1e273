#pragma once

#include "base/win32.h"

#include <string>

namespace velk {

// The colour of a text that steps back, on the system's window colour: grey, or where a scheme has that colour for both
// the colour of texts.
COLORREF steppingBack(COLORREF grey, COLORREF window, COLORREF text) noexcept;

// Draws a text that stands for what a control would show: grey, in the control's font, in the middle of the area's
// head, wrapped.
void drawGreyText(HDC dc, HWND control, const RECT& area, const std::wstring& text) noexcept;
// The same at once, over what is there, without a message to anybody.
void paintGreyText(HWND control, const RECT& area, const std::wstring& text) noexcept;

} // namespace velk
