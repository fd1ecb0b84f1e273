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

std::optional<std::wstring> cut(std::wstring text)
{
    const size_t found = text.find(L'\0');
    if (found == std::wstring::npos)
        return std::nullopt;
    text.resize(found);
    return text;
}

} // namespace

std::span<char> placeCounted(char* block, size_t length) noexcept
{
    const auto prefix = static_cast<uint32_t>(length);
    std::memcpy(block, &prefix, sizeof prefix);
    return {block + lengthPrefix, length};
}

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

// No code page makes more characters than bytes.
std::wstring wideOf(std::span<const char> bytes, CodePage codePage)
{
    if (bytes.empty())
        return {};
    const int length = systemLength(bytes.size());
    std::wstring text(bytes.size(), L'\0');
    const int made = MultiByteToWideChar(codePage, 0, bytes.data(), length, text.data(), length);
    throwLastErrorUnless(made > 0);
    text.resize(static_cast<size_t>(made));
    return text;
}

std::optional<std::wstring> wideBeforeNul(std::span<const char> bytes, CodePage codePage)
{
    if (!bytes.empty() && bytes.front() == '\0')
        return std::wstring();
    const auto nul = std::find(bytes.begin(), bytes.end(), '\0');
    if (nul != bytes.end())
        if (auto text = cut(wideOf({bytes.begin(), nul + 1}, codePage)))
            return text;
    // Either there is no NUL byte, or the bytes before it took it into a character of theirs.
    return cut(wideOf(bytes, codePage));
}

void trimAtNull(std::wstring& text)
{
    const size_t found = text.find(L'\0');
    text.resize(found == std::wstring::npos ? 0 : found);
}

CountedText::CountedText(size_t length)
    : m_block(std::make_unique<char[]>(countedSize(length))), m_bytes(placeCounted(m_block.get(), length))
{
}

CountedText::CountedText(std::wstring_view text) : CountedText(lengthOf(text, processCodePage))
{
    write(text, m_bytes, processCodePage);
}

} // namespace velk::ansi
