#pragma once

#include "checks.h"
#include "options.h"

#include <string>
#include <vector>

namespace velk::doctor {

// What came of one remedy.
struct Mended {
    std::wstring text;
    bool isDone = false;
};

// The remedies that the findings ask for, each once, in the order in which they are taken.
std::vector<Remedy> remediesOf(const std::vector<Finding>& findings);
// Takes them. What cannot be put right is told and nothing is thrown for it.
std::vector<Mended> mend(const std::vector<Finding>& findings, const Facts& facts, const Options& options);

} // namespace velk::doctor
