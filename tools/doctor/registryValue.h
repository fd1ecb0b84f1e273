#pragma once

#include "base/win32.h"

#include <string>
#include <vector>

namespace velk::doctor {

// What stands in the registry at one place, whatever it is: nothing here throws for what it finds.
struct RegistryValue {
    enum class State { missing, denied, unreadable, text, number, other };
    State state = State::missing;
    std::wstring text;    // as it is to be understood: up to its first NUL, variables of the environment put in
    std::wstring written; // the same with the names of the variables
    DWORD number = 0;
    DWORD type = 0;
    DWORD size = 0; // bytes
    DWORD code = 0; // the system's, of what cannot be read

    bool isText() const noexcept { return state == State::text; }
    bool isMissing() const noexcept { return state == State::missing; }
};

// A value by its name (empty: the key's own). view: KEY_WOW64_64KEY for the other half of a 64-bit Windows.
RegistryValue readValue(HKEY root, const std::wstring& path, const std::wstring& name = {}, REGSAM view = 0);
// The key itself: missing, denied, unreadable, or other when it is there.
RegistryValue readKey(HKEY root, const std::wstring& path, REGSAM view = 0);
// Names of the keys below a key, at most so many; none for a key that cannot be read.
std::vector<std::wstring> keysBelow(HKEY root, const std::wstring& path, size_t most);

// For a line: what is there, in quotes, or what is wrong with it. Long texts are cut, control characters replaced.
std::wstring shown(const RegistryValue& value);
std::wstring shownText(const std::wstring& text);

} // namespace velk::doctor
