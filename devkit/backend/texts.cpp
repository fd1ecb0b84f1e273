#include "devkit/backend/texts.h"

#include "base/module.h"
#include "devkit/backend/systemFile.h"

#include <cwchar>

namespace velk::devkit {
namespace {

std::wstring unescaped(std::wstring_view text)
{
    std::wstring result;
    for (size_t place = 0; place < text.size(); ++place) {
        const bool lineFeed = text.substr(place, 2) == L"\\n";
        result += lineFeed ? L'\n' : text[place];
        place += lineFeed ? 1 : 0;
    }
    return result;
}

std::wstring builtInTexts()
{
    const HMODULE module = module::instance();
    const HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(1), MAKEINTRESOURCEW(10)); // 10: raw data
    const HGLOBAL loaded = found ? LoadResource(module, found) : nullptr;
    if (!loaded)
        return {};
    return fromUtf8({static_cast<const char*>(LockResource(loaded)), SizeofResource(module, found)});
}

} // namespace

TextTable::TextTable(std::wstring_view lines)
{
    while (!lines.empty()) {
        const size_t end = lines.find(L'\n');
        std::wstring_view line = lines.substr(0, end);
        lines.remove_prefix(end == std::wstring_view::npos ? lines.size() : end + 1);
        if (line.ends_with(L'\r'))
            line.remove_suffix(1);
        const size_t equals = line.find(L'=');
        const int32_t number =
            static_cast<int32_t>(std::wcstol(std::wstring(line.substr(0, equals)).c_str(), nullptr, 10));
        if (equals != std::wstring_view::npos && number > 0)
            m_texts[number] = unescaped(line.substr(equals + 1));
    }
}

std::wstring TextTable::text(int32_t number, const std::vector<std::wstring>& parameters) const
{
    const auto found = m_texts.find(number);
    if (found == m_texts.end())
        return {};
    const std::wstring& form = found->second;
    std::wstring result;
    for (size_t place = 0; place < form.size(); ++place) {
        const bool mark =
            form[place] == L'%' && place + 1 < form.size() && form[place + 1] >= L'1' && form[place + 1] <= L'9';
        if (!mark) {
            result += form[place];
            continue;
        }
        const auto parameter = static_cast<size_t>(form[++place] - L'1');
        result += parameter < parameters.size() ? parameters[parameter] : std::wstring();
    }
    return result;
}

std::wstring quoted(const std::wstring& text)
{
    std::wstring result = L"\"";
    for (const wchar_t letter : text)
        result += letter == L'"' ? L"\"\"" : std::wstring(1, letter);
    return result + L"\"";
}

TextTable loadTexts()
{
    const std::wstring path = environmentText(L"VELK_BACKEND_TEXTS");
    const auto bytes = path.empty() ? std::nullopt : readBytes(path);
    return TextTable(bytes ? fromUtf8(*bytes) : builtInTexts());
}

} // namespace velk::devkit
