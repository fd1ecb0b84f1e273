#pragma once

// Texts that the tool has no numbers for. %1 stands for what is put in when a text is shown.
namespace velk::ownTexts {

// In boxes.
inline constexpr wchar_t openManySources[] = L"Open the sources of %1 objects?"; // Yes, No
inline constexpr wchar_t clipboardIsHeld[] =
    L"Nothing was copied, because another program has the clipboard open. Try again.";
inline constexpr wchar_t endlessFolder[] =
    L"The tool does not come to the end of this folder. What has come so far is shown.";

// In the strip above the list.
inline constexpr wchar_t filterCue[] = L"Filter";         // in its edit, while that is empty
inline constexpr wchar_t filterFound[] = L"%1 of %2";     // how many rows the filter leaves, and of how many
inline constexpr wchar_t filterClose[] = L"Close filter"; // the name of the button that closes it

// In the menu of the list's header.
inline constexpr wchar_t sizeColumn[] = L"Size This Column to Fit";
inline constexpr wchar_t sizeAllColumns[] = L"Size All Columns to Fit";
inline constexpr wchar_t resetColumns[] = L"Reset Columns";

// In the list's area while there are no rows in it.
inline constexpr wchar_t nothingSelected[] = L"Nothing is selected. Select a folder in the tree to see its objects.";
inline constexpr wchar_t projectSelected[] = L"Select a folder below a connection to see its objects.";
inline constexpr wchar_t connectionSelected[] = L"Select a folder below this connection to see its objects.";
inline constexpr wchar_t notConnected[] =
    L"Not connected. To connect, choose Connect in the menu of the connection (right click or Shift+F10).";
inline constexpr wchar_t loading[] = L"Loading...";
inline constexpr wchar_t unreadable[] = L"The objects could not be read. F5 tries again.";
inline constexpr wchar_t noObjects[] = L"There are no objects in this folder.";
inline constexpr wchar_t noMatches[] = L"Nothing matches the filter.";
inline constexpr wchar_t readSoFar[] = L"%1 objects..."; // while a folder is read, which takes long

// Below the list, after the user ended the reading of a folder.
inline constexpr wchar_t readingStopped[] = L"Stopped after %1 objects. There are more: F5 reads all.";

} // namespace velk::ownTexts
