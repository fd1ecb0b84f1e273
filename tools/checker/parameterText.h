#pragma once

#include "base/win32.h"

#include <string>
#include <string_view>

namespace velk::check {

// A parameter of RZGetStringP1 and RZGetStringP2: a variable with a string of automation that holds bytes, which the
// library may replace by one of its own.
class ParameterText {
public:
    explicit ParameterText(std::string_view text)
        : m_text(SysAllocStringByteLen(text.data(), static_cast<UINT>(text.size())))
    {
    }
    ParameterText(const ParameterText&) = delete;
    ParameterText& operator=(const ParameterText&) = delete;
    ~ParameterText() { SysFreeString(m_text); }

    BSTR* variable() noexcept { return &m_text; }

    // What it holds now. Says false where that is no counted string: its length leads to memory that is none, or to
    // where no NUL is.
    std::string text(bool& isCounted) noexcept
    {
        const auto* const bytes = reinterpret_cast<const char*>(m_text);
        if (!bytes)
            return {};
        const UINT length = IsBadReadPtr(bytes - sizeof(UINT), sizeof(UINT)) ? UINT{0} - 1 : SysStringByteLen(m_text);
        constexpr UINT longest = 16 * 1024 * 1024;
        if (length > longest || IsBadReadPtr(bytes, length + 1) || bytes[length] != '\0') {
            isCounted = false;
            m_text = nullptr; // nobody can tell how to free it
            return {};
        }
        return {bytes, length};
    }

private:
    BSTR m_text;
};

} // namespace velk::check
