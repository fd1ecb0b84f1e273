#pragma once

#include "backend/text_block.h"

#include "base/win32.h"

#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <string_view>

namespace velk::ansi {

// The Backend's text encoding: the process's ANSI code page. Tests name another one.
using CodePage = UINT;
inline constexpr CodePage processCodePage = CP_ACP;

// A counted string lies behind its 32-bit byte length and before a NUL, at a multiple of four.
inline constexpr size_t lengthPrefix = sizeof(uint32_t);
constexpr size_t countedSize(size_t length) noexcept
{
    return (lengthPrefix + length + 1 + 3) / 4 * 4;
}
// Writes the prefix at the start of a zeroed block of countedSize(length) bytes; the characters behind it.
inline std::span<char> placeCounted(char* block, size_t length) noexcept
{
    const auto prefix = static_cast<uint32_t>(length);
    std::memcpy(block, &prefix, sizeof prefix);
    return {block + lengthPrefix, length};
}

// Whether something was written where the NUL behind a counted string stands: the writer went past its end.
inline bool isOverrun(std::span<const char> bytes) noexcept
{
    return *(bytes.data() + bytes.size()) != '\0';
}

// Bytes that a text takes; writing it into exactly that many; the whole of some bytes as wide text.
size_t lengthOf(std::wstring_view text, CodePage codePage);
void write(std::wstring_view text, std::span<char> target, CodePage codePage);
std::wstring wideOf(std::span<const char> bytes, CodePage codePage = processCodePage);

// Reads the wide text before the first NUL character into a text that keeps its memory, without the cost of converting
// what follows the NUL. False, and an empty text, when the wide text has no NUL at all: in an Asian code page a NUL
// byte behind a lead byte is none.
bool readBeforeNul(std::wstring& text, std::span<const char> bytes, CodePage codePage = processCodePage);

// Cuts a text at its first NUL character; a text that has none becomes empty, because its writer ran out of room.
void trimAtNull(std::wstring& text);

// Owns one counted string.
class CountedText {
public:
    // That many NULs.
    explicit CountedText(size_t length);
    explicit CountedText(std::wstring_view text);

    char* get() const noexcept { return m_bytes.data(); }
    std::span<const char> bytes() const noexcept { return m_bytes; }

private:
    TextBlock m_block;
    std::span<char> m_bytes;
};

} // namespace velk::ansi
