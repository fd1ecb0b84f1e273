#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace velk::doctor {

// What the command line asks for.
struct Options {
    bool isConsole = false; // lines, whatever it was started from
    bool isWindow = false;
    bool isJson = false;
    bool isFix = false;
    bool hasDetails = false;
    bool isContract = false; // the tool's library is held against its contract
    bool isHelp = false;
    bool isVersion = false;
    std::wstring addin;               // the file to look at; empty: found by itself
    std::wstring ide = L"devenv.exe"; // the IDE's program
    bool isIdeNamed = false;
    uint32_t wait = 20; // seconds that a step in a child process may take
    std::wstring error; // why the command line is not understood
};

Options readOptions(const std::vector<std::wstring>& arguments);
// The command line that is read as these options.
std::wstring argumentsOf(const Options& options);
std::wstring helpText();

} // namespace velk::doctor
