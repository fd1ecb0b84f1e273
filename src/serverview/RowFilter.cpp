#include "serverview/RowFilter.h"

#include "base/win32.h"

#include <algorithm>
#include <numeric>

namespace velk {
namespace {

constexpr size_t characterCount = 0x10000;

bool isBlank(wchar_t character) noexcept
{
    constexpr std::wstring_view blanks = L" \t\u00a0\u3000";
    return blanks.find(character) != std::wstring_view::npos;
}

// First to capitals and then back, so that those with one capital are alike. As no user's language does it: a filter
// finds the same rows everywhere.
std::vector<wchar_t> foldTable()
{
    std::vector<wchar_t> table(characterCount);
    std::vector<wchar_t> capitals(characterCount);
    std::iota(table.begin(), table.end(), L'\0');
    constexpr int count = static_cast<int>(characterCount);
    if (LCMapStringW(LOCALE_INVARIANT, LCMAP_UPPERCASE, table.data(), count, capitals.data(), count) == count)
        LCMapStringW(LOCALE_INVARIANT, LCMAP_LOWERCASE, capitals.data(), count, table.data(), count);
    return table;
}

} // namespace

// A part of the text up to a blank, without its quotes.
struct RowFilter::Scanned {
    std::wstring characters;
    size_t colon = std::wstring::npos; // the first one outside of quotes
    bool isExcluded = false;

    // Reads on in a text from a place that is no blank's; gives the place behind.
    size_t read(std::wstring_view text, size_t place)
    {
        isExcluded = text[place] == L'-';
        if (isExcluded)
            ++place;
        bool isQuoted = false;
        for (; place < text.size() && (isQuoted || !isBlank(text[place])); ++place) {
            if (text[place] == L'"') {
                isQuoted = !isQuoted;
                continue;
            }
            if (text[place] == L':' && !isQuoted)
                colon = std::min(colon, characters.size());
            characters += text[place];
        }
        return place;
    }
};

RowFilter::RowFilter(std::wstring_view text, std::span<const std::wstring> headers)
{
    for (size_t place = 0; place < text.size();) {
        if (isBlank(text[place])) {
            ++place;
            continue;
        }
        if (m_folds.empty())
            m_folds = foldTable();
        Scanned scanned;
        place = scanned.read(text, place);
        add(scanned, headers);
    }
}

void RowFilter::add(const Scanned& scanned, std::span<const std::wstring> headers)
{
    const std::wstring_view characters = scanned.characters;
    const size_t colon = std::min(scanned.colon, characters.size());
    const std::optional<size_t> column =
        colon < characters.size() ? columnOf(characters.substr(0, colon), headers) : std::nullopt;
    std::wstring word = folded(column ? characters.substr(colon + 1) : characters);
    if (!word.empty())
        m_terms.push_back({std::move(word), column, scanned.isExcluded});
}

std::optional<size_t> RowFilter::columnOf(std::wstring_view header, std::span<const std::wstring> headers) const
{
    const auto found = std::find_if(headers.begin(), headers.end(), [&](const std::wstring& text) {
        return !header.empty() && folded(text) == folded(header);
    });
    return found == headers.end() ? std::nullopt : std::optional(static_cast<size_t>(found - headers.begin()));
}

std::wstring RowFilter::folded(std::wstring_view text) const
{
    std::wstring result(text);
    for (wchar_t& character : result)
        character = m_folds[character];
    return result;
}

bool RowFilter::begins(const wchar_t* place, std::wstring_view word) const noexcept
{
    const wchar_t* const folds = m_folds.data();
    for (const wchar_t character : word)
        if (folds[*place++] != character)
            return false;
    return true;
}

size_t RowFilter::find(std::wstring_view text, std::wstring_view word, size_t from) const noexcept
{
    if (text.size() < word.size())
        return std::wstring_view::npos;
    const wchar_t* const folds = m_folds.data();
    const wchar_t first = word.front();
    const wchar_t* const end = text.data() + (text.size() - word.size()) + 1;
    for (const wchar_t* place = text.data() + std::min(from, text.size()); place < end; ++place)
        if (folds[*place] == first && begins(place, word))
            return static_cast<size_t>(place - text.data());
    return std::wstring_view::npos;
}

// All cells' texts stand one behind the other: they are looked through together, and what is found is no find when it
// goes over the end of a cell.
bool RowFilter::isInACell(const Row& row, std::wstring_view word) const noexcept
{
    const std::wstring_view texts = row.texts();
    size_t end = 0;
    size_t column = 0;
    for (size_t found = find(texts, word, 0); found < texts.size(); found = find(texts, word, found + 1)) {
        while (end <= found)
            end += row.cell(column++).size();
        if (found + word.size() <= end)
            return true;
    }
    return false;
}

bool RowFilter::matches(const Row& row) const noexcept
{
    return std::all_of(m_terms.begin(), m_terms.end(), [&](const Term& term) {
        const bool isThere = term.column ? find(row.cell(*term.column), term.word, 0) != std::wstring_view::npos
                                         : isInACell(row, term.word);
        return isThere != term.isExcluded;
    });
}

// What has a longer word, or has it in one column, has the shorter one, or has it anywhere; what must not have it, the
// other way round.
bool RowFilter::Term::implies(const Term& other) const noexcept
{
    const Term& narrow = isExcluded ? other : *this;
    const Term& wide = isExcluded ? *this : other;
    return isExcluded == other.isExcluded && (!wide.column || wide.column == narrow.column) &&
           narrow.word.find(wide.word) != std::wstring::npos;
}

bool RowFilter::isWithin(const RowFilter& other) const noexcept
{
    return std::all_of(other.m_terms.begin(), other.m_terms.end(), [this](const Term& wanted) {
        return std::any_of(m_terms.begin(), m_terms.end(), [&](const Term& term) { return term.implies(wanted); });
    });
}

} // namespace velk
