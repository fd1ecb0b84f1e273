#pragma once

#include "devkit/ide/script.h"

#include <string>
#include <vector>

namespace velk::devkit {

// What the command line asks for.
struct Options {
    std::wstring script;
    std::wstring journal;
    std::wstring shots;
    std::wstring failing;
    std::wstring missing;
    std::wstring solution;
    Definitions definitions;
    unsigned timeLimit = 120; // seconds
    std::wstring reentry;     // PLACE=ACTION
    bool hidden = false;
    bool pump = false;
    bool noAddIns = false;
};

// Reads the arguments; a ScriptFailure for one that is not known.
Options parseOptions(const std::vector<std::wstring>& arguments);

} // namespace velk::devkit
