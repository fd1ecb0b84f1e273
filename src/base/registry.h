#pragma once

#include "base/unique_any.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace velk::registry {

// Creates the key (and those above it) and opens it for writing; throws the system's error.
unique_key createKey(HKEY root, const std::wstring& path);
// Values of a key; an empty name is the key's default value.
void setText(HKEY key, const std::wstring& name, const std::wstring& text);
void setNumber(HKEY key, const std::wstring& name, DWORD number);

// A text value, as it stands there, read forgivingly: nothing for a value that is missing, of another kind, or longer
// than so many characters.
std::optional<std::wstring> textAt(HKEY root, const std::wstring& path, const std::wstring& name, size_t longest);
// The names of a key's values, at most so many of them; none for a key that cannot be read.
std::vector<std::wstring> valueNames(HKEY root, const std::wstring& path, size_t most);
// Removes a value. One that is not there counts as removed.
void removeValue(HKEY root, const std::wstring& path, const std::wstring& name);

// Removes a key with all below it. A key that is not there counts as removed.
void removeTree(HKEY root, const std::wstring& path);
// Removes the key if it holds neither values nor keys, then the one above it, and so on up to (not including) the
// key named as stop. For keys that other programs may share.
void removeEmptyUpTo(HKEY root, std::wstring path, const std::wstring& stop) noexcept;

// Reading what programs of the ANSI time wrote: through the ANSI functions, at most 2048 characters of name and data.
// Whether a value can be read; and name and data of a value by its number, nothing when there is none.
bool hasAnsiValue(HKEY root, std::wstring_view path, std::wstring_view name) noexcept;
std::optional<std::pair<std::wstring, std::wstring>> ansiValueAt(HKEY root, const std::wstring& path, uint32_t index);

} // namespace velk::registry
