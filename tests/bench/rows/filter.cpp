// One key in the filter strip, against painting the list once.
#include "filteredScreen.h"
#include "measure.h"

namespace velk::bench {
namespace {

Outcome keyAfter(int32_t objects, const wchar_t* before, wchar_t key)
{
    const FilteredScreen screen(objects);
    return {runPairs({[&] { screen.write(before); }, [&] { screen.press(key); }},
                     {[&] { screen.write(L""); }, [&] { screen.paint(); }})};
}

// No row has it: each is looked through to its end.
Outcome firstKey(int32_t objects)
{
    return keyAfter(objects, L"", L'z');
}

// All rows have it, in their last cell: each is looked through once more, and the whole list is painted.
Outcome nextKey(int32_t objects)
{
    return keyAfter(objects, L"order", L's');
}

// A wider filter begins anew, with all rows.
Outcome keyBack(int32_t objects)
{
    return keyAfter(objects, L"orders zz", VK_BACK);
}

// clang-format off
constexpr Row rows[] = {
    {"filter",        "ms", 5, true,  "a key after which no row of 100,000 is left", "painting the list once", firstKey},
    {"filter-narrow", "ms", 5, true,  "a key that leaves all rows of 100,000 as they are", "painting the list once", nextKey},
    {"filter-back",   "ms", 5, true,  "a key that takes a character back, and brings none of 100,000 rows", "painting the list once", keyBack},
};
// clang-format on

} // namespace

std::span<const Row> filterRows()
{
    return rows;
}

} // namespace velk::bench
