#pragma once

#include "base/unique_any.h"

#include <string>

namespace velk {

// A tip of the system's that stands where it is told to, and that the mouse does not meet.
class Tip {
public:
    // The owner is above the windows that the tip stands over, or is one of them.
    explicit Tip(HWND owner) noexcept : m_owner(owner) {}
    Tip(const Tip&) = delete;
    Tip& operator=(const Tip&) = delete;
    ~Tip();

    // Shows a text in a font over a place of the screen, where the text begins; moved as far as the screen wants it.
    void show(std::wstring text, HFONT font, RECT place);
    void hide() noexcept;
    bool isShown() const noexcept { return m_isShown; }

private:
    bool isThere() const noexcept;
    void make(); // unless it is there
    void keepOnScreen(const RECT& screen) const noexcept;

    HWND m_owner;
    HWND m_frame = nullptr; // the owner's, when it was made
    unique_window m_window; // made when it is shown the first time
    bool m_isShown = false;
};

} // namespace velk
