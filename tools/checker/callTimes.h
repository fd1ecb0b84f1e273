#pragma once

#include "checker/functions.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace velk::check {

// How long calls took.
class CallTimes {
public:
    struct Slow {
        Fn function;
        std::string arguments;
        int64_t microseconds;
    };
    static constexpr size_t slowest = 10;
    static constexpr int64_t longest = 50'000; // microseconds that nobody notices

    static int64_t now() noexcept; // microseconds

    // Room for all that is kept.
    void reserve();
    void add(Fn function, const std::string& arguments, int64_t microseconds);
    // The slowest ones, the slowest first.
    const std::vector<Slow>& slow() const noexcept { return m_slow; }

    // Of a function, the calls that somebody notices.
    struct Noticed {
        int64_t calls = 0;
        int64_t longest = 0; // microseconds
    };
    const Noticed& noticed(Fn function) const noexcept { return m_noticed[static_cast<size_t>(function)]; }

    // The middle one of all times of a function; 0 for one that was not called.
    int64_t middle(Fn function) const;

private:
    static constexpr size_t mostKept = 10'000; // of each function

    std::vector<Slow> m_slow;
    std::array<Noticed, functionCount> m_noticed{};
    std::array<std::vector<int64_t>, functionCount> m_all;
};

// The functions that are called all the time: they must not be slow.
bool mustBeQuick(Fn function) noexcept;

} // namespace velk::check
