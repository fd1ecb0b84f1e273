#pragma once

// What the window shows beside the report.
namespace velk::doctor::windowTexts {

inline constexpr wchar_t caption[] = L"Velk add-in: the doctor";
inline constexpr wchar_t looking[] = L"Looking at this machine...";
inline constexpr wchar_t failed[] = L"The doctor itself failed: ";
inline constexpr wchar_t columns[][16] = {L"State", L"Check", L"What was found"};
inline constexpr wchar_t list[] = L"Checks";     // for screen readers
inline constexpr wchar_t details[] = L"Details"; // for screen readers
inline constexpr wchar_t fix[] = L"&Fix";
inline constexpr wchar_t copy[] = L"&Copy";
inline constexpr wchar_t again[] = L"&Look again";
inline constexpr wchar_t close[] = L"Close";
inline constexpr wchar_t clipboardIsHeld[] =
    L"Nothing was copied, because another program has the clipboard open. Try again.";

} // namespace velk::doctor::windowTexts
