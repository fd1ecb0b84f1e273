#pragma once

#include "base/win32.h"

#include <string>

namespace velk::check {

// Nobody sits before a check: the windows that a process shows while a call of it lasts get a user who cancels.
class CancellingUser {
public:
    explicit CancellingUser(DWORD process) noexcept : m_process(process) {}

    // Cancels what is shown, some time after the last try: by Cancel, then by No, then by closing it.
    void cancel() noexcept;
    // The title of a window that still waits, or what stands for one without; empty: there is none.
    std::wstring window() const;

private:
    HWND waiting() const noexcept;

    DWORD m_process;
    DWORD m_lastTry = 0;
    unsigned m_tries = 0;
};

} // namespace velk::check
