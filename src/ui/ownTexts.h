#pragma once

// Texts that the tool has no numbers for. %1 stands for what is put in when a text is shown.
namespace velk::ownTexts {

// In boxes.
inline constexpr wchar_t openManySources[] = L"Open the sources of %1 objects?"; // Yes, No
inline constexpr wchar_t clipboardIsHeld[] =
    L"Nothing was copied, because another program has the clipboard open. Try again.";

// In the strip above the list.
inline constexpr wchar_t filterCue[] = L"Filter";         // in its edit, while that is empty
inline constexpr wchar_t filterFound[] = L"%1 of %2";     // how many rows the filter leaves, and of how many
inline constexpr wchar_t filterClose[] = L"Close filter"; // the name of the button that closes it

// In the menu of the list's header.
inline constexpr wchar_t sizeColumn[] = L"Size This Column to Fit";
inline constexpr wchar_t sizeAllColumns[] = L"Size All Columns to Fit";
inline constexpr wchar_t resetColumns[] = L"Reset Columns";

} // namespace velk::ownTexts
