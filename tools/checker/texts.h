#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace velk::check {

std::string toUtf8(std::wstring_view text);
std::wstring fromUtf8(std::string_view text);

// Characters of the process's ANSI code page; nothing when they are none.
bool isAnsi(std::string_view bytes);
// Whether bytes that could be ANSI, too, are surely meant as UTF-8: everything outside ASCII is whole characters of it.
// Of two-byte code pages only long texts tell.
bool looksLikeUtf8(std::string_view text);
std::wstring fromAnsi(std::string_view bytes);
std::string toAnsi(std::wstring_view text);

// Bytes as somebody can read them in a report, in quotes: control characters and what is no character as \xNN, cut
// where it gets long.
std::string shown(std::string_view bytes);
std::string hexadecimal(uint32_t number);

} // namespace velk::check
