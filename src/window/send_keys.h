#pragma once

#include "base/win32.h"

#include <string>
#include <vector>

namespace velk {

// One key as it is pressed and released, with the modifier keys that are held meanwhile. A key that no keyboard
// layout has is sent as its character.
struct KeyStroke {
    WORD virtualKey = 0; // 0: by its character
    wchar_t character = 0;
    bool shift = false;
    bool control = false;
    bool alt = false;
    friend bool operator==(const KeyStroke&, const KeyStroke&) = default;
};

// Reads the classic notation of keystrokes: plain characters; + ^ % hold Shift, Ctrl and Alt for the next key or for a
// group in parentheses; ~ is Enter; {NAME}, {x} and {NAME count} are named, literal and repeated keys. Error 5 for
// anything else (an open brace or parenthesis, an unknown name, a bad count).
std::vector<KeyStroke> parseKeys(const std::wstring& text);

// Sends keystrokes to the window that has the focus. The text is checked as a whole before the first key is sent. With
// wait, returns only after the keys have been processed, or after a few seconds. Error 70 when the system refuses.
void sendKeys(const std::wstring& text, bool wait);

} // namespace velk
