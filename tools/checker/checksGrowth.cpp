// Level 9: what a hundred sessions leave behind, and how long their calls take.
#include "checker/bench.h"
#include "checker/checks.h"

#include <algorithm>

namespace velk::check {
namespace {

constexpr size_t bytesLetPass = 4096;        // a session
constexpr size_t bytesOfAThread = 16 * 1024; // that some systems keep for it in the heap
constexpr size_t sessionsForOne = 10;        // pools of the system come and go
constexpr size_t pagesLetPass = 1024 * 1024; // in all: a heap grows by large steps

CallText sessions(const Growth& growth)
{
    return {"(sessions)", std::to_string(growth.sessions)};
}

size_t grown(const Growth& growth, size_t Counts::* count)
{
    const size_t before = growth.before.*count;
    const size_t after = growth.after.*count;
    return after > before ? after - before : 0;
}

void expectSame(Bench& bench, Rule rule, const char* what, size_t Counts::* count)
{
    const Growth& growth = bench.growth();
    if (grown(growth, count) > 0 && grown(growth, count) * sessionsForOne >= static_cast<size_t>(growth.sessions))
        bench.probe.found(rule, sessions(growth),
                          std::to_string(growth.before.*count) + " " + what + ", as before these sessions",
                          std::to_string(growth.after.*count));
}

} // namespace

void checkHandleGrowth(Bench& bench)
{
    if (grown(bench.growth(), &Counts::modules) == 0) // G4 tells of modules, which have handles of their own
        expectSame(bench, Rule::G1, "kernel handles", &Counts::kernelHandles);
    expectSame(bench, Rule::G1, "GDI objects", &Counts::gdiObjects);
    expectSame(bench, Rule::G1, "windows", &Counts::windows);
}

void checkMemoryGrowth(Bench& bench)
{
    const Growth& growth = bench.growth();
    const size_t threads = grown(growth, &Counts::threads); // G3 tells of them, whose stacks are pages
    const size_t most = bytesLetPass * static_cast<size_t>(growth.sessions) + bytesOfAThread * threads;
    const size_t heap = grown(growth, &Counts::heapBytes);
    const size_t pages = grown(growth, &Counts::privateBytes);
    if (heap > most || (threads == 0 && pages > most + pagesLetPass))
        bench.probe.found(Rule::G2, sessions(growth), "at most " + std::to_string(most) + " bytes more",
                          std::to_string(heap) + " bytes more in the heaps, " + std::to_string(pages) + " of pages");
}

void checkThreadGrowth(Bench& bench)
{
    expectSame(bench, Rule::G3, "threads", &Counts::threads);
}

void checkModuleGrowth(Bench& bench)
{
    expectSame(bench, Rule::G4, "modules", &Counts::modules);
}

void checkTimes(Bench& bench)
{
    bench.growth();
    for (size_t index = 0; index < functionCount; ++index) {
        const Fn function = static_cast<Fn>(index);
        const int64_t middle = mustBeQuick(function) ? bench.library.times.middle(function) : 0;
        if (middle >= CallTimes::longest)
            bench.probe.found(Rule::G5, {rowOf(function).name, ""}, "less than 50 ms, the middle one of all its times",
                              std::to_string(middle / 1000) + " ms");
    }
}

} // namespace velk::check
