#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace velk {

// Every text that is kept of the view begins so. One of another version counts as absent.
inline constexpr std::wstring_view keptVersion = L"1;";

// Reads a kept text, which anybody may have changed. What does not find what it wants fails, and all that follows with
// it; the reader never goes beyond the text.
class KeptReader {
public:
    explicit KeptReader(std::wstring_view text) noexcept : m_rest(text) { word(keptVersion); }

    // The next character, if it is this one.
    bool take(wchar_t character) noexcept;
    void expect(wchar_t character) noexcept;
    bool isAtDigit() const noexcept;
    // A number in decimal within bounds; the least when it fails.
    uint64_t number(uint64_t least, uint64_t most) noexcept;
    // A text behind its length and a colon, as keptTextOf writes it; empty when it fails.
    std::wstring_view text(size_t longest) noexcept;

    bool hasFailed() const noexcept { return m_hasFailed; }
    bool isAtEnd() const noexcept { return m_rest.empty(); }
    // Everything was there, and nothing else is.
    bool isWhole() const noexcept { return !m_hasFailed && m_rest.empty(); }

private:
    void word(std::wstring_view expected) noexcept;
    void fail() noexcept;

    std::wstring_view m_rest;
    bool m_hasFailed = false;
};

std::wstring keptTextOf(std::wstring_view text);
std::wstring keptNumber(uint64_t number);

} // namespace velk
