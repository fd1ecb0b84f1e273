// An IDE of its own name: loads the library that is named first, "-" for none, and those behind the second word, shows
// a window, says by the event "velktestide" that it is there, and answers or hangs, as the second word says, until it
// is ended.
#include <windows.h>

#include <shellapi.h>

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, char*, int)
{
    int count = 0;
    wchar_t** const arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    if (count < 3)
        return 1;
    if (lstrcmpW(arguments[1], L"-") != 0 && !LoadLibraryW(arguments[1]))
        return 2;
    for (int more = 3; more < count; ++more)
        if (!LoadLibraryW(arguments[more]))
            return 2;
    const HWND window = CreateWindowExW(0, L"STATIC", L"An IDE", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 200, 100,
                                        nullptr, nullptr, instance, nullptr);
    const HANDLE ready = OpenEventW(EVENT_MODIFY_STATE, FALSE, L"velktestide");
    if (!window || !ready)
        return 3;
    SetEvent(ready);
    if (lstrcmpW(arguments[2], L"hangs") == 0)
        Sleep(INFINITE);
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0)
        DispatchMessageW(&message);
    return 0;
}
