#include "checker/child.h"

#include "checker/bench.h"
#include "checker/checks.h"
#include "checker/hiddenArgument.h"
#include "checker/texts.h"

#include <cwchar>

namespace velk::check {
namespace {

Probe* probeOfProcess = nullptr; // for the filter, which is given nothing

struct KnownException {
    DWORD code;
    const char* name;
};

// clang-format off
constexpr KnownException knownExceptions[] = {
    {EXCEPTION_ACCESS_VIOLATION,    "access violation"},
    {EXCEPTION_ILLEGAL_INSTRUCTION, "illegal instruction"},
    {EXCEPTION_INT_DIVIDE_BY_ZERO,  "division by zero"},
    {EXCEPTION_STACK_OVERFLOW,      "stack overflow"},
    {EXCEPTION_BREAKPOINT,          "breakpoint"},
    {0xE06D7363,                    "C++ exception"},
    {0x20474343,                    "C++ exception"},
};
// clang-format on

std::string placeText(const void* place)
{
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       static_cast<const wchar_t*>(place), &module);
    wchar_t file[MAX_PATH]{};
    GetModuleFileNameW(module, file, MAX_PATH - 1);
    const std::wstring path(file);
    const auto offset = reinterpret_cast<uintptr_t>(place) - reinterpret_cast<uintptr_t>(module);
    return (module ? toUtf8(path.substr(path.rfind(L'\\') + 1)) + "+" : std::string()) + hexadecimal(offset);
}

// A fault of the checker is none of the library's.
bool isOwn(const void* place)
{
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       static_cast<const wchar_t*>(place), &module);
    return module == GetModuleHandleW(nullptr);
}

std::string exceptionText(const EXCEPTION_RECORD& raised)
{
    std::string name = "exception " + hexadecimal(raised.ExceptionCode);
    for (const KnownException& row : knownExceptions)
        if (row.code == raised.ExceptionCode)
            name = row.name;
    if (raised.ExceptionCode == EXCEPTION_ACCESS_VIOLATION)
        name += std::string(raised.ExceptionInformation[0] == 0 ? " reading " : " writing ") +
                hexadecimal(raised.ExceptionInformation[1]);
    return name + " at " + placeText(raised.ExceptionAddress);
}

// Nobody has handled it: the call that it came from is over, and so is this process.
LONG WINAPI lastFilter(EXCEPTION_POINTERS* pointers) noexcept
{
    const EXCEPTION_RECORD& raised = *pointers->ExceptionRecord;
    Probe& probe = *probeOfProcess;
    if (!probe.pad()->isInCall && isOwn(raised.ExceptionAddress)) {
        probe.pad().say({'X', {rowOf(probe.current()).number, "the checker failed: " + exceptionText(raised)}});
        TerminateProcess(GetCurrentProcess(), childTold);
    }
    probe.pad().useAllRoom();
    if (!probe.pad()->isInCall)
        probe.lastCall = {"(between calls)", "after " + probe.lastCall.name};
    const bool isAccess = raised.ExceptionCode == EXCEPTION_ACCESS_VIOLATION && raised.NumberParameters > 1;
    const auto* const address = isAccess ? reinterpret_cast<const void*>(raised.ExceptionInformation[1]) : nullptr;
    if (const GuardedBytes* const bytes = GuardedBytes::behindWhich(address))
        probe.found(probe.blamed(bytes->isString() ? Rule::R1 : Rule::R5),
                    "nothing is read or written behind " + bytes->name(), exceptionText(raised));
    else
        probe.found(probe.blamed(Rule::F7), "the call comes back", exceptionText(raised));
    TerminateProcess(GetCurrentProcess(), childTold);
    return EXCEPTION_EXECUTE_HANDLER;
}

void checkRow(Bench& bench, int row)
{
    const CheckRow& check = checkRows()[static_cast<size_t>(bench.asked().rules[row])];
    const std::string number = rowOf(check.rule).number;
    bench.probe.begin(row, check.rule, check.blamed);
    try {
        check.check(bench);
        bench.setDone(check.check);
        bench.pad().say({'D', {number}});
    } catch (const NotChecked& reason) {
        bench.pad().say({'N', {number, reason.why}});
    } catch (const std::exception& trouble) {
        bench.pad().say({'X', {number, std::string("the checker failed: ") + trouble.what()}});
    }
    bench.probe.tellRepeated();
}

void checkAll(Bench& bench)
{
    for (int row = bench.asked().first; row < bench.asked().ruleCount; ++row)
        checkRow(bench, row);
    bench.endSession();
    for (const CallTimes::Slow& slow : bench.library.times.slow())
        bench.pad().say({'T', {rowOf(slow.function).name, slow.arguments, std::to_string(slow.microseconds)}});
    for (size_t index = 0; index < functionCount; ++index)
        if (const auto& noticed = bench.library.times.noticed(static_cast<Fn>(index)); noticed.calls > 0)
            bench.pad().say(
                {'W',
                 {rowOf(static_cast<Fn>(index)).name, std::to_string(noticed.calls), std::to_string(noticed.longest)}});
}

int childMain(HANDLE memory)
{
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
    Pad pad(memory);
    Bench bench(pad);
    probeOfProcess = &bench.probe;
    SetUnhandledExceptionFilter(lastFilter);
    OleInitialize(nullptr); // as an IDE's thread has it
    checkAll(bench);
    pad->hasEnded = 1;
    // What the library left running, and what it does when the process ends, is not looked at any more.
    TerminateProcess(GetCurrentProcess(), childDone);
    return 0;
}

} // namespace

std::optional<int> runAsChild()
{
    const wchar_t* const found = std::wcsstr(GetCommandLineW(), hiddenArgument);
    if (!found)
        return std::nullopt;
    const auto memory = std::wcstoul(found + std::wcslen(hiddenArgument), nullptr, 16);
    return childMain(reinterpret_cast<HANDLE>(static_cast<uintptr_t>(memory)));
}

} // namespace velk::check
