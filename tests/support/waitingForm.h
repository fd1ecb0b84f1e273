#pragma once

#include "window/dialog.h"

#include <functional>

namespace velk::test {

// A form that runs a piece of the test while it waits, and closes then.
class WaitingForm : public Dialog {
public:
    explicit WaitingForm(HWND owner)
    {
        static constexpr DialogRow rows[] = {{button, DialogControl::button, 0, 4, 4, 40, 14}};
        load(owner, {100, 40, rows}, {});
    }
    void showAndRun(std::function<void()> whileWaiting)
    {
        m_whileWaiting = std::move(whileWaiting);
        PostMessageW(hwnd(), WM_COMMAND, button, 0);
        showModal();
    }

protected:
    void onCommand(int, int) override
    {
        m_whileWaiting();
        hide();
    }

private:
    static constexpr int button = 100;
    std::function<void()> m_whileWaiting;
};

} // namespace velk::test
