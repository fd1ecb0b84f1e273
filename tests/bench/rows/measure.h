#pragma once

#include "../figures/figures.h"

#include "base/win32.h"

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace velk::bench {

inline constexpr int32_t many = 100000;
inline constexpr int fewestPairs = 9;

// One of the two works of a row. What is prepared before a run is not measured.
struct Side {
    std::function<void()> prepare;
    std::function<void()> work;
};

double milliseconds(const std::function<void()>& work);

// Runs both in turn, now one first, now the other, after one run of each that is not counted: nine pairs, more of what
// is quick, fewer of what is unbearable. The times are divided by how much one run does of what the row is about.
std::vector<Pair> runPairs(const Side& ours, const Side& baseline, double oursParts = 1, double baselineParts = 1);

// How many of some operations can be run nine times without being waited for, by what a few of them took; at most all.
int32_t bearable(int32_t all, int32_t tried, double tookMilliseconds);

struct Outcome {
    std::vector<Pair> pairs;
    std::string note{};
};

// A row of the table before it is measured. Adding a measurement is adding a row.
struct Row {
    const char* name;
    const char* unit;
    double target;
    bool isMeasuredSmall; // also with a tenth of the objects, for its growth
    const char* what;
    const char* against;
    Outcome (*measure)(int32_t objects);
};

// The rows of each room.
std::span<const Row> recordRows();
std::span<const Row> folderRows();
std::span<const Row> keyRows();
std::span<const Row> stormRows();
std::span<const Row> floodRows();
std::span<const Row> orderRows();
std::span<const Row> filterRows();
std::span<const Row> selectionRows();
std::span<const Row> fitRows();
std::span<const Row> memoryRows();
std::span<const Row> treeRows();
std::span<const Row> lifeRows();
std::span<const Row> shippedRows();

} // namespace velk::bench
