// Tested in tests/forms/serverview/svrViewCtlTest.cpp.
#include "window/control.h"

#include "base/error.h"
#include "base/module.h"

#include <utility>

namespace velk {
namespace {

BOOL CALLBACK sendTo(HWND window, LPARAM message) noexcept
{
    const MSG& sent = *reinterpret_cast<const MSG*>(message);
    SendMessageW(window, sent.message, sent.wParam, sent.lParam);
    return TRUE;
}

} // namespace

Control::Control(const wchar_t* className, HWND parent, DWORD style, DWORD extendedStyle)
    : m_hwnd(CreateWindowExW(extendedStyle, className, L"", WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, parent, nullptr,
                             module::instance(), nullptr))
{
    throwLastErrorUnless(m_hwnd != nullptr);
}

Control::~Control()
{
    if (IsWindow(m_hwnd))
        DestroyWindow(m_hwnd);
}

LRESULT Control::send(UINT message, WPARAM wParam, LPARAM lParam) const noexcept
{
    return SendMessageW(m_hwnd, message, wParam, lParam);
}

void Control::setFont(HFONT font) const noexcept
{
    send(WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

void Control::setName(const std::wstring& name) const noexcept
{
    SetWindowTextW(m_hwnd, name.c_str());
}

bool Control::hasFocus() const noexcept
{
    const HWND focused = GetFocus();
    return focused == m_hwnd || IsChild(m_hwnd, focused);
}

void Control::leave() noexcept
{
    const HWND left = std::exchange(m_hwnd, nullptr);
    if (!left)
        return;
    SetParent(left, HWND_MESSAGE);
    PostMessageW(left, WM_CLOSE, 0, 0);
}

void handOn(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept
{
    const MSG handed{window, message, wParam, lParam, 0, {}};
    EnumChildWindows(window, sendTo, reinterpret_cast<LPARAM>(&handed));
}

} // namespace velk
