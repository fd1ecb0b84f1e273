#include "checker/watch.h"

#include "checker/child.h"
#include "checker/hiddenArgument.h"
#include "checker/texts.h"

#include <cwchar>
#include <iterator>
#include <stdexcept>

namespace velk::check {
namespace {

struct Child {
    unique_kernel_handle process;
    unique_kernel_handle thread;
};

// What a library prints does not go into the report.
unique_kernel_handle nowhere()
{
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    return unique_kernel_handle(CreateFileW(L"NUL", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                            &inherited, OPEN_EXISTING, 0, nullptr));
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
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(program, command.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW, nullptr, nullptr, &startup,
                        &process))
        throw std::runtime_error("the program cannot be started once more");
    return {unique_kernel_handle(process.hProcess), unique_kernel_handle(process.hThread)};
}

bool isTooLong(Pad& pad, unsigned long longestCall)
{
    const LONG began = pad->callBegan;
    return pad->isInCall != 0 && GetTickCount() - static_cast<DWORD>(began) > longestCall &&
           began == pad->callBegan; // still the same call
}

ChildEnd ended(Pad& pad, const Child& child)
{
    DWORD code = 0;
    GetExitCodeProcess(child.process.get(), &code);
    return {pad->hasEnded ? ChildEnd::done : ChildEnd::died, code};
}

ChildEnd stopped(const Child& child, ChildEnd::Kind why)
{
    constexpr DWORD longest = 5000; // milliseconds
    TerminateProcess(child.process.get(), 1);
    WaitForSingleObject(child.process.get(), longest);
    return {why, 0};
}

} // namespace

ChildEnd watchChild(Pad& pad, unsigned long longestCall, const std::function<void(const std::string&)>& listener)
{
    constexpr DWORD interval = 20; // milliseconds
    constexpr DWORD grace = 500;   // until the rest of a process ends whose first thread did
    const Child child = started(pad);
    const HANDLE both[] = {child.process.get(), child.thread.get()};
    std::string told;
    for (;;) {
        const DWORD which = WaitForMultipleObjects(2, both, FALSE, interval);
        if (which == WAIT_OBJECT_0)
            return ended(pad, child);
        if (which == WAIT_OBJECT_0 + 1) {
            if (WaitForSingleObject(child.process.get(), grace) == WAIT_OBJECT_0)
                return ended(pad, child);
            return stopped(child, ChildEnd::threadEnded);
        }
        if (isTooLong(pad, longestCall))
            return stopped(child, ChildEnd::hung);
        if (const std::string progress = pad->progress; !progress.empty() && progress != told)
            listener(told = progress);
    }
}

} // namespace velk::check
