#include "serverview/draggedNames.h"

#include "base/win32.h"

#include <algorithm>

namespace velk {
namespace {

// Words that mean something of their own in the SQL of all widespread databases, in order.
// clang-format off
constexpr std::wstring_view sqlWords[] = {
    L"ALL", L"ALTER", L"AND", L"ANY", L"AS", L"ASC", L"BETWEEN", L"BY", L"CALL", L"CASE", L"CAST", L"CHECK", L"COLUMN",
    L"COMMIT", L"CONSTRAINT", L"CREATE", L"CROSS", L"CURRENT", L"CURRENT_DATE", L"CURRENT_TIME", L"CURRENT_TIMESTAMP",
    L"CURRENT_USER", L"CURSOR", L"DECLARE", L"DEFAULT", L"DELETE", L"DESC", L"DISTINCT", L"DROP", L"ELSE", L"END",
    L"EXCEPT", L"EXECUTE", L"EXISTS", L"FALSE", L"FETCH", L"FOR", L"FOREIGN", L"FROM", L"FULL", L"FUNCTION", L"GRANT",
    L"GROUP", L"HAVING", L"IN", L"INDEX", L"INNER", L"INSERT", L"INTERSECT", L"INTO", L"IS", L"JOIN", L"KEY", L"LEFT",
    L"LIKE", L"NATURAL", L"NOT", L"NULL", L"OF", L"ON", L"OR", L"ORDER", L"OUTER", L"PRIMARY", L"PROCEDURE",
    L"REFERENCES", L"REVOKE", L"RIGHT", L"ROLLBACK", L"SELECT", L"SESSION_USER", L"SET", L"SOME", L"TABLE", L"THEN",
    L"TO", L"TRIGGER", L"TRUE", L"UNION", L"UNIQUE", L"UPDATE", L"USER", L"USING", L"VALUES", L"VIEW", L"WHEN",
    L"WHERE", L"WITH",
};
// clang-format on
static_assert(std::is_sorted(std::begin(sqlWords), std::end(sqlWords)));

bool isDigit(wchar_t character) noexcept
{
    return character >= L'0' && character <= L'9';
}

bool isOfAName(wchar_t character) noexcept
{
    return IsCharAlphaW(character) || isDigit(character) || character == L'_' || character == L'$' || character == L'#';
}

bool isSqlWord(std::wstring_view name)
{
    std::wstring capitals(name);
    for (wchar_t& letter : capitals)
        if (letter >= L'a' && letter <= L'z')
            letter = static_cast<wchar_t>(letter - L'a' + L'A');
    return std::binary_search(std::begin(sqlWords), std::end(sqlWords), std::wstring_view(capitals));
}

bool needsQuotes(std::wstring_view name)
{
    const auto any = [&](auto is) { return std::any_of(name.begin(), name.end(), is); };
    const bool isOrdinary = !isDigit(name.front()) && std::all_of(name.begin(), name.end(), isOfAName);
    const bool wouldLoseItsCase = any([](wchar_t letter) { return IsCharUpperW(letter) != FALSE; }) &&
                                  any([](wchar_t letter) { return IsCharLowerW(letter) != FALSE; });
    return !isOrdinary || wouldLoseItsCase || isSqlWord(name);
}

} // namespace

std::wstring sqlName(std::wstring_view name)
{
    if (name.empty() || !needsQuotes(name))
        return std::wstring(name);
    std::wstring quoted = L"\"";
    for (const wchar_t character : name)
        quoted.append(character == L'"' ? 2 : 1, character);
    return quoted + L'"';
}

std::wstring qualifiedName(std::wstring_view schema, std::wstring_view name)
{
    if (schema.empty() || name.empty())
        return sqlName(name);
    return sqlName(schema) + L'.' + sqlName(name);
}

void DraggedNames::add(std::wstring_view schema, std::wstring_view name)
{
    if (name.empty())
        return;
    if (!m_text.empty())
        m_text += L", ";
    m_text += qualifiedName(schema, name);
}

} // namespace velk
