// reentry_lives: lives of the add-in in the stand-in IDE, disturbed at one place each.
//   record FILE [full]   an undisturbed life; writes the pairs to try
//   pumped               an undisturbed life with messages worked off inside every call
//   run FILE NUMBER      pairs from this one on; ends with 10 behind one that leaves something in the process, and
//                        with 0 when it has done enough of them, or said END
//   pair PLACE ACTION    one pair
//   cycles NUMBER [let-go]  so many lives, the add-in unloaded after each, or let go of without a word; what the
//                        process holds more at the end
#include "cycles.h"
#include "devkit/base/thread.h"
#include "devkit/ide/recorder.h"
#include "devkit/ide/reentryActions.h"
#include "devkit/ide/script.h"
#include "devkit/ide/textFile.h"
#include "life.h"
#include "pairs.h"
#include "watch.h"

#include <algorithm>
#include <atomic>
#include <commctrl.h>
#include <shellapi.h>

namespace velk::devkit {
namespace {

constexpr UINT exitHang = 3;
constexpr UINT exitCrash = 4;
constexpr int exitWrong = 10;
constexpr DWORD longestPair = 30000; // milliseconds
constexpr size_t mostPairs = 30;     // of one process, so that each has its time limit

std::atomic<DWORD> pairBegan{0};

void say(const std::wstring& text)
{
    const std::string bytes = toUtf8(text + L"\n");
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

std::wstring solutionPath()
{
    wchar_t path[MAX_PATH] = L"";
    GetFullPathNameW(L"orders.sln", MAX_PATH, path, nullptr);
    return path;
}

LONG CALLBACK sayCrash(EXCEPTION_POINTERS* raised)
{
    const DWORD code = raised->ExceptionRecord->ExceptionCode;
    if (code != EXCEPTION_ACCESS_VIOLATION && code != EXCEPTION_ILLEGAL_INSTRUCTION && code != EXCEPTION_STACK_OVERFLOW)
        return EXCEPTION_CONTINUE_SEARCH;
    HMODULE module = nullptr;
    wchar_t name[MAX_PATH] = L"freed code";
    const auto address = reinterpret_cast<uintptr_t>(raised->ExceptionRecord->ExceptionAddress);
    if (GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                           reinterpret_cast<LPCWSTR>(address), &module))
        GetModuleFileNameW(module, name, MAX_PATH);
    wchar_t text[2 * MAX_PATH] = L"";
    wsprintfW(text, L"CRASH %08lX in %s at +%08lX", code, name, address - reinterpret_cast<uintptr_t>(module));
    say(text);
    TerminateProcess(GetCurrentProcess(), exitCrash);
    return EXCEPTION_CONTINUE_SEARCH;
}

DWORD WINAPI watchTime(void*) noexcept
{
    for (;; Sleep(200)) {
        const DWORD began = pairBegan;
        if (began == 0 || GetTickCount() - began < longestPair)
            continue;
        say(L"HANG");
        TerminateProcess(GetCurrentProcess(), exitHang);
    }
}

// What is wrong when a life is over.
std::vector<std::wstring> wrongAfter(Life& life, SessionWatch& watch)
{
    std::vector<std::wstring> wrong = life.problems();
    const auto add = [&](const std::vector<std::wstring>& more) {
        wrong.insert(wrong.end(), more.begin(), more.end());
    };
    add(leftInProcess());
    add(watch.takeProblems());
    if (watch.isOpen())
        wrong.push_back(L"the session is left open");
    if (furniture(life.shell()) != life.furnitureBefore())
        wrong.push_back(L"bars or windows are not as before");
    return wrong;
}

enum class Ending { disconnected, letGo };

std::vector<std::wstring> cleanLife(SessionWatch& watch, Ending ending = Ending::disconnected)
{
    Life life(solutionPath());
    reentry().count();
    life.brief(ending == Ending::letGo);
    std::vector<std::wstring> wrong = wrongAfter(life, watch);
    if (life.facts() != std::vector<std::wstring>{L"nodes: 7", L"Tables: 8"})
        wrong.push_back(L"the start or the folder was not right");
    for (std::wstring& text : wrong)
        text.insert(0, L"in the clean life: ");
    return wrong;
}

// For the tests of the tests: a fault of the host's own, and an entry that nobody takes away.
void crash(Shell&)
{
    __builtin_trap();
}

void litter(Shell& shell)
{
    shell.dte().bars->menuBar().addCommand(L"Litter", [] {});
}

constexpr ReentryAction faults[] = {{L"crash", crash}, {L"litter", litter}};

const ReentryAction& actionOf(const std::wstring& name)
{
    for (const ReentryAction& row : faults)
        if (name == row.name)
            return row;
    const ReentryAction* const action = reentryAction(name);
    if (!action)
        throw ScriptFailure(L"there is no action " + name);
    return *action;
}

void sayFacts(const std::vector<std::wstring>& facts)
{
    for (const std::wstring& fact : facts)
        say(L"FACT " + fact);
}

int sayWrong(const std::vector<std::wstring>& wrong)
{
    std::wstring text;
    for (const std::wstring& one : wrong)
        text += (text.empty() ? L"" : L"; ") + one;
    say(wrong.empty() ? L"OK" : L"FAIL " + text);
    return wrong.empty() ? 0 : exitWrong;
}

int undisturbed(SessionWatch& watch)
{
    Life life(solutionPath());
    reentry().count();
    life.whole();
    sayFacts(life.facts());
    return sayWrong(wrongAfter(life, watch));
}

int record(const std::wstring& file, bool isFull)
{
    SessionWatch watch;
    const int result = undisturbed(watch);
    std::wstring lines;
    for (const Pair& pair : pairsOf(reentry().counts(), isFull))
        lines += pairLine(pair) + L"\n";
    DeleteFileW(file.c_str());
    appendToFile(file, lines);
    return result;
}

int runPair(const Pair& pair, SessionWatch& watch, bool isAlone)
{
    std::vector<std::wstring> wrong;
    {
        Life life(solutionPath());
        const ReentryAction& action = actionOf(pair.action);
        reentry().plan(pair.place, [&] { action.run(life.shell()); });
        life.whole();
        wrong = wrongAfter(life, watch);
        if (isAlone)
            sayFacts(life.facts());
    }
    const bool wasReached = reentry().wasReached();
    watch.closeForNext();
    if (wrong.empty())
        wrong = cleanLife(watch);
    if (!wasReached && wrong.empty()) {
        say(L"MISSED");
        return 0;
    }
    return sayWrong(wrong);
}

int run(const std::wstring& file, size_t number)
{
    std::wstring text;
    readTextFile(file, text);
    const std::vector<Pair> pairs = readPairs(text);
    SessionWatch watch;
    const size_t last = std::min(pairs.size(), number + mostPairs);
    for (; number < last; ++number) {
        pairBegan = GetTickCount();
        say(L"PAIR " + std::to_wstring(number) + L" " + pairLine(pairs[number]));
        const int result = runPair(pairs[number], watch, false);
        watch.closeForNext();
        // Only what it left in the process itself would be met by the next pair.
        if (result != 0 && !leftInProcess().empty())
            return result;
    }
    if (number == pairs.size())
        say(L"END");
    return 0;
}

// Another thread has the clipboard meanwhile, so that entries get no faces by it: Wine keeps the pixels of every
// picture that was ever put there.
int runCycles(int lives, Ending ending)
{
    Signal isHeld;
    Signal isOver;
    const Thread holder([&] {
        OpenClipboard(nullptr);
        isHeld.give();
        isOver.wait();
        CloseClipboard();
    });
    const scope_exit letGo([&] { isOver.give(); });
    isHeld.wait();
    SessionWatch watch;
    for (const std::wstring& line : growthOf(lives, [&] {
             pairBegan = GetTickCount();
             auto wrong = cleanLife(watch, ending);
             recorder().clear(); // the stand-in's own memory of all lives
             return wrong;
         }))
        say(line);
    return 0;
}

int work(const std::vector<std::wstring>& arguments)
{
    reentry().hookBackend();
    const std::wstring what = arguments.empty() ? L"" : arguments[0];
    if (what == L"record" && arguments.size() >= 2)
        return record(arguments[1], arguments.size() > 2);
    if (what == L"run" && arguments.size() == 3)
        return run(arguments[1], static_cast<size_t>(_wtoi(arguments[2].c_str())));
    SessionWatch watch;
    if (what == L"pair" && arguments.size() == 3)
        return runPair({callPlace(arguments[1]).value(), arguments[2]}, watch, true);
    if (what == L"cycles" && arguments.size() >= 2)
        return runCycles(_wtoi(arguments[1].c_str()), arguments.size() > 2 ? Ending::letGo : Ending::disconnected);
    if (what != L"pumped")
        return 2;
    SetEnvironmentVariableW(L"VELK_BACKEND_PUMP", L"1");
    reentry().setPumping(true);
    return undisturbed(watch);
}

} // namespace
} // namespace velk::devkit

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t*, int)
{
    using namespace velk::devkit;
    OleInitialize(nullptr);
    INITCOMMONCONTROLSEX controls{sizeof controls, ICC_WIN95_CLASSES | ICC_BAR_CLASSES};
    InitCommonControlsEx(&controls);
    AddVectoredExceptionHandler(1, sayCrash);
    CloseHandle(CreateThread(nullptr, 0, watchTime, nullptr, 0, nullptr));
    pairBegan = GetTickCount();
    int count = 0;
    wchar_t** const raw = CommandLineToArgvW(GetCommandLineW(), &count);
    int result = 2;
    try {
        result = work({raw + 1, raw + count});
    } catch (const std::exception&) {
        say(L"FAIL reentry_lives itself failed");
    }
    // What a failed pair left behind must not be met again on the way out.
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(result));
    return result;
}
