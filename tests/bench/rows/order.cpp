// The rows put into another order by a click on a column; painting them is not counted on either side.
#include "measure.h"
#include "plainList.h"

namespace velk::bench {
namespace {

constexpr int nameColumn = 0;
constexpr int equalColumn = 1;  // the same text in every row
constexpr int numberColumn = 3; // neither the names' order nor that of arrival

struct Lists {
    explicit Lists(int32_t objects) : screen(objects), plain((screen.enterFolder(), screen), objects)
    {
        screen.fill(objects);
        plain.fill(objects);
    }
    void orderBy(int column)
    {
        screen.orderBy(column);
        screen.paint();
    }
    Screen screen;
    PlainList plain;
};

Outcome byName(int32_t objects)
{
    Lists lists(objects);
    return {runPairs({[&] { lists.orderBy(numberColumn); }, [&] { lists.screen.orderBy(nameColumn); }},
                     {[&] { lists.plain.orderAsFilled(); }, [&] { lists.plain.orderBy(nameColumn, false); }})};
}

Outcome reverse(int32_t objects)
{
    Lists lists(objects);
    const auto orderByName = [&] {
        lists.orderBy(numberColumn);
        lists.orderBy(nameColumn);
    };
    return {
        runPairs({orderByName, [&] { lists.screen.orderBy(nameColumn); }},
                 {[&] { lists.plain.orderBy(nameColumn, false); }, [&] { lists.plain.orderBy(nameColumn, true); }})};
}

Outcome byEqualTexts(int32_t objects)
{
    Lists lists(objects);
    return {runPairs({[&] { lists.orderBy(nameColumn); }, [&] { lists.screen.orderBy(equalColumn); }},
                     {[&] { lists.plain.orderAsFilled(); }, [&] { lists.plain.orderBy(equalColumn, false); }})};
}

constexpr const char* sortItems = "LVM_SORTITEMS with lstrcmpiW";

// clang-format off
constexpr Row rows[] = {
    {"sort-name",    "ms", 0.10, true, "ordering 100,000 rows by name", sortItems, byName},
    {"sort-reverse", "ms", 0.02, true, "reversing that order", sortItems, reverse},
    {"sort-equal",   "ms", 0.10, true, "ordering 100,000 rows by equal texts", sortItems, byEqualTexts},
};
// clang-format on

} // namespace

std::span<const Row> orderRows()
{
    return rows;
}

} // namespace velk::bench
