#pragma once

#include "base/win32.h"

#include <string>

namespace velk {

// A child control of the system's. It is destroyed with its parent window, or with this object if that comes first.
class Control {
public:
    Control(const wchar_t* className, HWND parent, DWORD style, DWORD extendedStyle = 0);
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    ~Control();

    HWND hwnd() const noexcept { return m_hwnd; }
    LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const noexcept;
    void setFont(HFONT font) const noexcept;
    // What a screen reader calls the control, which shows no caption of its own: its window's text.
    void setName(const std::wstring& name) const noexcept;
    bool hasFocus() const noexcept;
    // Lets go of the window, which goes by itself when it has done its messages: it may be at work on one of them.
    void leave() noexcept;

private:
    HWND m_hwnd;
};

// Hands a message of the system to all top-level windows on to the windows within one, which do not get it by
// themselves.
void handOn(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

} // namespace velk
