#pragma once

#include "checker/checker.h"

#include <span>
#include <string>

namespace velk::check {

struct Options {
    Request request;
    bool isList = false;
    bool isHelp = false;
    bool isJson = false;
    bool isQuiet = false;
    std::wstring junit;  // a file; empty: none
    std::string trouble; // what is wrong with the command line; empty: nothing
};

// Of a command line without the program's name.
Options optionsOf(std::span<const std::wstring> arguments);

const char* helpText() noexcept;
std::string ruleList();

} // namespace velk::check
