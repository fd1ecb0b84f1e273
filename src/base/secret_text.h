#pragma once

#include "base/win32.h"

#include <memory>
#include <string_view>

namespace velk {

// A text that leaves nothing behind in memory: its characters are zeroed before their block is given back.
class secret_text {
public:
    // That many NULs, to be written to; there is one more behind them.
    explicit secret_text(size_t length) : m_length(length), m_characters(std::make_unique<wchar_t[]>(length + 1)) {}
    secret_text(secret_text&&) noexcept = default;
    secret_text& operator=(secret_text&&) = delete;
    ~secret_text()
    {
        if (m_characters)
            SecureZeroMemory(m_characters.get(), (m_length + 1) * sizeof(wchar_t));
    }

    wchar_t* data() noexcept { return m_characters.get(); }
    size_t capacity() const noexcept { return m_length; }
    // What stands before the first NUL.
    std::wstring_view view() const noexcept { return m_characters.get(); }

private:
    size_t m_length;
    std::unique_ptr<wchar_t[]> m_characters;
};

} // namespace velk
