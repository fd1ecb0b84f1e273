#pragma once

#include <string>
#include <string_view>

namespace velk::doctor {

// What is no character is a replacement for one.
std::string toUtf8(std::wstring_view text);
std::wstring fromUtf8(std::string_view bytes);

} // namespace velk::doctor
