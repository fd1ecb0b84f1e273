#pragma once

#include "serverview/DetailsList.h"
#include "serverview/splitter.h"
#include "window/cue_banner.h"
#include "window/window.h"

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <span>

namespace velk {

// The strip above the list in which the user writes a filter: an edit, what the filter found, and a button that closes
// the strip. It has no windows until it is opened for the first time.
class FilterStrip : public Window {
public:
    FilterStrip(HWND owner, DetailsList& list, Splitter& splitter);
    FilterStrip(const FilterStrip&) = delete;
    FilterStrip& operator=(const FilterStrip&) = delete;
    ~FilterStrip() override;

    bool isOpen() const noexcept { return m_isOpen && hwnd(); }
    // Hears when the strip has been opened or closed.
    void setListener(std::function<void()> listener) { m_listener = std::move(listener); }
    // Shows the strip, empty, without giving it the focus.
    void show();
    // Shows it and gives its edit the focus, with all of its text selected.
    void open();
    // Hides it and shows all rows again; the focus, if it has it, goes to the owner, which gives it to a pane.
    void close();
    // What Esc does: takes the text away, or else closes the strip.
    void clearOrClose();
    void setFont(HFONT font);

    bool hasFocus() const noexcept;
    bool isButtonFocused() const noexcept { return isOpen() && m_parts->button.hasFocus(); }
    // Whether it had the focus later than others of the view, who tell when they get it.
    bool hadFocusLast() const noexcept { return isOpen() && m_hadFocusLast; }
    void loseFocus() noexcept { m_hadFocusLast = false; }
    // Where Tab goes to, in the order of the keyboard; none while the strip is closed.
    std::span<const HWND> stops() const noexcept;
    // Keys that belong to what has the focus here, also where a host has them as accelerators of its own; whether this
    // was one.
    bool useKey(const MSG& message);

protected:
    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    struct Parts {
        explicit Parts(HWND strip);

        Control label; // of no size: a screen reader calls the edit by it
        Control edit;
        CueBanner cue;
        Control found;
        Control button;
        std::array<HWND, 2> stops;
    };
    void makeParts();
    void takeRoom();
    void layOut() const noexcept;
    int units(int vertical) const noexcept; // dialog units as pixels
    void onCommand(WORD code, HWND sender);
    void onText();
    void tell();
    void setText(const std::wstring& text);
    std::wstring text() const;

    HWND m_owner;
    std::function<void()> m_listener;
    DetailsList& m_list;
    Splitter& m_splitter;
    std::optional<Parts> m_parts;
    std::wstring m_found; // as it is shown
    int m_foundWidth = 0; // pixels
    int m_lineHeight = 0; // of the font
    bool m_isOpen = false;
    bool m_isTelling = false;
    bool m_hadFocusLast = false;
};

} // namespace velk
