#pragma once

#include "base/win32.h"

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

    // Whether it holds a counted string now. What is none is forgotten: nobody can tell how to let go of it.
    bool isCounted() noexcept
    {
        const auto* const bytes = reinterpret_cast<const char*>(m_text);
        if (!bytes)
            return true; // an empty text
        constexpr UINT longest = 16 * 1024 * 1024;
        UINT length = longest + 1;
        if (!IsBadReadPtr(bytes - sizeof length, sizeof length))
            length = SysStringByteLen(m_text);
        const bool isText = length <= longest && !IsBadReadPtr(bytes, length + 1) && bytes[length] == '\0';
        if (!isText)
            m_text = nullptr;
        return isText;
    }

private:
    BSTR m_text;
};

} // namespace velk::check
