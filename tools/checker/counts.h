#pragma once

#include <cstddef>

namespace velk::check {

// What this process holds, each counted in a way that also tells the truth under Wine, where the system's own counters
// answer 0.
struct Counts {
    size_t kernelHandles = 0;
    size_t gdiObjects = 0;
    size_t windows = 0; // of this thread
    size_t heapBytes = 0;
    size_t privateBytes = 0; // committed pages that are the process's own
    size_t threads = 0;
    size_t modules = 0;

    static Counts now();
};

} // namespace velk::check
