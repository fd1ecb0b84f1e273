// Tested in tests/forms/serverview/CellTipsTest.cpp.
#include "window/tip.h"

#include "base/error.h"
#include "base/module.h"

#include <algorithm>
#include <utility>

namespace velk {
namespace {

// As systems before Windows XP know it, which takes them all.
const UINT toolSize = TTTOOLINFOW_V1_SIZE;

TOOLINFOW toolOf(HWND owner) noexcept
{
    TOOLINFOW tool{};
    tool.cbSize = toolSize;
    tool.uFlags = TTF_TRACK | TTF_ABSOLUTE | TTF_TRANSPARENT;
    tool.hwnd = owner;
    tool.uId = 1;
    return tool;
}

LRESULT tell(HWND tip, UINT message, WPARAM wParam, void* lParam) noexcept
{
    return SendMessageW(tip, message, wParam, reinterpret_cast<LPARAM>(lParam));
}

RECT workAreaAt(const RECT& place) noexcept
{
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromRect(&place, MONITOR_DEFAULTTONEAREST), &monitor);
    return monitor.rcWork;
}

} // namespace

Tip::~Tip()
{
    if (!isThere())
        static_cast<void>(m_window.release()); // somebody else may have the handle by now
}

bool Tip::isThere() const noexcept
{
    return m_window && IsWindow(m_window.get());
}

// It goes with the frame that the owner stood in when it was made, and stands over no other: a view that is docked
// elsewhere gets another one.
void Tip::make()
{
    const HWND frame = GetAncestor(m_owner, GA_ROOT);
    if (isThere() && frame == m_frame)
        return;
    if (!isThere())
        static_cast<void>(m_window.release());
    m_isShown = false;
    m_window.reset(CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, 0,
                                   0, 0, 0, m_owner, nullptr, module::instance(), nullptr));
    throwLastErrorUnless(static_cast<bool>(m_window));
    m_frame = frame;
    TOOLINFOW tool = toolOf(m_owner);
    wchar_t nothing[] = L"";
    tool.lpszText = nothing;
    tell(m_window.get(), TTM_ADDTOOLW, 0, &tool);
}

void Tip::show(std::wstring text, HFONT font, RECT place)
{
    make();
    const HWND tip = m_window.get();
    const RECT screen = workAreaAt(place);
    SendMessageW(tip, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    // Longer texts are wrapped.
    SendMessageW(tip, TTM_SETMAXTIPWIDTH, 0, screen.right - screen.left);
    TOOLINFOW tool = toolOf(m_owner);
    tool.lpszText = text.data();
    tell(tip, TTM_UPDATETIPTEXTW, 0, &tool);
    tell(tip, TTM_ADJUSTRECT, TRUE, &place);
    SendMessageW(tip, TTM_TRACKPOSITION, 0, MAKELPARAM(place.left, place.top));
    tell(tip, TTM_TRACKACTIVATE, TRUE, &tool);
    keepOnScreen(screen);
    m_isShown = true;
}

void Tip::keepOnScreen(const RECT& screen) const noexcept
{
    RECT tip{};
    GetWindowRect(m_window.get(), &tip);
    const LONG left = std::max(std::min(tip.left, screen.right - (tip.right - tip.left)), screen.left);
    const LONG top = std::max(std::min(tip.top, screen.bottom - (tip.bottom - tip.top)), screen.top);
    if (left != tip.left || top != tip.top)
        SetWindowPos(m_window.get(), nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void Tip::hide() noexcept
{
    if (!std::exchange(m_isShown, false) || !isThere())
        return;
    TOOLINFOW tool = toolOf(m_owner);
    tell(m_window.get(), TTM_TRACKACTIVATE, FALSE, &tool);
}

} // namespace velk
