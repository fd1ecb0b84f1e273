#pragma once

#include "base/win32.h"

#include <functional>
#include <string>

namespace velk {

// One use of a window class of this module. The class is registered with its first use and unregistered with its
// last, so that an unloaded add-in leaves no class behind that points into freed code.
class WindowClass {
public:
    WindowClass(std::wstring name, HBRUSH background, HCURSOR cursor);
    WindowClass(const WindowClass&) = delete;
    WindowClass& operator=(const WindowClass&) = delete;
    ~WindowClass();
    const wchar_t* name() const noexcept { return m_name.c_str(); }

private:
    std::wstring m_name;
};

// Where and how a window is made. Position and size are pixels.
struct WindowPlace {
    HWND parent = nullptr;
    DWORD style = 0;
    DWORD extendedStyle = 0;
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    const wchar_t* caption = L"";
};

// A window whose messages a derived class handles. The window is destroyed with the object at the latest; it may go
// earlier with its parent, after which hwnd() is null. Messages are handled on the thread that made the window.
// No exception leaves the procedure: it is reported to the failure observer and the message counts as not handled.
class Window {
public:
    explicit Window(std::wstring className, HBRUSH background = nullptr, HCURSOR cursor = nullptr);
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;
    virtual ~Window();

    // Makes the window; throws when the system refuses.
    void create(const WindowPlace& place);
    void destroy() noexcept;
    HWND hwnd() const noexcept { return m_hwnd; }

protected:
    // Answers a message, or hands it to handleDefault. May throw.
    virtual LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam) = 0;
    LRESULT handleDefault(UINT message, WPARAM wParam, LPARAM lParam) noexcept;

private:
    friend class WindowClass;
    static LRESULT CALLBACK procedure(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

    WindowClass m_class;
    HWND m_hwnd = nullptr;
};

} // namespace velk
