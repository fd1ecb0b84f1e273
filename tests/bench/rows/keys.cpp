// One row by its key, among many rows and among few.
#include "measure.h"
#include "screen.h"

#include "serverview/viewAPIs.h"

namespace velk::bench {
namespace {

constexpr int32_t few = 100;
// Rows that are on screen cost their painting; these are below it in the short list as in the long one.
constexpr int32_t firstBelow = 50;
constexpr int32_t places = few - firstBelow;

using Deed = void (*)(Screen& screen, int32_t place, int round);

trzProcedure objectAt(int32_t place, int round)
{
    return {.lHdl = QuickTool::firstObject + place, .strName = round % 2 ? L"renamed" : L"procedure"};
}

void findNothing(Screen&, int32_t place, int)
{
    updateProcedureRow(objectAt(-place, 0)); // such handles have no row
}

void update(Screen&, int32_t place, int round)
{
    updateProcedureRow(objectAt(place, round));
}

void remove(Screen&, int32_t place, int)
{
    removeListRow(L"8", makeKey(QuickTool::firstObject + place));
}

// As many times at places that are spread over the rows below the screen.
Side spread(Screen& screen, int32_t objects, int32_t times, Deed deed)
{
    return {[&screen, objects] { screen.fill(objects); },
            [&screen, objects, times, deed] {
                const int32_t step = (objects - firstBelow) / places;
                for (int32_t time = 0; time < times; ++time)
                    deed(screen, firstBelow + time % places * step, time / places);
            }};
}

Outcome amongMany(int32_t objects, int32_t times, Deed deed)
{
    Screen screen(objects);
    screen.enterFolder();
    const double parts = times / 1000.0; // microseconds each
    return {runPairs(spread(screen, objects, times, deed), spread(screen, few, times, deed), parts, parts)};
}

Outcome findOne(int32_t objects)
{
    return amongMany(objects, 100000, findNothing);
}

Outcome updateOne(int32_t objects)
{
    return amongMany(objects, 5000, update);
}

Outcome removeOne(int32_t objects)
{
    return amongMany(objects, 20, remove);
}

// clang-format off
constexpr Row rows[] = {
    {"find",   "us", 2, false, "looking for a row by key at 100,000 rows", "at 100 rows", findOne},
    {"update", "us", 2, false, "changing a row by key at 100,000 rows",    "at 100 rows", updateOne},
    {"remove", "us", 2, false, "removing a row by key at 100,000 rows",    "at 100 rows", removeOne},
};
// clang-format on

} // namespace

std::span<const Row> keyRows()
{
    return rows;
}

} // namespace velk::bench
