#include "hostBars.h"

#include <algorithm>

namespace velk::doctor {
namespace {

constexpr std::wstring_view lineBegin = L"host bars: ";
constexpr std::wstring_view noBars = L"none";
constexpr std::wstring_view betweenBars = L", ";
constexpr std::wstring_view entryMark = L"; the entry goes to ";

// Takes what a line is made of from its beginning.
class Reader {
public:
    explicit Reader(std::wstring_view line) : m_rest(line) {}

    bool isAtEnd() const { return m_rest.empty(); }
    bool take(std::wstring_view words)
    {
        if (!m_rest.starts_with(words))
            return false;
        m_rest.remove_prefix(words.size());
        return true;
    }
    bool takeNumber(std::wstring& number)
    {
        const size_t length = std::min(m_rest.find_first_not_of(L"0123456789"), m_rest.size());
        number = m_rest.substr(0, length);
        m_rest.remove_prefix(length);
        return length > 0;
    }
    // Doubled quotes inside are one.
    bool takeQuoted(std::wstring& words)
    {
        if (!take(L"\""))
            return false;
        for (words.clear(); !m_rest.empty(); m_rest.remove_prefix(1)) {
            if (take(L"\"") && !m_rest.starts_with(L'"'))
                return true;
            words += m_rest.front();
        }
        return false;
    }

private:
    std::wstring_view m_rest;
};

bool takeBar(Reader& reader, HostBar& bar)
{
    if (!reader.takeNumber(bar.number) || !reader.take(L" "))
        return false;
    bar.hasName = reader.takeQuoted(bar.words);
    return bar.hasName || (reader.take(L"(") && reader.takeQuoted(bar.words) && reader.take(L")"));
}

bool takeBars(Reader& reader, std::vector<HostBar>& bars)
{
    if (reader.take(noBars))
        return true;
    do
        if (!takeBar(reader, bars.emplace_back()))
            return false;
    while (reader.take(betweenBars));
    return true;
}

} // namespace

std::optional<HostBars> readHostBars(std::wstring_view line)
{
    Reader reader(line);
    HostBars found;
    const bool isOne = reader.take(lineBegin) && takeBars(reader, found.bars) && reader.take(entryMark) &&
                       reader.takeNumber(found.entry) && reader.isAtEnd();
    return isOne ? std::optional(std::move(found)) : std::nullopt;
}

} // namespace velk::doctor
