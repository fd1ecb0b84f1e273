#include "serverview/draggedNames.h"

#include "base/win32.h"

#include <algorithm>

namespace velk {
namespace {

// Words that mean something of their own in the SQL of a widespread database, in order. Quotes do no harm: the name is
// as the database has it.
// clang-format off
constexpr std::wstring_view sqlWords[] = {
    L"ALL", L"ALTER", L"ANALYSE", L"ANALYZE", L"AND", L"ANY", L"ARRAY", L"AS", L"ASC", L"ASYMMETRIC", L"BETWEEN",
    L"BOTH", L"BY", L"CALL", L"CASE", L"CAST", L"CHECK", L"COLLATE", L"COLUMN", L"COMMIT", L"CONNECT", L"CONSTRAINT",
    L"CREATE", L"CROSS", L"CURRENT", L"CURRENT_DATE", L"CURRENT_ROLE", L"CURRENT_SCHEMA", L"CURRENT_TIME",
    L"CURRENT_TIMESTAMP", L"CURRENT_USER", L"CURSOR", L"DATE", L"DECLARE", L"DEFAULT", L"DEFERRABLE", L"DELETE",
    L"DESC", L"DISTINCT", L"DO", L"DROP", L"ELSE", L"ELSEIF", L"END", L"EXCEPT", L"EXCEPTION", L"EXCLUDE", L"EXECUTE",
    L"EXISTS", L"FALSE", L"FETCH", L"FOR", L"FOREIGN", L"FREEZE", L"FROM", L"FULL", L"FUNCTION", L"GLOBAL", L"GRANT",
    L"GROUP", L"HAVING", L"ILIKE", L"IN", L"INDEX", L"INITIALLY", L"INNER", L"INSERT", L"INTERSECT", L"INTO", L"IS",
    L"ISNULL", L"JOIN", L"KEY", L"LATERAL", L"LEADING", L"LEFT", L"LEVEL", L"LIKE", L"LIMIT", L"LOCAL", L"LOCALTIME",
    L"LOCALTIMESTAMP", L"LOCK", L"MINUS", L"MODIFY", L"NATURAL", L"NOT", L"NOTNULL", L"NULL", L"NUMBER", L"OF",
    L"OFFSET", L"ON", L"ONLY", L"OPTION", L"OR", L"ORDER", L"OUT", L"OUTER", L"OVER", L"OVERLAPS", L"PARTITION",
    L"PLACING", L"PRIMARY", L"PRIOR", L"PROCEDURE", L"PUBLIC", L"REFERENCES", L"RETURN", L"RETURNING", L"REVOKE",
    L"RIGHT", L"ROLLBACK", L"ROW", L"ROWS", L"SELECT", L"SESSION_USER", L"SET", L"SIMILAR", L"SOME", L"START",
    L"SYMMETRIC", L"SYNONYM", L"SYSDATE", L"TABLE", L"TABLESAMPLE", L"THEN", L"TO", L"TOP", L"TRAILING", L"TRIGGER",
    L"TRUE", L"TRUNCATE", L"UNION", L"UNIQUE", L"UPDATE", L"USER", L"USING", L"VALUES", L"VARIADIC", L"VERBOSE",
    L"VIEW", L"WHEN", L"WHERE", L"WHILE", L"WINDOW", L"WITH",
};
// clang-format on
static_assert(std::is_sorted(std::begin(sqlWords), std::end(sqlWords)));

bool isDigit(wchar_t character) noexcept
{
    return character >= L'0' && character <= L'9';
}

bool isOfAName(wchar_t character) noexcept
{
    return IsCharAlphaW(character) || isDigit(character) || character == L'_';
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
