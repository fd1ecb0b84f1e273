#pragma once

#include "base/win32.h"

#include <functional>
#include <memory>
#include <optional>

namespace velk {

// Hears of every message to a window that is not ours before the window does, whoever sends it; but for those of the
// window's end. It ends with the window, or with this object if that comes first. The window's user data are its own.
class MessageWatch {
public:
    explicit MessageWatch(HWND window);
    MessageWatch(const MessageWatch&) = delete;
    MessageWatch& operator=(const MessageWatch&) = delete;
    ~MessageWatch();

    // May send messages to the window itself, which it hears of in turn; is not to be set by itself. What it throws is
    // reported.
    void setListener(std::function<void()> listener) { m_listener = std::move(listener); }
    // The answer to a message that the window is not to get; asked after the listener. May not end the window.
    using Filter = std::function<std::optional<LRESULT>(UINT message, WPARAM wParam, LPARAM lParam)>;
    void setFilter(Filter filter) { m_filter = std::move(filter); }
    // The same with the message itself, which is the listener's first: what it throws is reported, too.
    void setWitness(std::function<void(UINT message)> witness) { m_witness = std::move(witness); }

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    // Outlives the watch in messages that are on their way.
    struct Life {
        MessageWatch* watch; // null when it has ended, or its window
    };
    std::optional<LRESULT> filtered(UINT message, WPARAM wParam, LPARAM lParam) const noexcept;
    void end() noexcept;

    HWND m_window;
    WNDPROC m_procedure = nullptr; // the window's own
    std::shared_ptr<Life> m_life = std::make_shared<Life>(Life{this});
    std::function<void()> m_listener;
    Filter m_filter;
    std::function<void(UINT)> m_witness;
};

} // namespace velk
