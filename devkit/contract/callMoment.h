#pragma once

#include "base/win32.h"

#include <cstdint>

namespace velk::devkit {

// Where in a call something else comes in between: before its work, or after it and before the caller has the result.
enum class CallMoment : int32_t { begins = 0, ends = 1 };

// What a host hears of each call of the stand-in Backend when it sets such a function by RZStandinSetCallHook. It may
// do in it whatever may happen while a library waits inside a call, and throws nothing.
using CallHook = void(__stdcall*)(const wchar_t* call, CallMoment moment);

// Works off the thread's messages, as a library does that waits for another program inside a call. A request to end
// the program stays for the loop that it is meant for.
inline void pumpMessages() noexcept
{
    static int depth = 0;
    constexpr int deepest = 8; // a message's own calls wait, too: the stack must hold them all
    if (depth == deepest)
        return;
    ++depth;
    MSG message{};
    // Where carrying messages out takes longer than the next timer does, there is always another one.
    constexpr int mostMessages = 30;
    for (int left = mostMessages; left > 0 && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE); --left) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));
            break;
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    --depth;
}

} // namespace velk::devkit
