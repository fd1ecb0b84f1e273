#include "backend/ansi.h"

#include "base/error.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace velk::ansi {
namespace {

int systemLength(size_t length)
{
    if (length > static_cast<size_t>(std::numeric_limits<int>::max()))
        throw Error(errorOverflow);
    return static_cast<int>(length);
}

// How many bytes from the first on are ASCII characters, NUL not among them. In every code page that a process can have
// they are characters of their own, and the same ones in wide text.
size_t plainLength(std::span<const char> bytes) noexcept
{
    size_t length = 0;
    for (uint32_t four = 0; length + sizeof four <= bytes.size(); length += sizeof four) {
        std::memcpy(&four, bytes.data() + length, sizeof four);
        if (((four - 0x01010101U) | four) & 0x80808080U)
            break;
    }
    while (length < bytes.size() && bytes[length] > '\0')
        ++length;
    return length;
}

void widen(std::wstring& text, std::span<const char> plain)
{
    text.resize(plain.size());
    std::copy(plain.begin(), plain.end(), text.begin());
}

// No code page makes more characters than bytes.
void convert(std::wstring& text, std::span<const char> bytes, CodePage codePage)
{
    const int length = systemLength(bytes.size());
    text.resize(bytes.size());
    const int made = MultiByteToWideChar(codePage, 0, bytes.data(), length, text.data(), length);
    throwLastErrorUnless(made > 0);
    text.resize(static_cast<size_t>(made));
}

bool cutAtNul(std::wstring& text) noexcept
{
    const size_t found = text.find(L'\0');
    text.resize(found == std::wstring::npos ? 0 : found);
    return found != std::wstring::npos;
}

} // namespace

size_t lengthOf(std::wstring_view text, CodePage codePage)
{
    if (text.empty())
        return 0;
    const int length =
        WideCharToMultiByte(codePage, 0, text.data(), systemLength(text.size()), nullptr, 0, nullptr, nullptr);
    throwLastErrorUnless(length > 0);
    return static_cast<size_t>(length);
}

void write(std::wstring_view text, std::span<char> target, CodePage codePage)
{
    if (text.empty())
        return;
    const int written = WideCharToMultiByte(codePage, 0, text.data(), systemLength(text.size()), target.data(),
                                            systemLength(target.size()), nullptr, nullptr);
    throwLastErrorUnless(written > 0);
}

std::wstring wideOf(std::span<const char> bytes, CodePage codePage)
{
    std::wstring text;
    if (plainLength(bytes) == bytes.size())
        widen(text, bytes);
    else
        convert(text, bytes, codePage);
    return text;
}

bool readBeforeNul(std::wstring& text, std::span<const char> bytes, CodePage codePage)
{
    const size_t plain = plainLength(bytes);
    if (plain == bytes.size()) {
        text.clear();
        return false;
    }
    if (bytes[plain] == '\0') {
        widen(text, bytes.first(plain));
        return true;
    }
    const auto nul = std::find(bytes.begin() + static_cast<ptrdiff_t>(plain), bytes.end(), '\0');
    if (nul != bytes.end()) {
        convert(text, {bytes.begin(), nul + 1}, codePage);
        if (cutAtNul(text))
            return true;
    }
    // Either there is no NUL byte, or the bytes before it took it into a character of theirs.
    convert(text, bytes, codePage);
    return cutAtNul(text);
}

void trimAtNull(std::wstring& text)
{
    cutAtNul(text);
}

CountedText::CountedText(size_t length) : m_block(countedSize(length)), m_bytes(placeCounted(m_block.get(), length))
{
}

CountedText::CountedText(std::wstring_view text) : CountedText(lengthOf(text, processCodePage))
{
    write(text, m_bytes, processCodePage);
}

} // namespace velk::ansi
