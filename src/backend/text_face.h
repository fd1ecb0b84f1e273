#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace velk::arguments {

// A text to hand over: a variable gets back what the Backend left in it, anything else does not.
class TextFace {
public:
    TextFace(std::wstring& variable) noexcept : m_text(variable), m_variable(&variable) {}
    TextFace(const std::wstring& text) noexcept : m_text(text) {}
    TextFace(std::wstring_view text) noexcept : m_text(text) {}
    TextFace(const wchar_t* text) noexcept : m_text(text) {}

    std::wstring_view text() const noexcept { return m_text; }
    void assign(std::wstring text) const
    {
        if (m_variable)
            *m_variable = std::move(text);
    }

private:
    std::wstring_view m_text;
    std::wstring* m_variable = nullptr;
};

} // namespace velk::arguments
