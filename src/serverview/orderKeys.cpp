// Tested in tests/unit/serverview/rowOrderTest.cpp.
#include "serverview/orderKeys.h"

#include "base/win32.h"

#include <algorithm>

namespace velk {
namespace {

constexpr size_t blockSize = 0x10000;
// What a sort key needs of most texts; others are asked for twice.
constexpr size_t usualKeySize(size_t characters)
{
    return characters * 8 + 16;
}

int64_t wholeNumber(std::wstring_view text) noexcept
{
    const bool isNegative = text.starts_with(L'-');
    int64_t value = 0;
    for (const wchar_t digit : text.substr(isNegative ? 1 : 0))
        value = value * 10 + (digit - L'0');
    return isNegative ? -value : value;
}

} // namespace

bool isWholeNumber(std::wstring_view text) noexcept
{
    const size_t sign = text.starts_with(L'-') ? 1 : 0;
    constexpr size_t mostDigits = 10;
    return text.size() > sign && text.size() <= sign + mostDigits &&
           text.find_first_not_of(L"0123456789", sign) == std::wstring_view::npos;
}

OrderKeys::Known& OrderKeys::knownLike(std::wstring_view text) noexcept
{
    size_t hash = text.size();
    if (!text.empty())
        hash = hash * 31 + text.front() * 7u + text[text.size() / 2] * 13u + text.back();
    return m_known[hash % m_known.size()];
}

std::string_view OrderKeys::keyOf(const Row& row)
{
    const std::wstring_view text = row.cell(m_column);
    Known& known = knownLike(text);
    if (!known.place || text != std::wstring_view(known.place, known.length)) {
        const std::string_view made = make(text);
        m_used += made.size();
        known = {text.data(), text.size(), made};
    }
    return known.key;
}

std::string_view OrderKeys::passingKeyOf(const Row& row)
{
    return make(row.cell(m_column));
}

char* OrderKeys::room(size_t size)
{
    if (m_size - m_used < size) {
        const size_t wanted = std::max(size, blockSize);
        m_blocks.push_back(std::make_unique_for_overwrite<char[]>(wanted));
        m_size = wanted;
        m_used = 0;
    }
    return m_blocks.back().get() + m_used;
}

std::string_view OrderKeys::make(std::wstring_view text)
{
    if (m_areNumbers) {
        // The highest byte first, negative numbers below the others.
        constexpr size_t size = sizeof(uint64_t);
        uint64_t rest = static_cast<uint64_t>(wholeNumber(text)) ^ (uint64_t{1} << 63);
        char* const bytes = room(size);
        for (size_t place = size; place-- > 0; rest >>= 8)
            bytes[place] = static_cast<char>(rest & 0xff);
        return {bytes, size};
    }
    // The length of the result counts bytes here, although its type is a text's.
    const auto map = [text](char* target, size_t size) {
        return static_cast<size_t>(LCMapStringW(LOCALE_USER_DEFAULT, LCMAP_SORTKEY | NORM_IGNORECASE, text.data(),
                                                static_cast<int>(text.size()), reinterpret_cast<wchar_t*>(target),
                                                static_cast<int>(size)));
    };
    if (text.empty())
        return {};
    const size_t usual = usualKeySize(text.size());
    char* bytes = room(usual);
    size_t size = map(bytes, usual);
    if (size == 0 && GetLastError() == ERROR_INSUFFICIENT_BUFFER) {
        const size_t wanted = map(nullptr, 0);
        bytes = room(wanted);
        size = map(bytes, wanted);
    }
    // The next key would have the address of an empty one.
    return size > 0 ? std::string_view(bytes, size) : std::string_view();
}

} // namespace velk
