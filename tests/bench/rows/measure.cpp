#include "measure.h"

#include <algorithm>

namespace velk::bench {
namespace {

// Milliseconds of one run that are worth waiting for: a row of nine pairs takes some twenty seconds then.
constexpr double bearableRun = 1000;
// A row ends after that long, with fewer pairs, so that the whole ends on a machine that is busy, too.
constexpr DWORD bearableRow = 30000;
constexpr size_t leastPairs = 3;
// Quick works run more often: what disturbs one pair disturbs few of many.
constexpr DWORD quickRow = 1500;
constexpr size_t mostPairs = 201;

bool areEnough(size_t pairs, DWORD time)
{
    if (pairs < static_cast<size_t>(fewestPairs))
        return pairs >= leastPairs && time > bearableRow;
    return time > quickRow || pairs >= mostPairs;
}

double run(const Side& side, double parts)
{
    if (side.prepare)
        side.prepare();
    return milliseconds(side.work) / parts;
}

} // namespace

double milliseconds(const std::function<void()>& work)
{
    LARGE_INTEGER frequency, before, after;
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&before);
    work();
    QueryPerformanceCounter(&after);
    return static_cast<double>(after.QuadPart - before.QuadPart) * 1000.0 / static_cast<double>(frequency.QuadPart);
}

std::vector<Pair> runPairs(const Side& ours, const Side& baseline, double oursParts, double baselineParts)
{
    const DWORD start = GetTickCount();
    run(ours, oursParts);
    run(baseline, baselineParts);
    std::vector<Pair> pairs;
    for (bool isEnough = false; !isEnough;) {
        const bool isOursFirst = pairs.size() % 2 == 0;
        Pair pair{};
        if (isOursFirst)
            pair.ours = run(ours, oursParts);
        pair.baseline = run(baseline, baselineParts);
        if (!isOursFirst)
            pair.ours = run(ours, oursParts);
        pairs.push_back(pair);
        isEnough = areEnough(pairs.size(), GetTickCount() - start);
    }
    return pairs;
}

int32_t bearable(int32_t all, int32_t tried, double tookMilliseconds)
{
    const double fitting = bearableRun / std::max(tookMilliseconds / tried, 1e-6);
    return fitting >= all ? all : std::max(tried, static_cast<int32_t>(fitting));
}

} // namespace velk::bench
