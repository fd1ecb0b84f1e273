#include "measure.h"

#include <algorithm>

namespace velk::bench {
namespace {

// Milliseconds of one run that are worth waiting for: a row of nine pairs takes half a minute then.
constexpr double bearableRun = 1500;

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
    run(ours, oursParts);
    run(baseline, baselineParts);
    std::vector<Pair> pairs;
    for (int number = 0; number < fewestPairs + 1; ++number) {
        Pair pair{};
        if (number % 2 == 0)
            pair.ours = run(ours, oursParts);
        pair.baseline = run(baseline, baselineParts);
        if (number % 2 != 0)
            pair.ours = run(ours, oursParts);
        pairs.push_back(pair);
    }
    return pairs;
}

int32_t bearable(int32_t all, int32_t tried, double tookMilliseconds)
{
    const double fitting = bearableRun / std::max(tookMilliseconds / tried, 1e-6);
    return fitting >= all ? all : std::max(tried, static_cast<int32_t>(fitting));
}

} // namespace velk::bench
