#pragma once

#include "examination.h"
#include "window/window.h"
#include "windowControls.h"

#include <functional>
#include <memory>

namespace velk::doctor {

// What a doctor with more rights is started with to put right what one with these options found.
Options toFix(Options options);

// The same lines in a window: a sentence, a list with a row a check, what stands behind the selected row, and buttons.
class DoctorWindow : public Window {
public:
    using Examine = std::function<Report(const Options& options)>;
    DoctorWindow(Options options, Examine examine);
    ~DoctorWindow() override;

    // Makes the window and its controls, not shown yet.
    void open();
    // Looks at the machine; messages are handled meanwhile.
    void look(bool isFix);
    // Shows it, looks, and waits until it is closed.
    ExitCode run();
    ExitCode exitCode() const noexcept; // of what was found last
    // A message of the loop: its keys, or those of the controls.
    bool takesKey(MSG& message);

private:
    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam) override;
    void onNotify(LPARAM lParam);
    void onCommand(int command);
    void showReport(const std::wstring& sentence);
    void fitColumns() const;
    void showDetails();
    void fix();
    void copy();
    const Finding* findingOf(int row) const noexcept; // null for none
    std::wstring cell(int row, int column) const;

    Options m_options;
    Examine m_examine;
    Report m_report;
    WindowFont m_font;
    std::unique_ptr<WindowControls> m_controls;
    bool m_isBusy = false;
    bool m_isClosing = false;
    bool m_hasFailed = false; // the look, not what was looked at
};

} // namespace velk::doctor
