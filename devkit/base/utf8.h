#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace velk::devkit {

// UTF-8 text; what is not UTF-8 becomes the replacement character, or nothing at all in the strict form.
std::wstring fromUtf8(std::string_view bytes);
std::optional<std::wstring> fromUtf8Strictly(std::string_view bytes);
std::string toUtf8(std::wstring_view text);

} // namespace velk::devkit
