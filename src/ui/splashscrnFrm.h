#pragma once

#include "base/unique_any.h"
#include "com/com_ptr.h"
#include "window/window.h"

#include <cstdint>
#include <string>

namespace velk {

// The window that is shown while the add-in and the tool start and a project is opened: a picture, a status line and
// a progress bar that start-up code advances by one a stage. Loading it fills the status line and shows the window. The
// IDE's window takes it along when it goes: steps are counted then, and nothing shows them.
class splashscrnFrm : public Window {
public:
    splashscrnFrm();
    ~splashscrnFrm() override;

    // The number of steps that will be reported.
    void setProgressBarInterval(const int16_t& interval);
    // Advances by one and shows the text. Error 380 beyond the announced number of steps: the bar refuses it.
    void updateProgress(const std::wstring& text);
    // Shows the form (again), painted, without taking the focus from the IDE.
    void setVisible();

    HWND statusLbl() const noexcept { return m_statusLbl; }
    HWND ProgressBar1() const noexcept { return m_progressBar1; }

protected:
    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    void load();
    void Form_Load();
    void layOut();
    void redraw();
    void paint();

    com_ptr<IPicture> m_welcomeImage;
    unique_font m_font;
    HWND m_statusLbl = nullptr;
    HWND m_progressBar1 = nullptr;
    float m_maximum = 100.0f;
    float m_value = 0.0f;
};

// The add-in's one splash screen: made with its first use; after an unload, or after the IDE's window took it along,
// the next use makes it afresh.
splashscrnFrm& splashScreen();
bool isSplashScreenLoaded() noexcept;
void unloadSplashScreen() noexcept;

} // namespace velk
