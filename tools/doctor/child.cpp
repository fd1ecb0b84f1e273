// Tested in tests/tools/doctor/machine/backendTest.cpp.
#include "child.h"

#include "backend/ansi.h"
#include "backend/library_search.h"
#include "base/boundary.h"
#include "base/guarded_call.h"
#include "base/module.h"
#include "base/text.h"
#include "base/unique_any.h"

#include <bit>
#include <cstring>

namespace velk::doctor {
namespace {

constexpr wchar_t childMark[] = L"--child";
constexpr size_t argumentCount = 4; // mark, step, shared memory, path
constexpr int32_t askedText = 100;  // the name of the windows' font, the first that the add-in asks for
constexpr int32_t textRoom = 1024;

enum class Stage : DWORD { beginning, loading, asking, done };

// What both processes see. The child may have written anything into it.
struct Shared {
    Stage stage;
    DWORD exception;
    DWORD loadCode;   // of a load that was refused
    DWORD resultCode; // of what was asked
    wchar_t answer[textRoom];
};

struct view_traits : null_handle<Shared*> {
    static void close(Shared* view) noexcept { UnmapViewOfFile(view); }
};
using SharedView = unique_any<view_traits>;

SharedView viewOf(HANDLE memory)
{
    return SharedView(static_cast<Shared*>(MapViewOfFile(memory, FILE_MAP_WRITE, 0, 0, sizeof(Shared))));
}

// The child's side. One for the process, for the filter below.
Shared* shared = nullptr;

[[noreturn]] void end(DWORD code) noexcept
{
    // Not by ExitProcess: the end of the library is code, too, and all is said.
    TerminateProcess(GetCurrentProcess(), code);
    std::abort();
}

LONG WINAPI noteException(EXCEPTION_POINTERS* raised) noexcept
{
    shared->exception = raised->ExceptionRecord->ExceptionCode;
    end(shared->exception);
}

template <class... Arguments>
int32_t call(void* function, Arguments... arguments)
{
    const std::array<uint32_t, sizeof...(Arguments)> words{std::bit_cast<uint32_t>(arguments)...};
    const CallOutcome outcome = guardedCall(function, words);
    if (outcome.exception == 0)
        return outcome.result;
    shared->exception = outcome.exception;
    end(outcome.exception);
}

// As the add-in loads the tool's library: its own libraries are looked for beside it, and the current directory is the
// system's.
HMODULE load(const std::wstring& path)
{
    SetCurrentDirectoryW(systemFolder().c_str());
    shared->stage = Stage::loading;
    const auto module = std::bit_cast<HMODULE>(
        call(reinterpret_cast<void*>(LoadLibraryExW), path.c_str(), 0, DWORD{LOAD_WITH_ALTERED_SEARCH_PATH}));
    const DWORD code = GetLastError();
    if (!module) {
        shared->loadCode = code != ERROR_SUCCESS ? code : ERROR_DLL_INIT_FAILED;
        shared->stage = Stage::done;
        end(0);
    }
    return module;
}

void askText(HMODULE module)
{
    const auto function = reinterpret_cast<void*>(GetProcAddress(module, "RZGetString"));
    if (!function)
        return;
    const ansi::CountedText buffer(textRoom);
    const int32_t count = call(function, askedText, buffer.get(), textRoom);
    const std::string_view bytes(buffer.bytes().data(), strnlen(buffer.bytes().data(), buffer.bytes().size()));
    if (count > 0)
        wcsncpy(shared->answer, toWide(bytes.substr(0, static_cast<size_t>(count))).c_str(), textRoom - 1);
}

void registerAddin(HMODULE module)
{
    const auto function = reinterpret_cast<void*>(GetProcAddress(module, "DllRegisterServer"));
    shared->resultCode = function ? static_cast<DWORD>(call(function)) : static_cast<DWORD>(E_NOTIMPL);
}

// The parent's side.
ChildFacts facts(const Shared& said, ChildFacts::Outcome outcome, DWORD code)
{
    ChildFacts child;
    child.outcome = outcome;
    child.code = code;
    child.stage = said.stage == Stage::loading ? L"its loading" : said.stage == Stage::asking ? L"its first call" : L"";
    return child;
}

// Whether the process ended in time.
bool waitFor(HANDLE process, uint32_t seconds)
{
    const DWORD start = GetTickCount();
    const DWORD most = seconds * 1000;
    for (;;) {
        const DWORD gone = GetTickCount() - start;
        const DWORD left = gone < most ? most - gone : 0;
        const DWORD woken = MsgWaitForMultipleObjects(1, &process, FALSE, left, QS_ALLINPUT);
        if (woken != WAIT_OBJECT_0 + 1)
            return woken == WAIT_OBJECT_0;
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
}

unique_kernel_handle start(Step step, HANDLE memory, const std::wstring& path)
{
    const std::wstring own = module::path();
    std::wstring line = L"\"" + own + L"\" " + childMark + L" " + numberText(static_cast<int32_t>(step)) + L" " +
                        numberText(std::bit_cast<int32_t>(memory)) + L" \"" + path + L"\"";
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION made{};
    throwLastErrorUnless(CreateProcessW(own.c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                                        &made) != FALSE);
    const unique_kernel_handle thread(made.hThread);
    return unique_kernel_handle(made.hProcess);
}

ChildResult resultOf(const Shared& said, bool hasEnded, DWORD exitCode)
{
    using enum ChildFacts::Outcome;
    const bool isDone = said.stage == Stage::done;
    const auto outcome = isDone ? done : !hasEnded ? hung : said.exception != 0 ? crashed : ended;
    // An exception that nobody got hold of is the process's exit code.
    const bool isFault = outcome == ended && (exitCode & 0xF0000000) == 0xC0000000;
    const ChildFacts last = facts(said, isFault ? crashed : outcome, said.exception ? said.exception : exitCode);
    ChildResult result;
    if (said.stage < Stage::asking || (isDone && said.loadCode != 0)) {
        result.load = last;
        result.load.systemCode = said.loadCode;
        return result;
    }
    result.load = facts(said, done, 0);
    result.after = last;
    result.after.systemCode = said.resultCode;
    result.after.answer.assign(said.answer, wcsnlen(said.answer, textRoom));
    return result;
}

} // namespace

ChildResult runInChild(Step step, const std::wstring& path, uint32_t seconds)
{
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    const unique_kernel_handle memory(
        CreateFileMappingW(INVALID_HANDLE_VALUE, &inherited, PAGE_READWRITE, 0, sizeof(Shared), nullptr));
    throwLastErrorUnless(static_cast<bool>(memory));
    const SharedView view = viewOf(memory.get());
    throwLastErrorUnless(static_cast<bool>(view));
    unique_kernel_handle process;
    if (const auto failure = attempt([&] { process = start(step, memory.get(), path); })) {
        ChildResult result;
        result.load.outcome = ChildFacts::Outcome::notStarted;
        result.load.code = static_cast<DWORD>(failure->number());
        return result;
    }
    const bool hasEnded = waitFor(process.get(), seconds);
    if (!hasEnded)
        TerminateProcess(process.get(), ERROR_TIMEOUT);
    DWORD exitCode = 0;
    GetExitCodeProcess(process.get(), &exitCode);
    return resultOf(*view.get(), hasEnded, exitCode);
}

bool isChild(const std::vector<std::wstring>& arguments) noexcept
{
    return arguments.size() == argumentCount && arguments[0] == childMark;
}

void beChild(const std::vector<std::wstring>& arguments) noexcept
{
    // No boxes: the parent tells.
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
    SharedView view;
    const auto failure = attempt([&] {
        const auto step = static_cast<Step>(textToLong(arguments[1]));
        view = viewOf(std::bit_cast<HANDLE>(textToLong(arguments[2])));
        shared = view.get();
        throwLastErrorUnless(shared != nullptr);
        SetUnhandledExceptionFilter(noteException);
        const HMODULE module = load(arguments[3]);
        shared->stage = Stage::asking;
        if (step == Step::askBackend)
            askText(module);
        else if (step == Step::registerAddin)
            registerAddin(module);
        shared->stage = Stage::done;
    });
    end(failure ? static_cast<DWORD>(failure->number()) : 0);
}

} // namespace velk::doctor
