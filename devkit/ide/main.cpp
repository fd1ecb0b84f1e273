// velkide: the stand-in IDE as a program.
#include "devkit/ide/addInFault.h"
#include "devkit/ide/options.h"
#include "devkit/ide/recorder.h"
#include "devkit/ide/reentry.h"
#include "devkit/ide/reentryActions.h"
#include "devkit/ide/scriptRunner.h"
#include "devkit/ide/textFile.h"

#include <commctrl.h>
#include <shellapi.h>

namespace velk::devkit {
namespace {

constexpr UINT exitFailed = 1;
constexpr UINT exitUsage = 2;
constexpr UINT exitTimeLimit = 3;

std::vector<std::wstring> commandLine()
{
    int count = 0;
    wchar_t** const raw = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::wstring> arguments(raw + 1, raw + count);
    LocalFree(raw);
    return arguments;
}

struct ScriptJob {
    Shell* shell;
    Options options;
    std::vector<ScriptLine> lines;
    bool hasHeld = false; // said before the shell is told to close
};

DWORD WINAPI runScript(void* parameter) noexcept
{
    ScriptJob& job = *static_cast<ScriptJob*>(parameter);
    // A script that fails may leave message boxes and half a session behind: nothing is worth an orderly end then.
    if (ScriptRunner(*job.shell, job.options.shots).run(job.lines) != 0)
        TerminateProcess(GetCurrentProcess(), exitFailed);
    job.hasHeld = true;
    PostMessageW(job.shell->hwnd(), WM_CLOSE, 0, 0);
    return 0;
}

DWORD WINAPI watch(void* seconds) noexcept
{
    Sleep(static_cast<DWORD>(reinterpret_cast<UINT_PTR>(seconds)) * 1000);
    writeOutput(L"FAILED: the time limit was reached");
    TerminateProcess(GetCurrentProcess(), exitTimeLimit);
    return 0;
}

void start(LPTHREAD_START_ROUTINE routine, void* parameter)
{
    const HANDLE thread = CreateThread(nullptr, 0, routine, parameter, 0, nullptr);
    throwLastErrorUnless(thread != nullptr);
    CloseHandle(thread);
}

void planReentry(const std::wstring& text, Shell& shell)
{
    const size_t equals = text.rfind(L'='); // the place of an assignment ends with one, too
    const auto place = callPlace(text.substr(0, equals));
    const ReentryAction* action = equals == std::wstring::npos ? nullptr : reentryAction(text.substr(equals + 1));
    if (!place || !action)
        throw ScriptFailure(L"--reentry wants a place and an action, like RZInitialize#1=disconnect");
    reentry().hookBackend();
    reentry().plan(*place, [&shell, action] { action->run(shell); });
}

int run(const Options& options)
{
    recorder().setFile(options.journal);
    recorder().setFailing(options.failing);
    recorder().setMissing(options.missing);
    reentry().setPumping(options.pump);
    Shell shell(options.hidden);
    if (!options.reentry.empty())
        planReentry(options.reentry, shell);
    if (!options.solution.empty())
        shell.dte().solution->open(options.solution);
    ScriptJob job{&shell, options, {}};
    if (!options.script.empty()) {
        std::wstring text;
        if (!readTextFile(options.script, text))
            throw ScriptFailure(L"there is no script " + options.script);
        job.lines = parseScript(text, options.definitions);
        start(watch, reinterpret_cast<void*>(static_cast<UINT_PTR>(options.timeLimit)));
        start(runScript, &job);
    }
    const int status = shell.run(!options.noAddIns);
    if (job.lines.empty() || job.hasHeld || !options.reentry.empty()) // which may end the IDE on purpose
        return status;
    writeOutput(L"FAILED: the IDE ended before its script");
    return exitFailed;
}

} // namespace
} // namespace velk::devkit

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t*, int)
{
    using namespace velk::devkit;
    OleInitialize(nullptr);
    INITCOMMONCONTROLSEX controls{sizeof controls, ICC_WIN95_CLASSES | ICC_BAR_CLASSES};
    InitCommonControlsEx(&controls);
    int status = exitFailed;
    endOnAddInFault(exitFailed);
    try {
        status = run(parseOptions(commandLine()));
    } catch (const ScriptFailure& failure) {
        writeOutput(L"velkide: " + failure.text);
        status = exitUsage;
    } catch (const velk::Error& error) {
        writeOutput(L"velkide: " + error.description());
    } catch (const std::exception&) {
        writeOutput(L"velkide: an unexpected failure");
    }
    OleUninitialize();
    return status;
}
