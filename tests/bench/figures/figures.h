#pragma once

#include <optional>
#include <string>
#include <vector>

namespace velk::bench {

// One run of the add-in's work and one of what it is compared with, right after each other, in the row's unit.
struct Pair {
    double ours;
    double baseline;
};

// What the runs of a row come to: medians, and the least and greatest ratio of a pair; of more than ten pairs those
// that leave a tenth of them out at either end.
struct Summary {
    double ours = 0;
    double baseline = 0;
    double ratio = 0;
    double lowest = 0;
    double highest = 0;
};

double median(std::vector<double> values);
// Of one pair at least.
Summary summarize(const std::vector<Pair>& pairs);

// A row of the table.
struct Figure {
    std::string name;
    std::string what;
    std::string against; // what the baseline is
    std::string unit;
    Summary summary{};
    std::optional<double> growth{}; // of ours, from 10,000 objects to 100,000
    double target = 0;              // the ratio that it should have at most
    std::string note{};

    bool isMet() const { return summary.ratio <= target; }
};

// For people, and for programs.
std::string tableOf(const std::vector<Figure>& figures);
std::string jsonOf(const std::vector<Figure>& figures);

} // namespace velk::bench
