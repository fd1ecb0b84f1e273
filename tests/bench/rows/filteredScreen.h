#pragma once

#include "screen.h"

namespace velk::bench {

// Shown, filled, and with the filter strip open.
class FilteredScreen {
public:
    explicit FilteredScreen(int32_t objects) : m_screen(objects)
    {
        m_screen.enterFolder();
        m_screen.fill(objects);
        m_screen.view().filterStrip().show();
        m_edit = m_screen.view().filterStrip().stops().front();
    }
    // The strip's text before a key, with the list painted.
    void write(const wchar_t* text) const
    {
        SetWindowTextW(m_edit, text);
        SendMessageW(m_edit, EM_SETSEL, static_cast<WPARAM>(GetWindowTextLengthW(m_edit)),
                     GetWindowTextLengthW(m_edit));
        paint();
    }
    // Up to the painted list.
    void press(wchar_t character) const
    {
        SendMessageW(m_edit, WM_CHAR, character, 0);
        paint();
    }
    // Takes the whole text away by one key.
    void empty() const
    {
        SendMessageW(m_edit, EM_SETSEL, 0, -1);
        press(VK_BACK);
    }
    // All rows that are shown, or none.
    void select(bool isSelected) const
    {
        LVITEMW item{};
        item.stateMask = LVIS_SELECTED;
        item.state = isSelected ? LVIS_SELECTED : 0;
        SendMessageW(m_screen.list(), LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&item));
    }
    void orderBy(int column) const { m_screen.orderBy(column); }
    void paint() const { RedrawWindow(m_screen.list(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW); }

private:
    Screen m_screen;
    HWND m_edit;
};

} // namespace velk::bench
