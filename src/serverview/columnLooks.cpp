#include "serverview/columnLooks.h"

#include "serverview/keptText.h"

#include <algorithm>
#include <numeric>

namespace velk {
namespace {

// Narrower ones could not be seen, wider ones not be reached the end of (twips: 8 pixels and 8,000 at 96 dpi).
constexpr int leastWidth = 120;
constexpr int greatestWidth = 120'000;

std::vector<size_t> asTheyCome(size_t columns)
{
    std::vector<size_t> places(columns);
    std::iota(places.begin(), places.end(), size_t{0});
    return places;
}

bool areAllColumns(std::vector<size_t> places, size_t columns)
{
    std::sort(places.begin(), places.end());
    return places == asTheyCome(columns);
}

std::wstring listOf(const std::vector<size_t>& numbers)
{
    std::wstring list;
    for (const size_t number : numbers)
        list += (list.empty() ? L"" : L",") + keptNumber(number);
    return list;
}

std::vector<size_t> readList(KeptReader& reader, size_t columns)
{
    std::vector<size_t> numbers;
    while (reader.isAtDigit() && numbers.size() < columns) {
        numbers.push_back(static_cast<size_t>(reader.number(0, columns - 1)));
        if (!reader.take(L','))
            break;
    }
    reader.expect(L';');
    return numbers;
}

ColumnLooks read(KeptReader& reader, size_t columns)
{
    ColumnLooks looks(columns);
    for (size_t column = 0; column < columns && !reader.hasFailed(); ++column) {
        if (column > 0)
            reader.expect(L',');
        if (reader.isAtDigit())
            looks.widths[column] = static_cast<int>(reader.number(leastWidth, greatestWidth));
    }
    reader.expect(L';');
    looks.places = readList(reader, columns);
    looks.hidden = readList(reader, columns);
    const bool isDescending = reader.take(L'-');
    if (isDescending || reader.take(L'+'))
        looks.order = {static_cast<size_t>(reader.number(0, columns - 1)), isDescending};
    return looks;
}

} // namespace

bool ColumnLooks::isHidden(size_t column) const noexcept
{
    return std::binary_search(hidden.begin(), hidden.end(), column);
}

void ColumnLooks::hide(size_t column, bool isHidden)
{
    const auto place = std::lower_bound(hidden.begin(), hidden.end(), column);
    const bool isThere = place != hidden.end() && *place == column;
    if (isHidden && !isThere && column > 0)
        hidden.insert(place, column);
    if (!isHidden && isThere)
        hidden.erase(place);
}

std::vector<size_t> ColumnLooks::shown() const
{
    std::vector<size_t> columns = asTheyCome(widths.size());
    std::erase_if(columns, [this](size_t column) { return isHidden(column); });
    return columns;
}

std::vector<int> ColumnLooks::shownPlaces() const
{
    const std::vector<size_t> columns = shown();
    std::vector<int> numbers;
    for (const size_t column : places.empty() ? asTheyCome(widths.size()) : places)
        if (!isHidden(column))
            numbers.push_back(
                static_cast<int>(std::lower_bound(columns.begin(), columns.end(), column) - columns.begin()));
    return numbers;
}

void ColumnLooks::movePlaces(const std::vector<int>& shownPlaces)
{
    const std::vector<size_t> columns = shown();
    if (shownPlaces.size() != columns.size())
        return;
    std::vector<size_t> moved = places.empty() ? asTheyCome(widths.size()) : places;
    auto next = shownPlaces.begin();
    for (size_t& column : moved) // a hidden one stays where it is
        if (!isHidden(column))
            column = columns.at(static_cast<size_t>(*next++));
    if (!areAllColumns(moved, widths.size()))
        return;
    places = moved == asTheyCome(widths.size()) ? std::vector<size_t>() : moved;
}

std::wstring keptTextOf(const ColumnLooks& looks)
{
    if (looks == ColumnLooks(looks.widths.size()))
        return {};
    std::wstring text(keptVersion);
    for (size_t column = 0; column < looks.widths.size(); ++column) {
        const int width = std::min(looks.widths[column], greatestWidth);
        text += (column > 0 ? L"," : L"") +
                (width >= leastWidth ? keptNumber(static_cast<uint64_t>(width)) : std::wstring());
    }
    text += L';' + listOf(looks.places) + L';' + listOf(looks.hidden) + L';';
    if (looks.order.column)
        text += (looks.order.isDescending ? L'-' : L'+') + keptNumber(*looks.order.column);
    return text;
}

ColumnLooks columnLooksOf(std::wstring_view keptText, size_t columns)
{
    if (columns == 0)
        return ColumnLooks();
    KeptReader reader(keptText);
    ColumnLooks looks = read(reader, columns);
    const bool isAscending =
        std::adjacent_find(looks.hidden.begin(), looks.hidden.end(), std::greater_equal<>()) == looks.hidden.end();
    const bool fits = reader.isWhole() && (looks.places.empty() || areAllColumns(looks.places, columns)) &&
                      isAscending && !looks.isHidden(0);
    return fits ? looks : ColumnLooks(columns);
}

} // namespace velk
