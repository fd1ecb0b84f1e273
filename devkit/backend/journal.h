#pragma once

#include "base/win32.h"

#include <string>
#include <string_view>

namespace velk::devkit {

// The record of what the caller did: one line for each call, and one "BREACH ..." line for each thing done wrong.
// Goes to the file named by the environment variable VELK_BACKEND_JOURNAL, which is looked up for every line, so
// that it can be set and changed at any time; without it breaches are only counted.
class Journal {
public:
    Journal() = default;
    Journal(const Journal&) = delete;
    Journal& operator=(const Journal&) = delete;

    void line(std::wstring_view text) noexcept;
    void breach(std::wstring_view text) noexcept;
    int breaches() const noexcept { return m_breaches; }

private:
    int m_breaches = 0;
};

// The text with the values of passwords ("PWD=...", "Password=...") replaced by asterisks, for journal and messages.
std::wstring withoutSecrets(std::wstring text);

} // namespace velk::devkit
