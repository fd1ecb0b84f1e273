#pragma once

#include "base/win32.h"

#include <new>
#include <string>
#include <string_view>
#include <utility>

namespace velk {

// Owns an automation string. An empty text may be held as a null BSTR, as automation allows.
class bstr {
public:
    bstr() noexcept = default;
    bstr(std::wstring_view text) : m_text(SysAllocStringLen(text.data(), static_cast<UINT>(text.size())))
    {
        if (!m_text)
            throw std::bad_alloc();
    }
    bstr(const wchar_t* text) : bstr(std::wstring_view(text)) {}
    bstr(const bstr& other) : bstr(other.view()) {}
    bstr(bstr&& other) noexcept : m_text(std::exchange(other.m_text, nullptr)) {}
    ~bstr() { SysFreeString(m_text); }

    bstr& operator=(bstr other) noexcept
    {
        std::swap(m_text, other.m_text);
        return *this;
    }

    BSTR get() const noexcept { return m_text; }
    std::wstring_view view() const noexcept { return viewOf(m_text); }
    std::wstring text() const { return std::wstring(view()); }

    // For [out] arguments; what was held is freed first.
    BSTR* put() noexcept
    {
        SysFreeString(std::exchange(m_text, nullptr));
        return &m_text;
    }
    // For [in, out] arguments: the callee may replace the string.
    BSTR* ref() noexcept { return &m_text; }
    BSTR detach() noexcept { return std::exchange(m_text, nullptr); }

    static std::wstring_view viewOf(BSTR text) noexcept
    {
        return text ? std::wstring_view(text, SysStringLen(text)) : std::wstring_view();
    }

private:
    BSTR m_text = nullptr;
};

} // namespace velk
