#pragma once

#include "base/win32.h"

#include <cstdint>
#include <functional>
#include <product.h>
#include <string>
#include <string_view>

namespace velk {

// The caption of a box that is given no title: the add-in's application title.
inline constexpr std::wstring_view applicationTitle = productName;

// The IDE's main window, owner of every box and dialog, so that none of them can hide behind it. Null when the IDE
// does not tell; then the thread's active window is the owner.
void setMainWindow(HWND window) noexcept;
HWND dialogOwner() noexcept;
// The owner of a box or a file dialog: the dialog or box that is open over the main window, or the main window itself.
// What is open beneath takes no input then.
HWND boxOwner() noexcept;

// Every message of the add-in goes through here. Style: the bits of the Windows message box (buttons, icon). The
// answer is the button's number: 1 OK, 2 Cancel (also Escape and the close button where there is one), 6 Yes, 7 No;
// a box with OK only always answers 1. 0 when the box could not be shown. Runs a message loop of its own.
int32_t showMessage(const std::wstring& text, uint32_t style = MB_OK,
                    const std::wstring& title = std::wstring(applicationTitle));

// How many boxes were closed with Cancel so far, in any way, for those who go on after a call inside which boxes may
// have come. Used from the user-interface thread only.
uint32_t cancelledBoxes() noexcept;

// What showMessage shows and answers instead of the system's box, for tests without a user. An empty function
// restores the system's box.
using MessagePresenter = std::function<int32_t(const std::wstring& text, uint32_t style, const std::wstring& title)>;
void setMessagePresenter(MessagePresenter presenter);

} // namespace velk
