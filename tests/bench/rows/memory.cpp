// What rows keep of the process's heaps.
#include "measure.h"
#include "plainList.h"

#include <cmath>
#include <map>

namespace velk::bench {
namespace {

struct HeapUse {
    double bytes = 0;
    double blocks = 0;
};

HeapUse heapUse()
{
    HeapUse use;
    HANDLE heaps[64];
    const DWORD count = GetProcessHeaps(static_cast<DWORD>(std::size(heaps)), heaps);
    for (DWORD index = 0; index < count && index < std::size(heaps); ++index) {
        PROCESS_HEAP_ENTRY entry{};
        HeapLock(heaps[index]);
        while (HeapWalk(heaps[index], &entry))
            if (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) {
                use.bytes += entry.cbData;
                ++use.blocks;
            }
        HeapUnlock(heaps[index]);
    }
    return use;
}

// What some work leaves in the heaps, for each of so many rows.
template <class Work>
HeapUse kept(int32_t rows, Work work)
{
    const HeapUse before = heapUse();
    work();
    const HeapUse after = heapUse();
    return {(after.bytes - before.bytes) / rows, (after.blocks - before.blocks) / rows};
}

struct Use {
    HeapUse ours;
    HeapUse plain;
};

// From lists that were never so long. Measured once for all rows: it is the same each time.
const Use& measureUse(int32_t objects)
{
    static std::map<int32_t, Use> known;
    const auto [found, isNew] = known.try_emplace(objects);
    if (isNew) {
        Screen screen(objects);
        screen.enterFolder();
        screen.fill(1000); // for the columns' widths, which the other list takes over
        PlainList plain(screen, objects);
        screen.leaveFolder();
        screen.enterFolder();
        found->second = {kept(objects, [&] { screen.fill(objects); }), kept(objects, [&] { plain.fill(objects); })};
    }
    return found->second;
}

Outcome bytes(int32_t objects)
{
    const Use& use = measureUse(objects);
    return {{{use.ours.bytes, use.plain.bytes}}};
}

Outcome blocks(int32_t objects)
{
    constexpr double most = 2;
    const Use& use = measureUse(objects);
    return {{{use.ours.blocks, most}}, "the plain list: " + std::to_string(std::lround(use.plain.blocks))};
}

// clang-format off
constexpr Row rows[] = {
    {"memory-bytes",  "bytes",  0.6, true,  "heap of a row at 100,000 rows", "the plain list", bytes},
    {"memory-blocks", "blocks", 1,   false, "heap of a row at 100,000 rows", "the most that it may have", blocks},
};
// clang-format on

} // namespace

std::span<const Row> memoryRows()
{
    return rows;
}

} // namespace velk::bench
