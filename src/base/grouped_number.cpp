#include "base/grouped_number.h"

#include "base/win32.h"

#include <array>
#include <charconv>

namespace velk {
namespace {

// How many digits stand in a group, as the system's formatting wants it told: "3;0" is 3, "3;2;0" is 32, and without
// the zero that repeats the last group, "3", it is 30.
UINT groups() noexcept
{
    std::array<wchar_t, 16> said{};
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SGROUPING, said.data(), static_cast<int>(said.size()));
    UINT grouping = 0;
    wchar_t last = L'0';
    for (size_t index = 0; index < said.size() && said[index]; ++index) {
        if (said[index] == L';')
            continue;
        last = said[index];
        if (last != L'0')
            grouping = grouping * 10 + static_cast<UINT>(last - L'0');
    }
    return last == L'0' ? grouping : grouping * 10;
}

} // namespace

std::wstring groupedNumber(size_t number)
{
    // Not by the library's own text of a number, which brings all of its formatted output along.
    std::array<char, 24> plain{};
    const std::wstring digits(plain.begin(), std::to_chars(plain.data(), plain.data() + plain.size(), number).ptr);
    std::array<wchar_t, 8> point{L'.'};
    std::array<wchar_t, 8> separator{};
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_STHOUSAND, separator.data(), static_cast<int>(separator.size()));
    NUMBERFMTW format{0, 1, groups(), point.data(), separator.data(), 0};
    std::array<wchar_t, 64> text{};
    const int length =
        GetNumberFormatW(LOCALE_USER_DEFAULT, 0, digits.c_str(), &format, text.data(), static_cast<int>(text.size()));
    return length > 0 ? std::wstring(text.data()) : digits;
}

} // namespace velk
