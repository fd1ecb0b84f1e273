#include "devkit/backend/counted.h"

#include "base/text.h"
#include "base/win32.h"

#include <algorithm>
#include <cstring>

namespace velk::devkit {

size_t CountedString::length() const noexcept
{
    uint32_t length = 0;
    if (m_characters)
        std::memcpy(&length, m_characters - sizeof length, sizeof length);
    return length;
}

bool CountedString::isWellFormed() const noexcept
{
    return m_characters && std::memchr(m_characters, 0, length() + 1) == m_characters + length();
}

bool CountedString::isBlank() const noexcept
{
    return m_characters &&
           std::all_of(m_characters, m_characters + length() + 1, [](char character) { return character == 0; });
}

std::wstring CountedString::text() const
{
    if (!m_characters)
        return {};
    // A wrong length may lead far behind the string, where nothing can be read.
    const void* const nul = std::memchr(m_characters, 0, length() + 1);
    const size_t count = nul ? static_cast<size_t>(static_cast<const char*>(nul) - m_characters) : length();
    return toWide({m_characters, count});
}

size_t CountedString::write(std::wstring_view text) const
{
    if (length() == 0)
        return 0;
    const std::string bytes = toAnsi(text);
    const size_t count = wholeCharacters(bytes, length() - 1, GetACP());
    std::copy_n(bytes.begin(), count, m_characters);
    m_characters[count] = '\0';
    return count == bytes.size() ? text.size() : toWide({bytes.data(), count}).size();
}

size_t wholeCharacters(std::string_view bytes, size_t limit, unsigned codePage)
{
    if (bytes.size() <= limit)
        return bytes.size();
    size_t place = 0;
    for (;;) {
        const size_t width = IsDBCSLeadByteEx(codePage, static_cast<BYTE>(bytes[place])) ? 2 : 1;
        if (place + width > limit)
            return place;
        place += width;
    }
}

} // namespace velk::devkit
