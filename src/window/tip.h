#pragma once

#include "base/unique_any.h"

#include <string>

namespace velk {

// A tip of the system's that stands where it is told to, and that the mouse does not meet.
class Tip {
public:
    // The owner is above the windows that the tip stands over, or is one of them.
    explicit Tip(HWND owner) noexcept : m_owner(owner) {}

    // Shows a text in a font over a place of the screen, where the text begins; moved as far as the screen wants it.
    void show(std::wstring text, HFONT font, RECT place);
    void hide() noexcept;
    bool isShown() const noexcept { return m_isShown; }

private:
    void make();
    void keepOnScreen(const RECT& screen) const noexcept;

    HWND m_owner;
    unique_window m_window; // made when it is shown the first time
    bool m_isShown = false;
};

} // namespace velk
