// Tested in tests/unit/addin/IMgrVITest.cpp.
#include "addin/IdeWindow.h"

#include "base/boundary.h"
#include "com/automation.h"

namespace velk {
namespace {

constexpr wchar_t windowState[] = L"WindowState";
constexpr int32_t stateMinimized = 1;

} // namespace

void IdeWindow::minimize()
{
    const int32_t state = automation::get(m_window, windowState).asLong();
    automation::put(m_window, windowState, variant(stateMinimized));
    // A second request in a row must not forget what comes back; after the user brought the window back it counts anew.
    if (!m_remembered || state != stateMinimized)
        m_remembered = state;
}

void IdeWindow::restore()
{
    if (!m_remembered)
        return;
    automation::put(m_window, windowState, variant(*m_remembered));
    m_remembered.reset();
}

HWND IdeWindow::handle() const noexcept
{
    HWND window = nullptr;
    if (automation::hasMember(m_window.get(), L"HWnd"))
        swallow(L"IdeWindow.handle", L"boxes then belong to the active window", [&] {
            const int32_t number = automation::get(m_window, L"HWnd").asLong();
            window = reinterpret_cast<HWND>(static_cast<INT_PTR>(number));
        });
    return window;
}

} // namespace velk
