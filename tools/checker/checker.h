#pragma once

#include "checker/child.h"
#include "checker/report.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

// Checks a library behind the Backend's interface by the rules of docs/backend-contract.md. A program that calls this
// begins with runAsChild(): the library is never loaded into the program itself, but into the same program started once
// more.
namespace velk::check {

struct Request {
    std::wstring library;
    std::wstring project; // a .rzv file; empty: what needs one is not checked
    int firstLevel = 1;
    int lastLevel = 3;
    std::optional<Rule> only; // this rule alone, at its level

    unsigned long longestCall = 10'000; // milliseconds until a call counts as one that does not come back
    unsigned long longestAct = 60'000;  // the same for calls that may take their time
    unsigned long patience = 1000;      // milliseconds without a notification until none is waited for any more
    uint32_t seed = 1;                  // of the random walk
    int sessions = 100;                 // of level 9
    int steps = 2000;                   // of the random walk
    int objects = 1'000'000;            // more than that many are taken for a folder without an end
};

// Levels 1 to 7 only read; those behind it work on a copy of the project's folder that is removed afterwards. What
// happens is told to the listener in short lines.
Report checkLibrary(const Request& request, const std::function<void(const std::string&)>& listener);

} // namespace velk::check
