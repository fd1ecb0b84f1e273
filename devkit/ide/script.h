#pragma once

#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace velk::devkit {

// One line of a script: a command and the rest of the line.
struct ScriptLine {
    int number;
    std::wstring command;
    std::wstring rest;
};

// What a script expected and did not get; fit for the user.
class ScriptFailure : public std::runtime_error {
public:
    explicit ScriptFailure(std::wstring what) : std::runtime_error("script"), text(std::move(what)) {}
    std::wstring text;
};

// Reads a script: one command a line, blank lines and lines beginning with # are passed over, $NAME stands for a
// definition. An undefined name is a ScriptFailure.
using Definitions = std::map<std::wstring, std::wstring>;
std::vector<ScriptLine> parseScript(const std::wstring& text, const Definitions& definitions);

// A text split at a character; empty parts are kept.
std::vector<std::wstring> split(const std::wstring& text, wchar_t separator);

} // namespace velk::devkit
