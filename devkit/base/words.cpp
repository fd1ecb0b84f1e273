#include "devkit/base/words.h"

#include <cwchar>
#include <cwctype>

namespace velk::devkit {

std::wstring trimmed(const std::wstring& text, const wchar_t* letters)
{
    const size_t first = text.find_first_not_of(letters);
    return first == std::wstring::npos ? L"" : text.substr(first, text.find_last_not_of(letters) - first + 1);
}

void replaceAll(std::wstring& text, const std::wstring& from, const std::wstring& to)
{
    for (size_t place = text.find(from); place != std::wstring::npos; place = text.find(from, place + to.size()))
        text.replace(place, from.size(), to);
}

bool isWordLetter(wchar_t letter, std::wstring_view more)
{
    return std::iswalnum(letter) || more.find(letter) != std::wstring_view::npos;
}

bool wordStandsAt(const std::wstring& text, size_t place, std::wstring_view word, std::wstring_view more)
{
    const size_t end = place + word.size();
    if (end > text.size() || _wcsnicmp(text.c_str() + place, word.data(), word.size()) != 0)
        return false;
    const bool begins = place == 0 || !isWordLetter(text[place - 1], more);
    const bool ends = end == text.size() || !isWordLetter(text[end], more);
    return begins && ends;
}

} // namespace velk::devkit
