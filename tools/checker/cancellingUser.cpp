#include "checker/cancellingUser.h"

#include <iterator>
#include <string_view>

namespace velk::check {
namespace {

struct Search {
    DWORD process;
    HWND found;
};

// The topmost one that a user could do something with.
BOOL CALLBACK look(HWND window, LPARAM wanted) noexcept
{
    auto& search = *reinterpret_cast<Search*>(wanted);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != search.process || !IsWindowVisible(window) || !IsWindowEnabled(window))
        return TRUE;
    search.found = window;
    return FALSE;
}

} // namespace

HWND CancellingUser::waiting() const noexcept
{
    Search search{m_process, nullptr};
    EnumWindows(look, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

void CancellingUser::cancel() noexcept
{
    constexpr DWORD pause = 250; // milliseconds
    struct Try {
        UINT message;
        WPARAM what;
    };
    constexpr Try tries[] = {{WM_COMMAND, IDCANCEL}, {WM_COMMAND, IDNO}, {WM_CLOSE, 0}};
    if (GetTickCount() - m_lastTry < pause)
        return;
    m_lastTry = GetTickCount();
    if (const HWND window = waiting()) {
        const Try& one = tries[m_tries++ % std::size(tries)];
        PostMessageW(window, one.message, one.what, 0);
    } else
        m_tries = 0;
}

std::wstring CancellingUser::window() const
{
    const HWND window = waiting();
    if (!window)
        return {};
    wchar_t title[128]{};
    // Not by a message, which a process that hangs would not answer.
    InternalGetWindowText(window, title, static_cast<int>(std::size(title)));
    return title[0] ? title : L"(without a title)";
}

} // namespace velk::check
