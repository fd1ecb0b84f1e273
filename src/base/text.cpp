#include "base/text.h"

#include "base/decimal.h"
#include "base/error.h"
#include "base/win32.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace velk {
namespace {

bool isPassedOver(wchar_t character)
{
    return character == L' ' || character == L'\t' || character == L'\n' || character == L'\r';
}

bool isDigit(wchar_t character)
{
    return character >= L'0' && character <= L'9';
}

// The characters that make up the number, in the C locale's notation.
std::string numberCharacters(std::wstring_view text)
{
    enum class State { sign, whole, fraction, exponentSign, exponent } state = State::sign;
    std::string kept;
    for (const wchar_t character : text) {
        if (isPassedOver(character))
            continue;
        const bool isSign = character == L'+' || character == L'-';
        if (isSign && (state == State::sign || state == State::exponentSign))
            state = state == State::sign ? State::whole : State::exponent;
        else if (isDigit(character))
            state = state == State::sign ? State::whole : state == State::exponentSign ? State::exponent : state;
        else if (character == L'.' && state <= State::whole)
            state = State::fraction;
        else if ((character | 0x20) == L'e' || (character | 0x20) == L'd')
            if (state == State::whole || state == State::fraction)
                state = State::exponentSign;
            else
                break;
        else
            break;
        kept += state == State::exponentSign ? 'e' : static_cast<char>(character);
    }
    return kept;
}

// The exponent behind the letter, if digits follow; no sane one is beyond the limit.
int64_t exponentOf(std::string_view characters)
{
    constexpr int64_t limit = int64_t{1} << 40;
    const bool isNegative = characters.starts_with('-');
    if (isNegative || characters.starts_with('+'))
        characters.remove_prefix(1);
    int64_t exponent = 0;
    for (const char digit : characters)
        exponent = std::min(limit, exponent * 10 + (digit - '0'));
    return isNegative ? -exponent : exponent;
}

} // namespace

std::string toAnsi(std::wstring_view text)
{
    const int length = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_ACP, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<size_t>(size), '\0');
    WideCharToMultiByte(CP_ACP, 0, text.data(), length, result.data(), size, nullptr, nullptr);
    return result;
}

std::wstring toWide(std::string_view text)
{
    const int length = static_cast<int>(text.size());
    const int size = MultiByteToWideChar(CP_ACP, 0, text.data(), length, nullptr, 0);
    std::wstring result(static_cast<size_t>(size), L'\0');
    MultiByteToWideChar(CP_ACP, 0, text.data(), length, result.data(), size);
    return result;
}

std::wstring numberText(int32_t number)
{
    char digits[std::numeric_limits<int32_t>::digits10 + 2]; // and a sign
    char* const end = std::to_chars(std::begin(digits), std::end(digits), number).ptr;
    return std::wstring(std::begin(digits), end);
}

std::wstring booleanText(bool truth)
{
    return truth ? L"True" : L"False";
}

double leadingNumber(std::wstring_view text)
{
    // Leaves a dangling exponent or sign unread, as Val does. Not strtod: that takes the decimal point of the host's
    // locale.
    const std::string characters = numberCharacters(text);
    const size_t end = std::min(characters.find('e'), characters.size());
    const size_t point = std::min(characters.find('.'), end);
    const bool isSigned = characters.starts_with('-') || characters.starts_with('+');
    std::string digits = characters.substr(isSigned ? 1 : 0, end - (isSigned ? 1 : 0));
    std::erase(digits, '.');
    const auto decimals = static_cast<int64_t>(end - std::min(point + 1, end));
    const int64_t exponent = exponentOf(std::string_view(characters).substr(std::min(end + 1, characters.size())));
    const double number = nearestDouble(digits, exponent - decimals);
    return characters.starts_with('-') ? -number : number;
}

int32_t roundToLong(double number)
{
    // nearbyint rounds halves to even in the default rounding mode, which a host may have changed.
    const double floor = std::floor(number);
    const double rest = number - floor;
    const bool up = rest > 0.5 || (rest == 0.5 && std::fmod(floor, 2.0) != 0.0);
    const double rounded = floor + (up ? 1.0 : 0.0);
    if (!(rounded >= std::numeric_limits<int32_t>::min() && rounded <= std::numeric_limits<int32_t>::max()))
        throw Error(errorOverflow);
    return static_cast<int32_t>(rounded);
}

int32_t textToLong(std::wstring_view text)
{
    LONG number = 0;
    throwIfFailed(VarI4FromStr(const_cast<OLECHAR*>(std::wstring(text).c_str()), LOCALE_USER_DEFAULT, 0, &number));
    return number;
}

} // namespace velk
