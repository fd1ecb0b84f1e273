#pragma once

#include <windows.h>

#include <array>
#include <cstddef>
#include <utility>

namespace velk::test {

// What this process holds, each counted in a way that also tells the truth under Wine, where the system's own counters
// answer 0.
size_t handleCount();
size_t gdiObjectCount();
size_t windowCount(); // of the calling thread, with all that are inside them
size_t heapBlockCount();
size_t heapByteCount();
// Whether the system's heap tells of each small block. Wine's does until version 8: later ones keep blocks of a size
// that is often asked for in groups, and tell of those.
bool areHeapBlocksCounted();
size_t threadCount();
size_t moduleCount();
size_t threadSlotCount(); // TlsAlloc

// All of them by their names. Takes no memory that the next reading would count.
using ProcessCounts = std::array<std::pair<const wchar_t*, size_t>, 8>;
ProcessCounts processCounts();

} // namespace velk::test
