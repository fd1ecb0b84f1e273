// Tested in tests/forms/notify/notificationThreadFrmTest.cpp.
#include "window/window.h"

#include "base/boundary.h"
#include "base/module.h"
#include "base/never_destroyed.h"

#include <map>

namespace velk {
namespace {

std::map<std::wstring, int>& classUses()
{
    static never_destroyed<std::map<std::wstring, int>> uses;
    return uses.get();
}

} // namespace

WindowClass::WindowClass(std::wstring name, HBRUSH background, HCURSOR cursor) : m_name(std::move(name))
{
    int& uses = classUses()[m_name];
    if (uses == 0) {
        WNDCLASSEXW description{};
        description.cbSize = sizeof description;
        description.style = CS_DBLCLKS;
        description.lpfnWndProc = &Window::procedure;
        description.hInstance = module::instance();
        description.hCursor = cursor ? cursor : LoadCursorW(nullptr, IDC_ARROW);
        description.hbrBackground = background;
        description.lpszClassName = m_name.c_str();
        throwLastErrorUnless(RegisterClassExW(&description) != 0);
    }
    ++uses;
}

WindowClass::~WindowClass()
{
    const auto found = classUses().find(m_name);
    if (--found->second == 0) {
        UnregisterClassW(m_name.c_str(), module::instance());
        classUses().erase(found);
    }
}

Window::Window(std::wstring className, HBRUSH background, HCURSOR cursor)
    : m_class(std::move(className), background, cursor)
{
}

Window::~Window()
{
    destroy();
}

void Window::create(const WindowPlace& place)
{
    const HWND made =
        CreateWindowExW(place.extendedStyle, m_class.name(), place.caption, place.style, place.left, place.top,
                        place.width, place.height, place.parent, nullptr, module::instance(), this);
    throwLastErrorUnless(made != nullptr);
}

void Window::destroy() noexcept
{
    if (m_hwnd) {
        // A derived part may already be destructed: its window gets no more of our answers.
        const HWND old = std::exchange(m_hwnd, nullptr);
        SetWindowLongPtrW(old, GWLP_USERDATA, 0);
        DestroyWindow(old);
    }
}

LRESULT Window::handleDefault(UINT message, WPARAM wParam, LPARAM lParam) noexcept
{
    return DefWindowProcW(m_hwnd, message, wParam, lParam);
}

LRESULT CALLBACK Window::procedure(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) noexcept
{
    if (message == WM_NCCREATE) {
        auto* made = static_cast<Window*>(reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpCreateParams);
        made->m_hwnd = hwnd;
        SetWindowLongPtrW(hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(made));
    }
    auto* window = reinterpret_cast<Window*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA));
    if (!window)
        return DefWindowProcW(hwnd, message, wParam, lParam);
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(hwnd, GWLP_USERDATA, 0);
        window->m_hwnd = nullptr;
        return DefWindowProcW(hwnd, message, wParam, lParam);
    }
    const module::keep_loaded untilAnswered;
    LRESULT answer = 0;
    if (!swallow(L"window procedure", L"the message counts as not handled",
                 [&] { answer = window->handle(message, wParam, lParam); }))
        answer = DefWindowProcW(hwnd, message, wParam, lParam);
    return answer;
}

} // namespace velk
