#pragma once

#include "base/unique_any.h"

#include <utility>
#include <vector>

namespace velk {

// Opens the clipboard in the name of a window; false when another program holds it for more than a fifth of a second.
// Programs that watch the clipboard open it for a moment after each change.
bool openClipboard(HWND owner) noexcept;

// Shows bitmaps to whoever looks at the clipboard, and gives the user's own content back at its end; what another
// program has put there meanwhile stays. The owner in between is a hidden window of its own.
//
// What stands there is kept as far as it can be, or not touched at all. Keeping it means to ask its owner for what that
// has only promised so far, so the system's conversions are left to the system, and there are limits: in formats, bytes
// and time. An owner that does not answer is not asked. What only its own program can make (drawn by the owner, private
// handles, the marks of an OLE source) cannot be kept, and does not come back.
class clipboard_keeper {
public:
    clipboard_keeper() = default;
    clipboard_keeper(const clipboard_keeper&) = delete;
    clipboard_keeper& operator=(const clipboard_keeper&) = delete;
    ~clipboard_keeper();

    // Puts a copy of the bitmap there, not for any history of the clipboard. False, with nothing changed, when another
    // program holds the clipboard for more than a fifth of a second, or when what stands there cannot be kept; the
    // same content is not asked for again then. Throws when the system refuses the bitmap.
    bool put(HBITMAP bitmap);

private:
    // A format and a copy of its data.
    class Kept {
    public:
        Kept(UINT format, HANDLE data) noexcept : m_format(format), m_data(data) {}
        Kept(Kept&& other) noexcept : m_format(other.m_format), m_data(std::exchange(other.m_data, nullptr)) {}
        Kept(const Kept&) = delete;
        Kept& operator=(const Kept&) = delete;
        ~Kept();
        bool isThere() const noexcept { return m_data != nullptr; }
        void putBack() noexcept;

    private:
        UINT m_format;
        HANDLE m_data; // null once the clipboard owns it
    };
    bool isOurs() const noexcept { return m_window && GetClipboardOwner() == m_window.get(); }
    bool keep();
    bool readAll(std::vector<Kept>& kept) const;

    unique_window m_window; // from the first bitmap on
    std::vector<Kept> m_kept;
};

} // namespace velk
