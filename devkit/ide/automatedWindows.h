#pragma once

#include "devkit/ide/automated.h"
#include "devkit/ide/toolPane.h"

#include <memory>

namespace velk::devkit {

// clang-format off
enum WindowType : int32_t { windowImmediate = 5, windowMain = 12, windowTool = 15 };
// clang-format on

// A window as automation sees it. It outlives the window itself; then every use is error 91.
class AutomatedWindow : public Automated<AutomatedWindow> {
public:
    AutomatedWindow(int32_t windowType, HWND window, std::wstring windowCaption)
        : Automated(L"Window"), type(windowType), caption(std::move(windowCaption)), m_window(window)
    {
    }
    static std::span<const Member<AutomatedWindow>> members();
    std::wstring label() const override { return L"Window \"" + caption + L"\""; }

    HWND hwnd() const; // error 91 once it is closed
    bool isOpen() const { return m_window != nullptr; }
    bool isShown() const;
    void show(bool visible) const;
    void close();
    void changed() const;

    const int32_t type;
    std::wstring caption;
    std::shared_ptr<ToolPane> pane;    // of a tool window
    AutomationObject* owner = nullptr; // the add-in that made it

private:
    HWND m_window;
};

// All windows of the IDE that automation lists, in the order in which they came.
class AutomatedWindows : public Automated<AutomatedWindows> {
public:
    AutomatedWindows() : Automated(L"Windows") {}
    static std::span<const Member<AutomatedWindows>> members();

    com_ptr<AutomatedWindow> add(int32_t type, HWND window, const std::wstring& caption);
    variant createToolWindow(const CallArguments& arguments);
    void closeOwnedBy(const AutomationObject* owner);
    std::vector<com_ptr<AutomatedWindow>> open() const;

    HWND workspace = nullptr;     // parent of tool windows
    std::function<void()> layOut; // after a tool window came, went or changed its looks

private:
    variant item(const CallArguments& arguments) const;

    std::vector<com_ptr<AutomatedWindow>> m_all;
};

} // namespace velk::devkit
