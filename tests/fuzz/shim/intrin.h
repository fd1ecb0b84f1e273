#pragma once

#include <algorithm>
#include <cstddef>

inline void __stosd(unsigned long* target, unsigned long value, size_t count)
{
    std::fill_n(target, count, value);
}
