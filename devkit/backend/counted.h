#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace velk::devkit {

// A counted string of the caller: 32-bit length in bytes before the characters, characters in the process's ANSI code
// page, a NUL after them. The caller owns it; nothing is ever written behind its length.
class CountedString {
public:
    explicit CountedString(char* characters) noexcept : m_characters(characters) {}

    bool missing() const noexcept { return m_characters == nullptr; }
    size_t length() const noexcept;
    // The length tells the truth: a NUL stands behind the characters, and none among them.
    bool isWellFormed() const noexcept;
    // Nothing but NULs, with one more behind them.
    bool isBlank() const noexcept;

    // The text before the first NUL.
    std::wstring text() const;
    // As much of the text as fits with a NUL, and no half character at its end. A string without room stays untouched.
    // Gives back the count of wide characters that were written.
    size_t write(std::wstring_view text) const;

private:
    char* m_characters;
};

// The count of bytes, up to a limit, that ends between characters.
size_t wholeCharacters(std::string_view bytes, size_t limit, unsigned codePage);

} // namespace velk::devkit
