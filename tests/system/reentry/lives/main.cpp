// reentry_lives: lives of the add-in in the stand-in IDE, disturbed at one place each, or with calls that fail from
// one place on.
//   record FILE [full]      an undisturbed life; writes the pairs to try
//   record-faults FILE [MOST]
//                           an undisturbed life with source control; writes the pairs of a call and a manner in which
//                           it fails: about so many of each door, or all
//   pumped                  an undisturbed life with messages worked off inside every call
//   record-kept FILE        the same of a life whose view comes back as it was left, with a folder selected and the
//                           filter strip open; only calls of the tool
//   run FILE NUMBER [kept]  pairs from this one on, of lives that begin as new or like that; ends with 10 behind one
//   that leaves something in the process, and
//                           with 0 when it has done enough of them, or said END
//   pair PLACE ACTION       one pair
//   cycles NUMBER [let-go]  so many lives, the add-in unloaded after each, or let go of without a word; what the
//                           process holds more at the end
#include "base/unique_any.h"
#include "checks.h"
#include "cycles.h"
#include "devkit/base/thread.h"
#include "devkit/ide/recorder.h"
#include "devkit/ide/reentryActions.h"
#include "devkit/ide/script.h"
#include "devkit/ide/textFile.h"
#include "faults.h"
#include "pairs.h"
#include "support/folders.h"
#include "timeLimit.h"

#include <algorithm>
#include <commctrl.h>
#include <csignal>
#include <shellapi.h>

