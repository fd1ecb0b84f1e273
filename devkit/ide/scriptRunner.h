#pragma once

#include "devkit/ide/script.h"
#include "devkit/ide/shell.h"

#include <functional>
#include <span>

namespace velk::devkit {

// A running script: what its commands work on. Lives on a thread of its own, so that it goes on while the shell waits
// in a message box; whatever it does to the shell's objects it does on the shell's thread.
class ScriptRunner {
public:
    ScriptRunner(Shell& shell, std::wstring shotsFolder) : m_shell(shell), m_shots(std::move(shotsFolder)) {}

    // Runs all lines; 0 when every one held, 1 at the first that did not (said on standard output).
    int run(const std::vector<ScriptLine>& lines);

    Shell& shell() const { return m_shell; }
    // Runs a function on the shell's thread and gives its result.
    template <class Function>
    auto onShell(Function function) const
    {
        std::invoke_result_t<Function> result{};
        if (!m_shell.onShellThread([&] { result = function(); }))
            throw ScriptFailure(L"the IDE does not answer");
        return result;
    }
    // Asks until the condition holds or ten seconds are over; then a failure that says what was expected and what
    // there is instead.
    void expect(const std::wstring& what, const std::function<bool()>& condition,
                const std::function<std::wstring()>& instead) const;
    void screenshot(const std::wstring& name) const;
    // Where the picture of this name is written, without an ending; empty when the run writes none.
    std::wstring shotPath(const std::wstring& name) const { return m_shots.empty() ? m_shots : m_shots + L"\\" + name; }

private:
    Shell& m_shell;
    const std::wstring m_shots;
};

// One command of the script's language.
struct ScriptCommand {
    const wchar_t* name;
    void (*run)(ScriptRunner& script, const std::wstring& rest);
};

// The commands by what they are about.
std::span<const ScriptCommand> shellCommands();
std::span<const ScriptCommand> viewCommands();
std::span<const ScriptCommand> menuCommands();
std::span<const ScriptCommand> gestureCommands();
std::span<const ScriptCommand> dragCommands();
std::span<const ScriptCommand> fileCommands();

} // namespace velk::devkit
