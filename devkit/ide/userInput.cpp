#include "devkit/ide/userInput.h"

#include <algorithm>

namespace velk::devkit::input {
namespace {

// A pixel of the screen in the mouse's own units: 65536 for the whole width or height.
LONG absolute(LONG pixel, int extentMetric)
{
    const LONG extent = std::max(GetSystemMetrics(extentMetric), 1);
    return (pixel * 65536 + extent / 2) / extent;
}

INPUT keyInput(WORD key, DWORD flags)
{
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    const bool isArrow = key >= VK_LEFT && key <= VK_DOWN;
    input.ki.dwFlags = (isArrow || key == VK_DELETE ? KEYEVENTF_EXTENDEDKEY : 0) | flags;
    return input;
}

} // namespace

void mouse(POINT place, DWORD buttons)
{
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dx = absolute(place.x, SM_CXSCREEN);
    input.mi.dy = absolute(place.y, SM_CYSCREEN);
    input.mi.dwFlags = MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_MOVE | buttons;
    SendInput(1, &input, sizeof input);
}

void key(WORD key)
{
    INPUT inputs[] = {keyInput(key, 0), keyInput(key, KEYEVENTF_KEYUP)};
    SendInput(2, inputs, sizeof(INPUT));
    Sleep(15);
}

void keyDown(WORD key)
{
    INPUT input = keyInput(key, 0);
    SendInput(1, &input, sizeof input);
}

void keyUp(WORD key)
{
    INPUT input = keyInput(key, KEYEVENTF_KEYUP);
    SendInput(1, &input, sizeof input);
}

} // namespace velk::devkit::input
