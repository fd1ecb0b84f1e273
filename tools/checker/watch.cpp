#include "checker/watch.h"

#include "checker/cancellingUser.h"
#include "checker/hiddenArgument.h"

#include <cwchar>
#include <iterator>
#include <stdexcept>

namespace velk::check {
namespace {

struct Child {
    unique_kernel_handle job;
    unique_kernel_handle process;
    unique_kernel_handle thread;
    DWORD id;
};

// What a library prints does not go into the report.
unique_kernel_handle nowhere()
{
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    return unique_kernel_handle(CreateFileW(L"NUL", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                            &inherited, OPEN_EXISTING, 0, nullptr));
}

// Where our own output goes is nothing for the child: a program that the library starts and leaves running would keep
// it open.
class OwnOutput {
public:
    OwnOutput() noexcept
    {
        for (size_t which = 0; which < std::size(streams); ++which) {
            const HANDLE stream = GetStdHandle(streams[which]);
            if (stream && GetHandleInformation(stream, &m_flags[which]))
                SetHandleInformation(stream, HANDLE_FLAG_INHERIT, 0);
        }
    }
    OwnOutput(const OwnOutput&) = delete;
    OwnOutput& operator=(const OwnOutput&) = delete;
    ~OwnOutput()
    {
        for (size_t which = 0; which < std::size(streams); ++which)
            if (m_flags[which] & HANDLE_FLAG_INHERIT)
                SetHandleInformation(GetStdHandle(streams[which]), HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
    }

private:
    static constexpr DWORD streams[] = {STD_INPUT_HANDLE, STD_OUTPUT_HANDLE, STD_ERROR_HANDLE};
    DWORD m_flags[std::size(streams)]{};
};

// A child ends with us, whatever ends us. What the library starts is its own. Where we are in a job ourselves, older
// systems have no other for the child: it goes without.
unique_kernel_handle ownJob()
{
    unique_kernel_handle job(CreateJobObjectW(nullptr, nullptr));
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE | JOB_OBJECT_LIMIT_SILENT_BREAKAWAY_OK;
    SetInformationJobObject(job.get(), JobObjectExtendedLimitInformation, &limits, sizeof limits);
    return job;
}

Child started(const Pad& pad)
{
    wchar_t program[MAX_PATH * 4]{};
    GetModuleFileNameW(nullptr, program, static_cast<DWORD>(std::size(program)) - 1);
    wchar_t number[16]{};
    std::swprintf(number, std::size(number), L"%x", static_cast<unsigned>(reinterpret_cast<uintptr_t>(pad.handle())));
    std::wstring command = L"\"" + std::wstring(program) + L"\" " + hiddenArgument + number;
    const unique_kernel_handle nul = nowhere();
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = startup.hStdOutput = startup.hStdError = nul.get();
    const OwnOutput ours;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(program, command.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW | CREATE_SUSPENDED, nullptr,
                        nullptr, &startup, &process))
        throw std::runtime_error("the program cannot be started once more");
    Child child{ownJob(), unique_kernel_handle(process.hProcess), unique_kernel_handle(process.hThread),
                process.dwProcessId};
    AssignProcessToJobObject(child.job.get(), process.hProcess);
    ResumeThread(process.hThread);
    return child;
}

DWORD sinceLastChange(Pad& pad)
{
    return GetTickCount() - static_cast<DWORD>(pad->lastChanged);
}

// How long something has lasted that must not; 0: nothing has. Between calls the checker does its own work, too.
DWORD tooLong(Pad& pad, const Patience& patience)
{
    constexpr DWORD ownWork = 5'000; // milliseconds
    const LONG began = pad->lastChanged;
    const DWORD passed = sinceLastChange(pad);
    const DWORD most = !pad->isInCall ? patience.call + ownWork : pad->isActing ? patience.act : patience.call;
    return passed > most && began == pad->lastChanged ? passed : 0; // it is still the same call
}

ChildEnd ended(Pad& pad, const Child& child)
{
    DWORD code = 0;
    GetExitCodeProcess(child.process.get(), &code);
    return {pad->hasEnded ? ChildEnd::done : ChildEnd::died, code, 0, {}};
}

ChildEnd stopped(const Child& child, ChildEnd end)
{
    constexpr DWORD longest = 5000; // milliseconds
    TerminateProcess(child.process.get(), 1);
    WaitForSingleObject(child.process.get(), longest);
    return end;
}

} // namespace

ChildEnd watchChild(Pad& pad, const Patience& patience, const std::function<void(const std::string&)>& listener)
{
    constexpr DWORD interval = 20;        // milliseconds
    constexpr DWORD grace = 500;          // until the rest of a process ends whose first thread did
    constexpr DWORD untilAnswered = 1000; // since the call began
    pad->lastChanged = static_cast<LONG>(GetTickCount());
    const Child child = started(pad);
    const HANDLE both[] = {child.process.get(), child.thread.get()};
    CancellingUser user(child.id);
    std::string told;
    for (;;) {
        const DWORD which = WaitForMultipleObjects(2, both, FALSE, interval);
        if (which == WAIT_OBJECT_0)
            return ended(pad, child);
        if (which == WAIT_OBJECT_0 + 1) {
            if (WaitForSingleObject(child.process.get(), grace) == WAIT_OBJECT_0)
                return ended(pad, child);
            return stopped(child, {ChildEnd::threadEnded, 0, 0, {}});
        }
        if (sinceLastChange(pad) > untilAnswered)
            user.cancel();
        if (const DWORD waited = tooLong(pad, patience)) {
            const std::wstring window = user.window();
            return stopped(child, {window.empty() ? ChildEnd::hung : ChildEnd::waited, 0, waited, window});
        }
        if (const std::string progress = pad->progress; !progress.empty() && progress != told)
            listener(told = progress);
    }
}

} // namespace velk::check
