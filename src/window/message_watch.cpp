// Tested in tests/forms/window/messageWatchTest.cpp.
#include "window/message_watch.h"

#include "base/boundary.h"
#include "base/module.h"
#include "base/unique_any.h"

#include <bit>

namespace velk {
namespace {

// Its address marks a window whose watch has ended although the procedure here could not be taken out.
const char ownerless = 0;

} // namespace

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
    m_life->watch = nullptr;
    const HWND window = std::exchange(m_window, nullptr);
    if (!window)
        return;
    if (GetWindowLongPtrW(window, GWLP_WNDPROC) == reinterpret_cast<LONG_PTR>(&MessageWatch::procedure)) {
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        SetWindowLongPtrW(window, GWLP_WNDPROC, std::bit_cast<LONG_PTR>(m_procedure));
        return;
    }
    // Somebody else came between meanwhile, and calls the procedure here from his own until the window's end.
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&ownerless));
    module::lock();
}

std::optional<LRESULT> MessageWatch::filtered(UINT message, WPARAM wParam, LPARAM lParam) const noexcept
{
    std::optional<LRESULT> answer;
    if (m_filter)
        swallow(L"message watch", L"the window answers its message then",
                [&] { answer = m_filter(message, wParam, lParam); });
    return answer;
}

LRESULT CALLBACK MessageWatch::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept
{
    const module::keep_loaded untilAnswered;
    const LONG_PTR data = GetWindowLongPtrW(window, GWLP_USERDATA);
    const bool isOwnerless = data == reinterpret_cast<LONG_PTR>(&ownerless);
    auto* const watch = isOwnerless ? nullptr : reinterpret_cast<MessageWatch*>(data);
    const WNDPROC own = watch ? watch->m_procedure : std::bit_cast<WNDPROC>(GetClassLongPtrW(window, GCLP_WNDPROC));
    const std::shared_ptr<Life> life = watch ? watch->m_life : nullptr;
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        if (isOwnerless)
            module::unlock();
        if (watch) {
            watch->m_window = nullptr;
            life->watch = nullptr;
        }
    } else if (watch && message != WM_DESTROY) {
        swallow(L"message watch", L"the window gets its message all the same", [&] {
            // The messages that they send may end the watch.
            const std::function<void()> listener = watch->m_listener;
            const std::function<void(UINT)> witness = watch->m_witness;
            if (listener)
                listener();
            if (witness && life->watch)
                witness(message);
        });
    }
    // What the listener did may have ended the watch.
    if (life && life->watch)
        if (const std::optional<LRESULT> answer = life->watch->filtered(message, wParam, lParam))
            return *answer;
    return CallWindowProcW(own, window, message, wParam, lParam);
}

} // namespace velk
