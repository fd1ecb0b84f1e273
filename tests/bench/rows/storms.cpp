// Many notifications, one for each object. How many of them one run has is bounded by what they take; the time is then
// that of all, as if each of the others took as long.
#include "floor.h"
#include "measure.h"
#include "screen.h"

#include <algorithm>

namespace velk::bench {
namespace {

constexpr int32_t objectChanged = 6;
constexpr int32_t objectRemoved = 7;
constexpr int32_t objectAdded = 8;

constexpr int32_t tried = 20;

// Some notifications about objects that are spread over the folder, carried out and painted.
struct Storm {
    Screen& screen;
    int32_t type;
    int32_t first;
    int32_t step;

    double run(int32_t notifications) const
    {
        return milliseconds([&] { rage(notifications); });
    }
    void rage(int32_t notifications) const
    {
        screen.tool().queue(type, notifications, first, step);
        screen.tick();
        screen.paint();
    }
};

std::string noteOf(int32_t measured, int32_t all)
{
    return measured == all ? "" : "scaled from " + std::to_string(measured) + " of " + std::to_string(all);
}

Outcome againstRefresh(Screen& screen, int32_t objects, const Storm& storm)
{
    const int32_t all = objects / 10;
    const auto refresh = [&] { screen.fill(objects); };
    refresh();
    const int32_t some = bearable(all, tried, storm.run(tried));
    return {runPairs({refresh, [&] { storm.rage(some); }}, {refresh, refresh}, static_cast<double>(some) / all),
            noteOf(some, all)};
}

Outcome removals(int32_t objects)
{
    Screen screen(objects);
    screen.enterFolder();
    return againstRefresh(screen, objects, {screen, objectRemoved, 3, 10});
}

Outcome additions(int32_t objects)
{
    Screen screen(objects);
    screen.enterFolder();
    screen.orderBy(0);
    return againstRefresh(screen, objects, {screen, objectAdded, objects, 1});
}

// The same calls of the tool with nothing behind them.
class DrainFloor {
public:
    void drain()
    {
        int16_t more = -1;
        while (more != 0) {
            devkit::wire::trzNotify notification{};
            m_next(&notification, &more);
            m_procedure.fetch(notification.lObjectHdl);
        }
    }

private:
    decltype(entryOf<int32_t (*)(devkit::wire::trzNotify*, int16_t*)>({})) m_next =
        entryOf<int32_t (*)(devkit::wire::trzNotify*, int16_t*)>(BackendFunction::RZGetNotification);
    ProcedureFloor m_procedure;
};

Outcome drainOn(int32_t rows)
{
    constexpr int32_t all = many;
    Screen screen(rows);
    screen.enterFolder();
    screen.fill(rows);
    // Up and down the list; the step has no divisor in common with the number of objects.
    const Storm storm{screen, objectChanged, 0, 7};
    screen.tool().setWrap(rows);
    const int32_t some = bearable(all, 10 * tried, storm.run(10 * tried));
    DrainFloor floor;
    const double parts = some / 1000.0; // microseconds each
    return {runPairs({{}, [&] { storm.rage(some); }},
                     {[&] { screen.tool().queue(objectChanged, some, 0, 7); }, [&] { floor.drain(); }}, parts, parts),
            noteOf(some, all)};
}

Outcome drainOnFew(int32_t)
{
    return drainOn(1000);
}

// clang-format off
constexpr Row rows[] = {
    {"storm-remove", "ms", 2, false, "10,000 removals out of 100,000 rows", "one refresh of the folder", removals},
    {"storm-add",    "ms", 3, false, "10,000 additions to 100,000 ordered rows", "one refresh of the folder", additions},
    {"drain-1000",   "us", 4, false, "each of 100,000 changes of 1,000 rows", "the tool's calls and conversions",
     drainOnFew},
    {"drain-100000", "us", 4, false, "each of 100,000 changes of 100,000 rows", "the tool's calls and conversions",
     drainOn},
};
// clang-format on

} // namespace

std::span<const Row> stormRows()
{
    return rows;
}

} // namespace velk::bench
