// What the list does while many of its rows are selected, and what a filter costs when many rows change, too.
#include "filteredScreen.h"
#include "measure.h"

#include "serverview/viewAPIs.h"

namespace velk::bench {
namespace {

// A tenth of all rows have it, here and there.
constexpr wchar_t tenth[] = L"procedure3";

// All rows are selected, and a tenth of them is left.
Outcome keyWithAllSelected(int32_t objects)
{
    const FilteredScreen screen(objects);
    const auto prepare = [&] {
        screen.write(L"procedure");
        screen.select(true);
    };
    return {
        runPairs({prepare, [&] { screen.press(tenth[9]); }}, {[&] { screen.write(L""); }, [&] { screen.paint(); }})};
}

// A tenth was looked for and selected, and is among all rows again.
Outcome endWithAllSelected(int32_t objects)
{
    const FilteredScreen screen(objects);
    const auto prepare = [&] {
        screen.select(false);
        screen.write(tenth);
        screen.select(true);
    };
    return {runPairs({prepare, [&] { screen.empty(); }}, {[&] { screen.write(L""); }, [&] { screen.paint(); }})};
}

// Each time the next one from above, which moves all others.
Outcome removalAboveSelected(int32_t objects)
{
    const FilteredScreen screen(objects);
    screen.write(tenth);
    screen.select(true);
    screen.empty();
    int32_t next = QuickTool::firstObject;
    const auto remove = [&] {
        removeListRow(L"8", makeKey(next++));
        screen.paint();
    };
    return {runPairs({{}, remove}, {{}, [&] { screen.paint(); }})};
}

// Half of the rows are hidden. Of some of them each is removed, and the row behind it, which is shown, renamed.
Side changes(int32_t objects, const wchar_t* filter, std::unique_ptr<RowModel>& rows)
{
    constexpr int32_t times = 1000;
    const auto make = [&rows, objects, filter] {
        rows = std::make_unique<RowModel>();
        for (int32_t handle = 0; handle < objects; ++handle) {
            const std::wstring name = (handle % 2 ? L"odd" : L"even") + std::to_wstring(handle);
            rows->add(velk::Row::make(handle, std::vector<std::wstring_view>{name}, {}, {}));
        }
        rows->placeAddedLast();
        const std::vector<std::wstring> headers{L"name"};
        rows->setFilter(RowFilter(filter, headers));
        static_cast<void>(rows->size());
    };
    const auto change = [&rows] {
        for (int32_t time = 0; time < times; ++time) {
            rows->remove(2 * time);
            rows->change(2 * time + 1, {L"odd again", {}, {}});
        }
        static_cast<void>(rows->size());
    };
    return {make, change};
}

Outcome changesOfFilteredRows(int32_t objects)
{
    std::unique_ptr<RowModel> filtered;
    std::unique_ptr<RowModel> all;
    return {runPairs(changes(objects, L"odd", filtered), changes(objects, L"", all))};
}

// clang-format off
constexpr Row rows[] = {
    {"filter-changes",  "ms", 3,  false, "1,000 hidden rows of 100,000 removed and as many shown ones renamed, in turn", "the same without a filter", changesOfFilteredRows},
    {"filter-selected", "ms", 10, true,  "a key that leaves a tenth of 100,000 rows, all of which are selected", "painting the list once", keyWithAllSelected},
    {"select-end",      "ms", 10, true,  "the end of a filter whose tenth of 100,000 rows stays selected", "painting the list once", endWithAllSelected},
    {"select-remove",   "ms", 10, true,  "the first row is removed while a tenth of 100,000 rows is selected, here and there", "painting the list once", removalAboveSelected},
};
// clang-format on

} // namespace

std::span<const Row> selectionRows()
{
    return rows;
}

} // namespace velk::bench
