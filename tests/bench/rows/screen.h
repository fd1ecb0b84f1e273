#pragma once

#include "quickTool.h"

#include "notify/notificationThreadFrm.h"
#include "serverview/svrViewCtl.h"
#include "support/fakeManager.h"

#include <memory>

namespace velk::bench {

// A shown server view, a tool with a folder of procedures, and the pump between them.
class Screen {
public:
    // The tool has a tenth more objects than are shown at most, for those that come.
    explicit Screen(int32_t most);
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;
    ~Screen();

    QuickTool& tool() { return m_tool; }
    svrViewCtl& view() { return m_view; }
    HWND list() const { return m_list; }
    HWND tree() const { return m_tree; }

    void enterFolder();
    void leaveFolder();
    // The folder's contents as the tool sends them, up to the painted list.
    void fill(int32_t objects);
    // What waits is carried out by ticks of the pump.
    void tick();
    // What the list wants to show is painted.
    void paint() const { UpdateWindow(m_list); }
    // The user's click on a column.
    void orderBy(int column) const;

private:
    static HWND pane(HWND view, const wchar_t* className);

    QuickTool m_tool;
    test::Lines m_journal;
    Session m_session;
    com_ptr<test::FakeManager> m_manager;
    std::shared_ptr<notificationThreadFrm> m_pump;
    HWND m_host = nullptr;
    svrViewCtl m_view;
    HWND m_list = nullptr;
    HWND m_tree = nullptr;
};

} // namespace velk::bench
