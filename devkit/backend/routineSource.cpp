#include "devkit/backend/routineSource.h"

#include <cwchar>
#include <regex>
#include <sstream>

namespace velk::devkit {
namespace {

// The head of a source is short; what comes later is the routine's body.
constexpr size_t longestHead = 8192;

std::wstring trimmed(const std::wstring& text)
{
    const size_t first = text.find_first_not_of(L" \t\r\n");
    return first == std::wstring::npos ? L"" : text.substr(first, text.find_last_not_of(L" \t\r\n") - first + 1);
}

// All white space as single blanks.
std::wstring onOneLine(const std::wstring& text)
{
    std::wistringstream words(text);
    std::wstring result;
    for (std::wstring word; words >> word;)
        result += (result.empty() ? L"" : L" ") + word;
    return result;
}

void setRemark(ObjectFacts& facts, const std::wstring& name, const std::wstring& value)
{
    if (name == L"remark")
        facts.comment = value;
    else if (name == L"specific")
        facts.specific = value;
    else if (name == L"package")
        facts.package = value;
    else if (name == L"results")
        facts.resultSets = static_cast<int32_t>(std::wcstol(value.c_str(), nullptr, 10));
    else if (name == L"fenced")
        facts.fenced = value == L"yes";
}

// Reads the remarks and gives back the head without the marks of its comments.
std::wstring readRemarks(ObjectFacts& facts, const std::wstring& source)
{
    std::wistringstream lines(source.substr(0, longestHead));
    std::wstring head;
    for (std::wstring line; std::getline(lines, line);) {
        line = trimmed(line);
        if (line.starts_with(L"--") || line.starts_with(L"//")) {
            line = trimmed(line.substr(2));
            const size_t colon = line.find(L':');
            if (colon != std::wstring::npos)
                setRemark(facts, trimmed(line.substr(0, colon)), trimmed(line.substr(colon + 1)));
        }
        head += line + L'\n';
    }
    return head;
}

// The place of the bracket that closes the one at a place.
size_t closingBracket(const std::wstring& text, size_t open)
{
    int depth = 0;
    for (size_t place = open; place < text.size(); ++place) {
        depth += text[place] == L'(' ? 1 : text[place] == L')' ? -1 : 0;
        if (depth == 0)
            return place;
    }
    return std::wstring::npos;
}

std::wstring found(const std::wstring& text, const wchar_t* pattern)
{
    std::wsmatch match;
    const std::wregex expression(pattern, std::regex::icase | std::regex::ECMAScript);
    return std::regex_search(text, match, expression) ? trimmed(match[1].str()) : std::wstring();
}

} // namespace

ObjectFacts parseRoutine(const std::wstring& source)
{
    ObjectFacts facts;
    const std::wstring head = readRemarks(facts, source);
    static const std::wregex create(LR"(\bCREATE\s+(?:OR\s+REPLACE\s+)?(?:PROCEDURE|FUNCTION)\s+([^\s(]+)\s*)",
                                    std::regex::icase);
    std::wsmatch match;
    if (!std::regex_search(head, match, create))
        return facts;
    const std::wstring full = match[1].str();
    const size_t dot = full.find(L'.');
    facts.schema = dot == std::wstring::npos ? L"" : full.substr(0, dot);
    facts.name = dot == std::wstring::npos ? full : full.substr(dot + 1);
    std::wstring rest = match.suffix().str();
    const size_t close = rest.starts_with(L"(") ? closingBracket(rest, 0) : std::wstring::npos;
    if (close != std::wstring::npos) {
        facts.parameters = onOneLine(rest.substr(1, close - 1));
        rest.erase(0, close + 1);
    }
    facts.result = found(rest, LR"(^\s*RETURNS\s+([^\n]*?)\s*(?:LANGUAGE\b|\n|$))");
    facts.language = found(rest, LR"(\bLANGUAGE\s+(\w+))");
    return facts;
}

std::wstring comparable(const std::wstring& source)
{
    std::wstring text = source;
    std::erase(text, L'\r');
    return text;
}

} // namespace velk::devkit
