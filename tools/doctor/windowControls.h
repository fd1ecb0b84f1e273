#pragma once

#include "base/unique_any.h"
#include "window/control.h"
#include "window/list_view.h"

#include <array>
#include <memory>
#include <string>

namespace velk::doctor {

// A font with its measures: the system's message font, as large as the user wants it.
class WindowFont {
public:
    WindowFont();
    HFONT get() const noexcept { return m_font.get(); }
    LONG width() const noexcept { return m_character.cx; } // average
    LONG height() const noexcept { return m_character.cy; }
    LONG widthOf(const std::wstring& text) const noexcept;
    // The height of a text that is wrapped.
    LONG heightOf(const std::wstring& text, LONG width) const noexcept;

private:
    unique_font m_font;
    SIZE m_character{};
};

// The controls of the doctor's window, and where they stand in it. They fit their texts in any font.
class WindowControls {
public:
    enum Id : int { cmdClose = IDCANCEL, cmdFix = 100, cmdCopy, cmdAgain, lstChecks, txtDetails, lblSentence };

    WindowControls(HWND parent, const WindowFont& font);

    void layOut();
    // The least that the window may be, and what it is at first.
    static SIZE leastSize(const WindowFont& font);
    static SIZE usualSize(const WindowFont& font);

    void setSentence(const std::wstring& text);
    // Only closing goes while the machine is looked at.
    void enableButtons(bool isIdle, bool canFix) const noexcept;

    Control sentence;
    ListView list;
    Control details;

private:
    const WindowFont& m_font;
    HWND m_parent;
    std::wstring m_sentence;
    std::array<std::unique_ptr<Control>, 4> m_buttons;
    unique_image_list m_pictures;
};

} // namespace velk::doctor
