#include "serverview/keptText.h"

#include <array>
#include <limits>

namespace velk {
namespace {

constexpr uint64_t base = 10;

} // namespace

void KeptReader::fail() noexcept
{
    m_hasFailed = true;
    m_rest = {};
}

void KeptReader::word(std::wstring_view expected) noexcept
{
    if (!m_rest.starts_with(expected))
        return fail();
    m_rest.remove_prefix(expected.size());
}

bool KeptReader::take(wchar_t character) noexcept
{
    const bool isThere = m_rest.starts_with(character);
    m_rest.remove_prefix(isThere ? 1 : 0);
    return isThere;
}

void KeptReader::expect(wchar_t character) noexcept
{
    if (!take(character))
        fail();
}

bool KeptReader::isAtDigit() const noexcept
{
    return !m_rest.empty() && m_rest.front() >= L'0' && m_rest.front() <= L'9';
}

uint64_t KeptReader::number(uint64_t least, uint64_t most) noexcept
{
    uint64_t value = 0;
    bool isThere = false;
    while (isAtDigit()) {
        const auto digit = static_cast<uint64_t>(m_rest.front() - L'0');
        if (digit > most || value > (most - digit) / base) {
            fail();
            return least;
        }
        value = value * base + digit;
        m_rest.remove_prefix(1);
        isThere = true;
    }
    if (!isThere || value < least) {
        fail();
        return least;
    }
    return value;
}

std::wstring_view KeptReader::text(size_t longest) noexcept
{
    const auto length = static_cast<size_t>(number(0, longest));
    expect(L':');
    if (length > m_rest.size())
        fail();
    if (m_hasFailed)
        return {};
    const std::wstring_view found = m_rest.substr(0, length);
    m_rest.remove_prefix(length);
    if (found.find(L'\0') != std::wstring_view::npos) {
        fail();
        return {};
    }
    return found;
}

std::wstring keptTextOf(std::wstring_view text)
{
    return keptNumber(text.size()) + L':' + std::wstring(text);
}

std::wstring keptNumber(uint64_t number)
{
    std::array<wchar_t, std::numeric_limits<uint64_t>::digits10 + 1> digits{};
    auto place = digits.end();
    do {
        *--place = static_cast<wchar_t>(L'0' + number % base);
        number /= base;
    } while (number > 0);
    return {place, digits.end()};
}

} // namespace velk
