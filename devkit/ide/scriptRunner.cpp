#include "devkit/ide/scriptRunner.h"

#include "devkit/ide/screenshot.h"
#include "devkit/ide/textFile.h"

namespace velk::devkit {
namespace {

constexpr DWORD patience = 10000; // milliseconds
constexpr DWORD pause = 20;

const ScriptCommand& commandOf(const ScriptLine& line)
{
    for (const auto commands :
         {shellCommands(), viewCommands(), menuCommands(), gestureCommands(), dragCommands(), fileCommands()})
        for (const ScriptCommand& row : commands)
            if (line.command == row.name)
                return row;
    throw ScriptFailure(L"there is no command " + line.command);
}

} // namespace

void ScriptRunner::expect(const std::wstring& what, const std::function<bool()>& condition,
                          const std::function<std::wstring()>& instead) const
{
    const DWORD start = GetTickCount();
    while (!condition()) {
        if (GetTickCount() - start > patience)
            throw ScriptFailure(L"expected " + what + L", got " + instead());
        Sleep(pause);
    }
}

void ScriptRunner::screenshot(const std::wstring& name) const
{
    if (m_shots.empty())
        return;
    // Whatever was just asked for is painted before the picture is taken.
    onShell([this] {
        return RedrawWindow(m_shell.hwnd(), nullptr, nullptr,
                            RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_UPDATENOW | RDW_ALLCHILDREN);
    });
    Sleep(150);
    writeScreenshot(m_shell.hwnd(), shotPath(name) + L".png");
}

int ScriptRunner::run(const std::vector<ScriptLine>& lines)
{
    for (const ScriptLine& line : lines) {
        std::wstring failure;
        try {
            commandOf(line).run(*this, line.rest);
            continue;
        } catch (const ScriptFailure& failed) {
            failure = failed.text;
        } catch (const Error& error) {
            failure = error.description();
        } catch (const std::exception&) {
            failure = L"an unexpected failure";
        }
        writeOutput(L"FAILED line " + std::to_wstring(line.number) + L": " + line.command + L" " + line.rest + L": " +
                    failure);
        swallow(L"script", L"the failure is what counts", [this] { screenshot(L"failed"); });
        return 1;
    }
    return 0;
}

} // namespace velk::devkit
