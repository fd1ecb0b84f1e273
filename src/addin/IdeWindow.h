#pragma once

#include "com/com_ptr.h"

#include <cstdint>
#include <optional>

namespace velk {

// The IDE's main window. Minimising remembers the state that the window was in, restoring brings exactly that back;
// doing either twice in a row changes nothing more.
class IdeWindow {
public:
    IdeWindow() = default;
    explicit IdeWindow(com_ptr<IDispatch> window) : m_window(std::move(window)) {}

    void minimize();
    void restore();
    // Its handle, null when the IDE does not tell.
    HWND handle() const noexcept;

private:
    com_ptr<IDispatch> m_window;
    std::optional<int32_t> m_remembered; // automation's window state
};

} // namespace velk
