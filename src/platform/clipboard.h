#pragma once

#include "platform/win32.h"

namespace velk {

// Puts a bitmap on the clipboard (a copy; the caller keeps its own). Throws when another program holds the clipboard.
void putBitmapOnClipboard(HWND owner, HBITMAP bitmap);

} // namespace velk
