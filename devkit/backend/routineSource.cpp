#include "devkit/backend/routineSource.h"

#include "devkit/base/words.h"

#include <algorithm>
#include <cwchar>
#include <optional>
#include <sstream>
#include <string_view>
#include <utility>

namespace velk::devkit {
namespace {

// The head of a source is short; what comes later is the routine's body.
constexpr size_t longestHead = 8192;

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

// The place of a word of a statement, in letters of either case; a word inside another does not count.
size_t wordPlace(const std::wstring& text, std::wstring_view word, size_t from)
{
    for (size_t place = from; place + word.size() <= text.size(); ++place)
        if (wordStandsAt(text, place, word, L"_"))
            return place;
    return std::wstring::npos;
}

// Reads a text piece by piece. (No regular expressions: those of the library run out of stack on long lines.)
class Reader {
public:
    explicit Reader(std::wstring text) : m_text(std::move(text)) {}

    // Passes over the word if it stands next.
    bool accept(std::wstring_view word)
    {
        skipSpace();
        if (wordPlace(m_text.substr(m_place, word.size() + 1), word, 0) != 0)
            return false;
        m_place += word.size();
        return true;
    }
    std::wstring until(const wchar_t* ends)
    {
        skipSpace();
        const size_t end = std::min(m_text.find_first_of(ends, m_place), m_text.size());
        return m_text.substr(std::exchange(m_place, end), end - m_place);
    }
    std::wstring rest()
    {
        skipSpace();
        return m_text.substr(m_place);
    }

private:
    void skipSpace() { m_place = std::min(m_text.find_first_not_of(L" \t\r\n", m_place), m_text.size()); }

    std::wstring m_text;
    size_t m_place = 0;
};

// Behind "CREATE [OR REPLACE] PROCEDURE" or "... FUNCTION"; nothing when there is no such statement.
std::optional<Reader> statementIn(const std::wstring& head)
{
    constexpr std::wstring_view create = L"CREATE";
    for (size_t place = wordPlace(head, create, 0); place != std::wstring::npos;
         place = wordPlace(head, create, place + 1)) {
        Reader reader(head.substr(place + create.size()));
        if (reader.accept(L"OR") && !reader.accept(L"REPLACE"))
            continue;
        if (reader.accept(L"PROCEDURE") || reader.accept(L"FUNCTION"))
            return reader;
    }
    return std::nullopt;
}

} // namespace

ObjectFacts parseRoutine(const std::wstring& source)
{
    constexpr std::wstring_view language = L"LANGUAGE";
    ObjectFacts facts;
    auto statement = statementIn(readRemarks(facts, source));
    if (!statement)
        return facts;
    const std::wstring full = statement->until(L" \t\n(");
    const size_t dot = full.find(L'.');
    facts.schema = dot == std::wstring::npos ? L"" : full.substr(0, dot);
    facts.name = dot == std::wstring::npos ? full : full.substr(dot + 1);
    std::wstring rest = statement->rest();
    const size_t close = rest.starts_with(L"(") ? closingBracket(rest, 0) : std::wstring::npos;
    if (close != std::wstring::npos) {
        facts.parameters = onOneLine(rest.substr(1, close - 1));
        rest.erase(0, close + 1);
    }
    const size_t named = wordPlace(rest, language, 0);
    if (Reader result(rest.substr(0, named)); result.accept(L"RETURNS"))
        facts.result = trimmed(result.until(L"\n"));
    if (named != std::wstring::npos)
        facts.language = Reader(rest.substr(named + language.size())).until(L" \t\n;");
    return facts;
}

std::wstring comparable(const std::wstring& source)
{
    std::wstring text = source;
    std::erase(text, L'\r');
    return text;
}

} // namespace velk::devkit
