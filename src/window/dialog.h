#pragma once

#include "base/error.h"
#include "base/secret_text.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace velk {

enum class DialogControl { label, edit, password, dropDownList, dropDown, button, defaultButton, group };

// One control of a dialog. The caption is the number of a text that whoever loads the form puts there, 0 where there is
// none. Place and size are dialog units, so that they follow the font. Rows stand in tab order; where a number is
// IDCANCEL, Escape and the close button press it.
struct DialogRow {
    int id;
    DialogControl kind;
    int32_t caption;
    short left, top, width, height;
};

struct DialogLayout {
    short width, height; // dialog units
    std::span<const DialogRow> rows;
};

// A face by name and size in points; an empty name is the system's dialog font.
struct DialogFont {
    std::wstring name;
    int32_t size = 8;
    int32_t charset = DEFAULT_CHARSET;
};

// A form in the shape of a dialog. It is loaded hidden, shown modally any number of times, and lives until it is
// unloaded; hiding it ends the modal wait and keeps what stands in its controls. It may be unloaded or destroyed at any
// time, also while it waits. No exception leaves its procedure: it is reported and the message counts as not handled.
class Dialog {
public:
    Dialog() = default;
    Dialog(const Dialog&) = delete;
    Dialog& operator=(const Dialog&) = delete;
    virtual ~Dialog();

    // Makes the window and its controls; nothing when it is loaded. The layout's rows outlive the form.
    void load(HWND owner, const DialogLayout& layout, const DialogFont& font);
    void unload() noexcept;
    bool isLoaded() const noexcept { return m_hwnd != nullptr; }
    // Makes the form as wide as its texts need now; nothing when they have room, or it is not loaded.
    void fit() noexcept;
    // Fits the form, shows it in the middle of its owner, on the screen, and waits until it is hidden or gone; the
    // owner and the forms that are shown already take no input meanwhile. Nothing when it is shown already, or not
    // loaded any more.
    void showModal();
    void hide() noexcept;
    // The form that was shown last of those that are shown; null when none is.
    static HWND topmost() noexcept;
    // Ends the modal wait of every form that is shown, and lets none be shown that is loaded by now: the add-in leaves
    // the IDE, perhaps inside a call for one of a form's texts.
    static void hideAll() noexcept;

    HWND hwnd() const noexcept { return m_hwnd; }
    HWND item(int id) const noexcept { return GetDlgItem(m_hwnd, id); }
    // These throw when the form or its control does not take it.
    void setCaption(const std::wstring& text) const { throwLastErrorUnless(SetWindowTextW(m_hwnd, text.c_str())); }
    // An icon resource of this module.
    void setIcon(int resource) const;
    std::wstring text(int id) const { return textOf(item(id)); }
    // What stands in a password's field. Nothing of it is left in the control's memory when the form goes.
    secret_text secret(int id) const;
    void setText(int id, const std::wstring& text) const
    {
        throwLastErrorUnless(SetWindowTextW(item(id), text.c_str()));
    }
    void enable(int id, bool isEnabled) const noexcept { EnableWindow(item(id), isEnabled); }
    void show(int id, bool isVisible) const noexcept { ShowWindow(item(id), isVisible ? SW_SHOWNA : SW_HIDE); }
    // Whether the control is not hidden itself, whatever its form is.
    bool isVisible(int id) const noexcept { return (GetWindowLongW(item(id), GWL_STYLE) & WS_VISIBLE) != 0; }

    // The list of a combo box.
    void fillList(int id, const std::vector<std::wstring>& texts) const noexcept;
    void selectInList(int id, int index) const noexcept;
    int listCount(int id) const noexcept;
    // The entry that is selected; empty when none is.
    std::wstring selectedInList(int id) const;

protected:
    // A control was used: its number and the notification that it sent. May throw.
    virtual void onCommand(int id, int notification) = 0;

private:
    struct Wait {
        bool isShown = false;
        bool isGone = false;
    };
    static INT_PTR CALLBACK procedure(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    static std::wstring textOf(HWND window);
    void block(HWND window);
    void placeOnOwner() const noexcept;
    void wipePasswords(HWND form) const noexcept;

    HWND m_hwnd = nullptr;
    HWND m_owner = nullptr;
    DialogLayout m_layout{};
    uint32_t m_leavings = 0; // of the add-in's, when the form was loaded
    std::shared_ptr<Wait> m_wait;
    std::vector<HWND> m_blocked; // what takes no input while the form is shown
};

} // namespace velk
