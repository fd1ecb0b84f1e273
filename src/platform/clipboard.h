#pragma once

#include "platform/win32.h"

#include <vector>

namespace velk {

// Puts a bitmap on the clipboard (a copy; the caller keeps its own). Throws when another program holds the clipboard.
void putBitmapOnClipboard(HWND owner, HBITMAP bitmap);

// Keeps what stands on the clipboard and puts it back at its end, so that the user loses nothing. Formats that only
// their program can make (drawn by the owner, private handles) cannot be kept. A clipboard that another program holds
// at either time is left as it is.
class clipboard_keeper {
public:
    explicit clipboard_keeper(HWND owner) noexcept;
    clipboard_keeper(const clipboard_keeper&) = delete;
    clipboard_keeper& operator=(const clipboard_keeper&) = delete;
    ~clipboard_keeper();

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
