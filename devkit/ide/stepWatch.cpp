#include "devkit/ide/stepWatch.h"

#include "base/boundary.h"
#include "devkit/ide/probe.h"
#include "devkit/ide/screenshot.h"

#include <commctrl.h>

#include <utility>

namespace velk::devkit {
namespace {

struct Watch {
    HHOOK hook = nullptr;
    std::wstring className;
    std::wstring file;
    std::vector<std::wstring> texts;
};
Watch watch;

std::wstring classOf(HWND window)
{
    wchar_t name[128] = L"";
    GetClassNameW(window, name, 128);
    return name;
}

bool changesWhatIsSeen(const CWPSTRUCT& message)
{
    if (message.message == PBM_SETPOS)
        return classOf(message.hwnd) == PROGRESS_CLASSW;
    return message.message == WM_WINDOWPOSCHANGING &&
           (reinterpret_cast<const WINDOWPOS*>(message.lParam)->flags & SWP_HIDEWINDOW) != 0;
}

void keepStep(HWND window)
{
    const HWND root = GetAncestor(window, GA_ROOT);
    if (classOf(root) != watch.className)
        return;
    wchar_t text[256] = L"";
    GetWindowTextW(probe::childOfClass(root, L"Static"), text, 256);
    watch.texts.push_back(text);
    if (!watch.file.empty())
        writeWindowPicture(root, watch.file + L"-" + std::to_wstring(watch.texts.size()) + L".png");
}

LRESULT CALLBACK beforeMessage(int code, WPARAM wParam, LPARAM lParam) noexcept
{
    const auto& message = *reinterpret_cast<const CWPSTRUCT*>(lParam);
    if (code == HC_ACTION && changesWhatIsSeen(message))
        swallow(L"script", L"what is watched goes on", [&] { keepStep(message.hwnd); });
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

} // namespace

void watchSteps(std::wstring className, std::wstring file)
{
    endStepWatch();
    watch.className = std::move(className);
    watch.file = std::move(file);
    watch.hook = SetWindowsHookExW(WH_CALLWNDPROC, beforeMessage, nullptr, GetCurrentThreadId());
    throwLastErrorUnless(watch.hook != nullptr);
}

std::vector<std::wstring> endStepWatch()
{
    if (watch.hook)
        UnhookWindowsHookEx(watch.hook);
    watch.hook = nullptr;
    return std::exchange(watch.texts, {});
}

} // namespace velk::devkit
