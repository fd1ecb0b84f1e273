#pragma once

// Texts that the tool has no numbers for. %1 stands for what is put in when a text is shown.
namespace velk::ownTexts {

// In boxes.
inline constexpr wchar_t openManySources[] = L"Open the sources of %1 objects?"; // Yes, No
inline constexpr wchar_t clipboardIsHeld[] =
    L"Nothing was copied, because another program has the clipboard open. Try again.";

} // namespace velk::ownTexts
