#pragma once

#include <new>

namespace velk::test {

// While it lives, this program's operator new gives memory so many times and then none.
class ScarceMemory {
public:
    explicit ScarceMemory(int allocations) noexcept;
    ScarceMemory(const ScarceMemory&) = delete;
    ScarceMemory& operator=(const ScarceMemory&) = delete;
    ~ScarceMemory();
};

// Does something again and again, with memory for one allocation more each time, until it does not fail. After each
// failure a check follows. Gives the number of failures.
template <class Deed, class Check>
int failAtEachAllocation(const Deed& deed, const Check& check)
{
    for (int allocations = 0;; ++allocations) {
        try {
            const ScarceMemory scarce(allocations);
            deed();
            return allocations;
        } catch (const std::bad_alloc&) {
        }
        check();
    }
}

} // namespace velk::test
