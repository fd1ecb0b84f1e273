#include "checker/texts.h"

#include "base/win32.h"

#include <algorithm>
#include <cstdio>
#include <cwchar>
#include <iterator>

namespace velk::check {
namespace {

constexpr size_t longestShown = 120; // characters

std::wstring widened(std::string_view bytes, UINT codePage)
{
    std::wstring text(bytes.size(), L'\0');
    const int made = bytes.empty() ? 0
                                   : MultiByteToWideChar(codePage, 0, bytes.data(), static_cast<int>(bytes.size()),
                                                         text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<size_t>(made));
    return text;
}

std::string narrowed(std::wstring_view text, UINT codePage)
{
    constexpr size_t mostBytes = 4; // of one character
    std::string bytes(text.size() * mostBytes, '\0');
    const int made = text.empty() ? 0
                                  : WideCharToMultiByte(codePage, 0, text.data(), static_cast<int>(text.size()),
                                                        bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr);
    bytes.resize(static_cast<size_t>(made));
    return bytes;
}

// Whether the code page can say each of the characters.
bool isAtHome(std::wstring_view text)
{
    BOOL isOther = FALSE;
    WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, text.data(), static_cast<int>(text.size()), nullptr, 0, nullptr,
                        &isOther);
    return !isOther;
}

} // namespace

// What is no character (a half of two, U+FFFE, U+FFFF) has no place in JSON or XML, and each Windows makes something
// else of it.
std::string toUtf8(std::wstring_view text)
{
    constexpr wchar_t noCharacter = 0xFFFD;
    std::wstring whole(text);
    for (size_t at = 0; at < whole.size(); ++at)
        if (at + 1 < whole.size() && IS_SURROGATE_PAIR(whole[at], whole[at + 1]))
            ++at;
        else if (IS_HIGH_SURROGATE(whole[at]) || IS_LOW_SURROGATE(whole[at]) || whole[at] >= 0xFFFE)
            whole[at] = noCharacter;
    return narrowed(whole, CP_UTF8);
}

std::wstring fromUtf8(std::string_view text)
{
    return widened(text, CP_UTF8);
}

bool isAnsi(std::string_view bytes)
{
    return bytes.empty() || MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, bytes.data(),
                                                static_cast<int>(bytes.size()), nullptr, 0) > 0;
}

bool looksLikeUtf8(std::string_view text)
{
    CPINFO info{};
    GetCPInfo(CP_ACP, &info);
    // A few bytes may be whole by chance, but then they hardly are characters that are at home in the code page.
    const size_t needed = info.MaxCharSize > 1 || !isAtHome(fromUtf8(text)) ? 8 : 1;
    const auto outside = static_cast<size_t>(
        std::count_if(text.begin(), text.end(), [](char byte) { return static_cast<unsigned char>(byte) >= 0xC0; }));
    return GetACP() != CP_UTF8 && outside >= needed &&
           MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(), static_cast<int>(text.size()), nullptr, 0) >
               0;
}

std::wstring fromAnsi(std::string_view bytes)
{
    return widened(bytes, CP_ACP);
}

std::string toAnsi(std::wstring_view text)
{
    return narrowed(text, CP_ACP);
}

std::string shown(std::string_view bytes)
{
    std::wstring text;
    for (const wchar_t letter : fromAnsi(bytes)) {
        if (text.size() >= longestShown) {
            text += L"...";
            break;
        }
        if (letter >= L' ' && letter != 0x7F)
            text += letter;
        else {
            wchar_t number[8]{};
            std::swprintf(number, std::size(number), L"\\x%02X", static_cast<unsigned>(letter));
            text += number;
        }
    }
    return "\"" + toUtf8(text) + "\"";
}

std::string hexadecimal(uint32_t number)
{
    char text[12]{};
    std::snprintf(text, sizeof text, "0x%08X", static_cast<unsigned>(number));
    return text;
}

} // namespace velk::check
