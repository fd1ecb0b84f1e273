#pragma once

#include "devkit/ide/addInManager.h"
#include "devkit/ide/menus.h"
#include "devkit/ide/textDrop.h"
#include "devkit/ide/toolbars.h"
#include "window/window.h"

#include <optional>

namespace velk::devkit {

// The IDE that the user sees: frame window, menu, toolbars, tool windows, the Immediate window and a status line.
// Made hidden it does the same without showing itself.
class Shell : public Window {
public:
    explicit Shell(bool hidden);
    ~Shell() override;

    Dte& dte() const { return *m_dte.get(); }
    AddInManager& addIns() { return m_addIns; }
    // Loads the add-ins that want it, then works off messages until the window is closed.
    int run(bool loadAddIns);

    // Runs a function on the shell's thread, also while it waits in a message box; passes on what it throws. False
    // when the shell does not answer in time (milliseconds).
    bool onShellThread(const std::function<void()>& function, UINT timeLimit = 20000) const;
    // The same without waiting, for what may open a message box.
    void postToShell(std::function<void()> function) const;
    void resize(int width, int height) const;

protected:
    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    void addCommands();
    void rebuildBars();
    void layOut() const;
    void paint() const;
    void showTitle() const;
    void click(UINT command);
    void openSolution();
    bool translate(MSG& message) const;
    void end();

    const bool m_hidden;
    const com_ptr<Dte> m_dte = makeObject<Dte>();
    AddInManager m_addIns{*m_dte.get()};
    MenuStrip m_menu;
    ToolbarRow m_toolbars;
    HWND m_immediate = nullptr;
    std::optional<TextDrop> m_immediateDrop;
    HWND m_status = nullptr;
    bool m_rebuildsAsked = false;
    bool m_ended = false;
};

} // namespace velk::devkit
