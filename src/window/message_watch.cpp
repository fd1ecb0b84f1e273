// Tested in tests/forms/window/messageWatchTest.cpp.
#include "window/message_watch.h"

#include "base/boundary.h"
#include "base/module.h"
#include "base/unique_any.h"

#include <bit>

namespace velk {

MessageWatch::MessageWatch(HWND window) : m_window(window)
{
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    m_procedure = std::bit_cast<WNDPROC>(
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&MessageWatch::procedure)));
}

MessageWatch::~MessageWatch()
{
    end();
}

void MessageWatch::end() noexcept
{
    const HWND window = std::exchange(m_window, nullptr);
    if (!window)
        return;
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    // Somebody else may have come between meanwhile, and calls the procedure here from his own.
    if (GetWindowLongPtrW(window, GWLP_WNDPROC) == reinterpret_cast<LONG_PTR>(&MessageWatch::procedure))
        SetWindowLongPtrW(window, GWLP_WNDPROC, std::bit_cast<LONG_PTR>(m_procedure));
}

LRESULT CALLBACK MessageWatch::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept
{
    const module::keep_loaded untilAnswered;
    auto* const watch = reinterpret_cast<MessageWatch*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    const WNDPROC own = watch ? watch->m_procedure : std::bit_cast<WNDPROC>(GetClassLongPtrW(window, GCLP_WNDPROC));
    if (watch && message == WM_NCDESTROY)
        watch->end();
    else if (watch && watch->m_listener && message != WM_DESTROY)
        swallow(L"message watch", L"the window gets its message all the same", watch->m_listener);
    const std::shared_ptr<int> depth = watch ? watch->m_depth : nullptr;
    if (depth)
        ++*depth;
    const scope_exit done([&] {
        if (depth)
            --*depth;
    });
    return CallWindowProcW(own, window, message, wParam, lParam);
}

} // namespace velk