namespace velk::devkit {
namespace {

constexpr UINT exitCrash = 4;
constexpr int exitWrong = 10;
constexpr size_t mostPairs = 30;    // of one process, so that each has its time limit
constexpr DWORD longestRun = 60000; // milliseconds; the next pair begins in another process then

void say(const std::wstring& text)
{
    const std::string bytes = toUtf8(text + L"\n");
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

std::wstring afterFault()
{
    return faults().wasReached() ? L" after " + faults().hit() + L" failed" : L"";
}

void sayHang(const wchar_t* how)
{
    say(std::wstring(L"HANG ") + how + afterFault());
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
    wchar_t text[3 * MAX_PATH] = L"";
    wsprintfW(text, L"CRASH %08lX in %s at +%08lX%s", code, name, address - reinterpret_cast<uintptr_t>(module),
              afterFault().c_str());
    say(text);
    TerminateProcess(GetCurrentProcess(), exitCrash);
    return EXCEPTION_CONTINUE_SEARCH;
}

// What std::terminate comes to: an exception that met a noexcept frame, or memory that was not there to throw.
void sayAbort(int)
{
    say(L"ABORT" + afterFault());
    TerminateProcess(GetCurrentProcess(), exitCrash);
}

// For the tests of the tests: a fault of the host's own, an entry that nobody takes away, a reference that nobody gives
// back, a call that does not return, a window class that is left.
void crash(Shell&)
{
    __builtin_trap();
}

void litter(Shell& shell)
{
    shell.dte().bars->menuBar().addCommand(L"Litter", [] {});
}

void hold(Shell& shell)
{
    shell.dte().solution->AddRef();
}

void hang(Shell&)
{
    for (volatile bool waits = true; waits;)
        continue;
}

// As an add-in that does not take its window class along.
void leaveClass(Shell&)
{
    WNDCLASSW left{};
    left.lpfnWndProc = DefWindowProcW;
    left.hInstance = GetModuleHandleW(L"velkviadd.dll");
    left.lpszClassName = L"velkviadd.left";
    RegisterClassW(&left);
}

constexpr ReentryAction ownActions[] = {
    {L"crash", crash}, {L"litter", litter}, {L"hold", hold}, {L"hang", hang}, {L"leave-class", leaveClass}};

const ReentryAction& actionOf(const std::wstring& name)
{
    for (const ReentryAction& row : ownActions)
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
    say(wrong.empty() ? L"OK" : L"FAIL " + text + afterFault());
    return wrong.empty() ? 0 : exitWrong;
}

int undisturbed(SessionWatch& watch, void (Life::*course)())
{
    Life life(solutionPath());
    reentry().count();
    faults().count();
    (life.*course)();
    sayFacts(life.facts());
    return sayWrong(wrongAfter(life, watch));
}

void writePairs(const std::wstring& file, const std::vector<Pair>& pairs)
{
    std::wstring lines;
    for (const Pair& pair : pairs)
        lines += pairLine(pair) + L"\n";
    DeleteFileW(file.c_str());
    appendToFile(file, lines);
}

// A view with a selected folder and an open filter strip, as a life leaves it.
test::LeftView viewToComeBack(SessionWatch& watch)
{
    if (!cleanLife(watch).empty())
        throw ScriptFailure(L"no life could leave its view");
    test::LeftView left = test::leftView();
    left.values.emplace_back(L"FilterStrip", L"1;1");
    return left;
}

int recordKept(const std::wstring& file)
{
    SessionWatch watch;
    const test::LeftView left = viewToComeBack(watch);
    watch.closeForNext();
    Life life(solutionPath(), left);
    reentry().count();
    life.back();
    std::map<std::wstring, int> calls = reentry().counts();
    std::erase_if(calls, [](const auto& call) { return !call.first.starts_with(L"RZ"); });
    writePairs(file, pairsOf(calls, false));
    sayFacts(life.facts());
    return sayWrong(wrongAfter(life, watch));
}

int record(const std::wstring& file, bool isFull)
{
    SessionWatch watch;
    const int result = undisturbed(watch, &Life::whole);
    writePairs(file, pairsOf(reentry().counts(), isFull));
    return result;
}

// What a life leaves in the files is not there for the next one.
void renewFiles()
{
    test::removeTree(L"rz");
    test::copyTree(L"rz-new", L"rz");
    test::removeTree(L"vss");
    test::copyTree(L"vss-new", L"vss");
}

int recordFaults(const std::wstring& file, size_t most)
{
    SessionWatch watch;
    renewFiles();
    const int result = undisturbed(watch, &Life::wholeWithSourceSafe);
    writePairs(file, faultPairs(faults().counts(), most));
    return result;
}

// Of a life whose view begins as it was left, or as a new user's.
std::vector<std::wstring> disturbedLife(const Pair& pair, const std::optional<test::LeftView>& left,
                                        SessionWatch& watch, bool isTold)
{
    Life life(solutionPath(), left.value_or(test::LeftView{}));
    const ReentryAction& action = actionOf(pair.action);
    faults().count();
    reentry().plan(pair.place, [&] { action.run(life.shell()); });
    if (left)
        life.back();
    else
        life.whole();
    if (isTold)
        sayFacts(life.facts());
    return wrongAfter(life, watch);
}

std::vector<std::wstring> faultedLife(const Pair& pair, FaultManner manner, SessionWatch& watch, bool isTold)
{
    renewFiles();
    Life life(solutionPath());
    reentry().count();
    faults().plan(pair.place, manner);
    life.wholeWithSourceSafe();
    if (isTold)
        sayFacts(life.facts());
    return wrongAfterFault(life, watch);
}

int runPair(const Pair& pair, const std::optional<test::LeftView>& left, SessionWatch& watch, bool isAlone)
{
    const auto manner = faultManner(pair.action);
    beginPair();
    const long before = heldObjects();
    std::vector<std::wstring> wrong =
        manner ? faultedLife(pair, *manner, watch, isAlone) : disturbedLife(pair, left, watch, isAlone);
    faults().rest();
    if (heldObjects() != before)
        wrong.push_back(std::to_wstring(heldObjects() - before) + L" objects of the IDE are held");
    const bool wasReached = manner ? faults().wasReached() : reentry().wasReached();
    watch.closeForNext();
    if (wrong.empty())
        wrong = cleanLife(watch);
    if (!wasReached && wrong.empty()) {
        say(L"MISSED");
        return 0;
    }
    return sayWrong(wrong);
}

int run(const std::wstring& file, size_t number, bool isKept)
{
    std::wstring text;
    readTextFile(file, text);
    const std::vector<Pair> pairs = readPairs(text);
    SessionWatch watch;
    std::optional<test::LeftView> left;
    if (isKept)
        left = viewToComeBack(watch);
    watch.closeForNext();
    const size_t last = std::min(pairs.size(), number + mostPairs);
    const DWORD began = GetTickCount();
    for (; number < last && GetTickCount() - began < longestRun; ++number) {
        say(L"PAIR " + std::to_wstring(number) + L" " + pairLine(pairs[number]));
        const int result = runPair(pairs[number], left, watch, false);
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
             beginPair();
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
    faults().hook();
    const std::wstring what = arguments.empty() ? L"" : arguments[0];
    if (what == L"record" && arguments.size() >= 2)
        return record(arguments[1], arguments.size() > 2);
    if (what == L"record-faults" && arguments.size() >= 2)
        return recordFaults(arguments[1],
                            arguments.size() > 2 ? static_cast<size_t>(_wtoi(arguments[2].c_str())) : SIZE_MAX);
    if (what == L"record-kept" && arguments.size() == 2)
        return recordKept(arguments[1]);
    if (what == L"run" && arguments.size() >= 3)
        return run(arguments[1], static_cast<size_t>(_wtoi(arguments[2].c_str())), arguments.size() > 3);
    SessionWatch watch;
    if (what == L"pair" && arguments.size() == 3)
        return runPair({callPlace(arguments[1]).value(), arguments[2]}, std::nullopt, watch, true);
    if (what == L"cycles" && arguments.size() >= 2)
        return runCycles(_wtoi(arguments[1].c_str()), arguments.size() > 2 ? Ending::letGo : Ending::disconnected);
    if (what != L"pumped")
        return 2;
    SetEnvironmentVariableW(L"VELK_BACKEND_PUMP", L"1");
    reentry().setPumping(true);
    return undisturbed(watch, &Life::whole);
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
    std::signal(SIGABRT, sayAbort);
    startTimeLimit(sayHang);
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
