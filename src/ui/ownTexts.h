#pragma once

namespace velk {

// Texts that the tool has no numbers for, all of them.

// The menu of the list's header.
inline constexpr wchar_t sizeColumnCaption[] = L"Size This Column to Fit";
inline constexpr wchar_t sizeAllColumnsCaption[] = L"Size All Columns to Fit";
inline constexpr wchar_t resetColumnsCaption[] = L"Reset Columns";

} // namespace velk
