#include "devkit/backend/routineBody.h"

#include "devkit/base/words.h"

#include <cwchar>
#include <sstream>

namespace velk::devkit {
namespace {

constexpr const wchar_t* spaceOrEnd = L" \t\r\n;";
constexpr const wchar_t* wordMarks = L"_."; // a name is one word with its qualifier
constexpr const wchar_t* numberTypes[] = {L"INT", L"DEC", L"NUM", L"FLOAT", L"DOUBLE", L"REAL", L"SMALL", L"BIG"};

bool isSame(const std::wstring& left, const std::wstring& right)
{
    return _wcsicmp(left.c_str(), right.c_str()) == 0;
}

// Parts of a text, split where a letter stands outside of brackets and quotes.
std::vector<std::wstring> splitOutside(const std::wstring& text, wchar_t separator)
{
    std::vector<std::wstring> parts(1);
    int depth = 0;
    bool quoted = false;
    for (const wchar_t letter : text) {
        quoted = quoted != (letter == L'\'');
        depth += quoted ? 0 : letter == L'(' ? 1 : letter == L')' ? -1 : 0;
        if (letter == separator && depth == 0 && !quoted)
            parts.emplace_back();
        else
            parts.back() += letter;
    }
    return parts;
}

// The place of a word outside of comments; the last one if wanted.
size_t wordPlace(const std::wstring& text, const std::wstring& word, bool last)
{
    size_t found = std::wstring::npos;
    for (size_t place = 0; place + word.size() <= text.size(); ++place) {
        if (text.compare(place, 2, L"--") == 0) {
            place = text.find(L'\n', place);
            if (place == std::wstring::npos)
                break;
            continue;
        }
        if (wordStandsAt(text, place, word, wordMarks)) {
            found = place;
            if (!last)
                break;
        }
    }
    return found;
}

std::wstring bodyOf(const std::wstring& source)
{
    const size_t begin = wordPlace(source, L"BEGIN", false);
    if (begin != std::wstring::npos) {
        const size_t end = wordPlace(source, L"END", true);
        return source.substr(begin + 5, end == std::wstring::npos || end < begin ? end : end - begin - 5);
    }
    const size_t result = wordPlace(source, L"RETURN", false);
    return result == std::wstring::npos ? L"" : source.substr(result + 6);
}

std::wstring valueOf(const std::wstring& word, const std::wstring& routine,
                     const std::map<std::wstring, std::wstring>& values)
{
    for (const auto& [name, value] : values)
        if (isSame(word, name) || isSame(word, routine + L"." + name))
            return value;
    return word;
}

std::wstring withValues(const std::wstring& statement, const std::wstring& routine,
                        const std::map<std::wstring, std::wstring>& values)
{
    std::wstring result;
    bool quoted = false;
    for (size_t place = 0; place < statement.size();) {
        const wchar_t letter = statement[place];
        quoted = quoted != (letter == L'\'');
        size_t end = place;
        while (!quoted && end < statement.size() && isWordLetter(statement[end], wordMarks))
            ++end;
        if (end == place) {
            result += letter;
            ++place;
            continue;
        }
        result += valueOf(statement.substr(place, end - place), routine, values);
        place = end;
    }
    return result;
}

} // namespace

std::vector<RoutineParameter> parametersOf(const ObjectFacts& facts)
{
    std::vector<RoutineParameter> parameters;
    for (const std::wstring& part : splitOutside(facts.parameters, L',')) {
        std::wistringstream words(part);
        RoutineParameter parameter;
        words >> parameter.name;
        if (isSame(parameter.name, L"IN") || isSame(parameter.name, L"OUT") || isSame(parameter.name, L"INOUT"))
            words >> parameter.name;
        std::getline(words, parameter.type);
        parameter.type = trimmed(parameter.type, spaceOrEnd);
        if (!parameter.name.empty())
            parameters.push_back(parameter);
    }
    return parameters;
}

bool isWrittenIn(const ObjectFacts& facts, const wchar_t* language)
{
    return isSame(facts.language, language);
}

std::map<std::wstring, std::wstring> nothingFor(const ObjectFacts& facts)
{
    std::map<std::wstring, std::wstring> values;
    for (const RoutineParameter& parameter : parametersOf(facts))
        values[parameter.name] = L"NULL";
    return values;
}

std::wstring defaultValue(const RoutineParameter& parameter)
{
    for (const wchar_t* type : numberTypes)
        if (_wcsnicmp(parameter.type.c_str(), type, std::wcslen(type)) == 0)
            return L"1";
    return L"''";
}

std::vector<std::wstring> statementsOf(const std::wstring& source, const ObjectFacts& facts,
                                       const std::map<std::wstring, std::wstring>& values)
{
    std::vector<std::wstring> statements;
    for (const std::wstring& part : splitOutside(bodyOf(source), L';'))
        if (const std::wstring statement = trimmed(part, spaceOrEnd); !statement.empty())
            statements.push_back(withValues(statement, facts.name, values));
    return statements;
}

} // namespace velk::devkit
