#pragma once

#include <cwchar>
#include <windows.h>

namespace velk::test {

// What the windows of the installer and the uninstaller are known by.
constexpr int nextButton = 1;
constexpr int brandingLine = 1028; // what only a wizard has

// A window of dialogs' class that is on the screen: a message box, if there is one, is above the wizard.
inline HWND topDialog()
{
    for (HWND window = GetTopWindow(nullptr); window; window = GetWindow(window, GW_HWNDNEXT)) {
        wchar_t name[32]{};
        GetClassNameW(window, name, 32);
        if (std::wcscmp(name, L"#32770") == 0 && IsWindowVisible(window))
            return window;
    }
    return nullptr;
}

// The page inside of the wizard; a message box has none.
inline HWND pageOf(HWND wizard)
{
    HWND page = nullptr;
    while ((page = FindWindowExW(wizard, page, L"#32770", nullptr)))
        if (IsWindowVisible(page))
            return page;
    return nullptr;
}

} // namespace velk::test
