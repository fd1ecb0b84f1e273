#pragma once

#include <string>
#include <string_view>

namespace velk::devkit {

// Without those of the letters that stand at its ends; white space, if none are named.
std::wstring trimmed(const std::wstring& text, const wchar_t* letters = L" \t\r\n");

void replaceAll(std::wstring& text, const std::wstring& from, const std::wstring& to);

// Whether a word, in letters of either case, stands at a place of a text, and not inside another one. Words are made of
// letters, digits and some more.
bool isWordLetter(wchar_t letter, std::wstring_view more);
bool wordStandsAt(const std::wstring& text, size_t place, std::wstring_view word, std::wstring_view more);

} // namespace velk::devkit
