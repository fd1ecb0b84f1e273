#pragma once

#include "platform/win32.h"

#include <vector>

namespace velk {

// Puts a bitmap on the clipboard (a copy; the caller keeps its own), not for any history of it. Throws when another
// program holds the clipboard.
void putBitmapOnClipboard(HWND owner, HBITMAP bitmap);

// Keeps what stands on the clipboard and puts it back at its end, so that the user loses nothing; what another program
// has put there meanwhile stays. Formats that only their program can make (drawn by the owner, private handles) cannot
// be kept. Another program may hold the clipboard for a moment: it is waited for up to a fifth of a second, then left
// as it is.
class clipboard_keeper {
public:
    explicit clipboard_keeper(HWND owner) noexcept;
    clipboard_keeper(const clipboard_keeper&) = delete;
    clipboard_keeper& operator=(const clipboard_keeper&) = delete;
    ~clipboard_keeper();

    // False when the clipboard could not be read: who empties it now takes from the user.
    bool isKept() const noexcept { return m_wasRead; }

private:
    struct Kept {
        UINT format;
        HANDLE data; // owned until it is put back
    };
    HWND m_owner;
    bool m_wasRead = false;
    std::vector<Kept> m_kept;
};

} // namespace velk
