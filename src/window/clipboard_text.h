#pragma once

#include "base/win32.h"

#include <string>

namespace velk {

// Puts a text in place of what stands on the clipboard, in the name of a window; the system makes the other forms of
// it. False, with nothing touched, when another program holds the clipboard for more than a fifth of a second. Throws
// when there is no memory, or the system refuses the text.
bool putOnClipboard(HWND owner, const std::wstring& text);

} // namespace velk
