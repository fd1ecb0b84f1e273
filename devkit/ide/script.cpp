#include "devkit/ide/script.h"

#include "devkit/base/words.h"

#include <cwctype>
#include <sstream>

namespace velk::devkit {
namespace {

std::wstring expanded(const std::wstring& line, int number, const Definitions& definitions)
{
    std::wstring result;
    for (size_t place = 0; place < line.size();) {
        if (line[place] != L'$') {
            result += line[place++];
            continue;
        }
        size_t end = place + 1;
        while (end < line.size() && (std::iswupper(line[end]) || line[end] == L'_'))
            ++end;
        const auto found = definitions.find(line.substr(place + 1, end - place - 1));
        if (found == definitions.end())
            throw ScriptFailure(L"line " + std::to_wstring(number) + L": nothing is defined as " +
                                line.substr(place, end - place));
        result += found->second;
        place = end;
    }
    return result;
}

} // namespace

std::vector<std::wstring> split(const std::wstring& text, wchar_t separator)
{
    std::vector<std::wstring> parts(1);
    for (const wchar_t character : text) {
        if (character == separator)
            parts.emplace_back();
        else
            parts.back() += character;
    }
    return parts;
}

std::vector<ScriptLine> parseScript(const std::wstring& text, const Definitions& definitions)
{
    std::vector<ScriptLine> lines;
    std::wistringstream stream(text);
    std::wstring line;
    for (int number = 1; std::getline(stream, line); ++number) {
        line = trimmed(line);
        if (line.empty() || line.front() == L'#')
            continue;
        line = expanded(line, number, definitions);
        const size_t space = line.find(L' ');
        lines.push_back(
            {number, line.substr(0, space), space == std::wstring::npos ? L"" : trimmed(line.substr(space))});
    }
    return lines;
}

} // namespace velk::devkit
