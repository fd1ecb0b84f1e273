// wizard PICTURES COMMAND: starts the installer or the uninstaller, goes from page to page as a user does who agrees
// with everything, and writes a picture of each to PICTURES-1.png and so on. Ends it at the first message box, which
// gets a picture, too.
#include "base/error.h"
#include "base/unique_any.h"
#include "devkit/ide/screenshot.h"
#include "support/installerWindows.h"

#include <cstdio>
#include <cwchar>

namespace velk {
namespace {

using test::brandingLine;
using test::nextButton;
using test::pageOf;
using test::topDialog;

constexpr DWORD patience = 60000; // milliseconds
constexpr DWORD handOver = 5000;
constexpr DWORD settled = 700;

unique_kernel_handle start(std::wstring command)
{
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION made{};
    throwLastErrorUnless(
        CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &made));
    unique_kernel_handle(made.hThread).reset();
    return unique_kernel_handle(made.hProcess);
}

// Another page than the last one, whose work is done, or a message box; nothing when all is over. The uninstaller goes
// on in another process, some time after the first one's end.
HWND nextSight(HANDLE process, HWND lastPage)
{
    const DWORD start = GetTickCount();
    DWORD seen = start;
    while (GetTickCount() - start < patience) {
        const HWND window = topDialog();
        const HWND page = window ? pageOf(window) : nullptr;
        // A wizard between two pages has none, either, and the window that tells of the unpacking has no button.
        if (window && !page && !GetDlgItem(window, brandingLine) && FindWindowExW(window, nullptr, L"Button", nullptr))
            return window;
        if (page && page != lastPage && IsWindowEnabled(GetDlgItem(window, nextButton)))
            return window;
        if (window || WaitForSingleObject(process, 0) != WAIT_OBJECT_0)
            seen = GetTickCount();
        if (GetTickCount() - seen > handOver)
            return nullptr;
        Sleep(50);
    }
    throw Error(errorInvalidCall, L"the wizard does not go on");
}

void endProcessOf(HWND window)
{
    DWORD number = 0;
    GetWindowThreadProcessId(window, &number);
    const unique_kernel_handle process(OpenProcess(PROCESS_TERMINATE, FALSE, number));
    TerminateProcess(process.get(), 0);
}

void goThrough(HANDLE process, const std::wstring& pictures)
{
    HWND page = nullptr;
    for (int count = 1;; ++count) {
        const HWND window = nextSight(process, page);
        if (!window)
            return;
        Sleep(settled);
        devkit::writeScreenshot(window, pictures + L"-" + std::to_wstring(count) + L".png");
        page = pageOf(window);
        if (!page)
            return endProcessOf(window);
        PostMessageW(GetDlgItem(window, nextButton), BM_CLICK, 0, 0);
    }
}

} // namespace
} // namespace velk

int wmain(int count, wchar_t** words)
{
    if (count != 3)
        return 2;
    try {
        const auto process = velk::start(words[2]);
        velk::goThrough(process.get(), words[1]);
        return 0;
    } catch (const velk::Error& error) {
        std::fputws((L"wizard: " + error.description() + L"\n").c_str(), stderr);
    }
    return 1;
}
