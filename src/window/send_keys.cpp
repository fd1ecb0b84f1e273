#include "window/send_keys.h"

#include "base/error.h"

#include <algorithm>

namespace velk {
namespace {

constexpr DWORD longestWait = 3000; // milliseconds

INPUT keyInput(WORD key, WORD scan, DWORD flags)
{
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = scan;
    input.ki.dwFlags = flags;
    return input;
}

bool isExtended(WORD key)
{
    constexpr WORD keys[] = {VK_UP,    VK_DOWN, VK_LEFT,   VK_RIGHT,  VK_HOME,    VK_END,
                             VK_PRIOR, VK_NEXT, VK_INSERT, VK_DELETE, VK_NUMLOCK, VK_SNAPSHOT};
    return std::find(std::begin(keys), std::end(keys), key) != std::end(keys);
}

void addKey(std::vector<INPUT>& inputs, WORD key, bool isUp)
{
    const DWORD flags = (isUp ? KEYEVENTF_KEYUP : 0) | (isExtended(key) ? KEYEVENTF_EXTENDEDKEY : 0);
    // Programs look at the scan code, too; the system does not fill it in.
    inputs.push_back(keyInput(key, static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC)), flags));
}

void addCharacter(std::vector<INPUT>& inputs, wchar_t character)
{
    inputs.push_back(keyInput(0, static_cast<WORD>(character), KEYEVENTF_UNICODE));
    inputs.push_back(keyInput(0, static_cast<WORD>(character), KEYEVENTF_UNICODE | KEYEVENTF_KEYUP));
}

// The key of the user's layout that makes a character, with the modifiers that it needs there.
bool findKey(KeyStroke& stroke)
{
    const SHORT found = VkKeyScanW(stroke.character);
    if (found == -1)
        return false;
    stroke.virtualKey = LOBYTE(found);
    stroke.shift = stroke.shift || (HIBYTE(found) & 1) != 0;
    stroke.control = stroke.control || (HIBYTE(found) & 2) != 0;
    stroke.alt = stroke.alt || (HIBYTE(found) & 4) != 0;
    return true;
}

void addStroke(std::vector<INPUT>& inputs, KeyStroke stroke)
{
    // A plain character goes as itself: no layout can change it. Only with a modifier does its key matter.
    const bool isHeld = stroke.shift || stroke.control || stroke.alt;
    if (stroke.virtualKey == 0 && (!isHeld || !findKey(stroke)))
        return addCharacter(inputs, stroke.character);
    struct Held {
        bool isDown;
        WORD key;
    };
    const Held held[] = {{stroke.shift, VK_SHIFT}, {stroke.control, VK_CONTROL}, {stroke.alt, VK_MENU}};
    for (const Held& row : held)
        if (row.isDown)
            addKey(inputs, row.key, false);
    addKey(inputs, stroke.virtualKey, false);
    addKey(inputs, stroke.virtualKey, true);
    for (const Held& row : held)
        if (row.isDown)
            addKey(inputs, row.key, true);
}

// Works off messages until no key waits any more.
void pumpKeys()
{
    const DWORD start = GetTickCount();
    while (GetTickCount() - start < longestWait) {
        MSG message{};
        if (!PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (HIWORD(GetQueueStatus(QS_KEY | QS_POSTMESSAGE)) == 0)
                return;
            continue;
        }
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

} // namespace

void sendKeys(const std::wstring& text, bool wait)
{
    std::vector<INPUT> inputs;
    for (const KeyStroke& stroke : parseKeys(text))
        addStroke(inputs, stroke);
    if (inputs.empty())
        return;
    const UINT sent = SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
    if (sent != inputs.size())
        throw Error(errorPermissionDenied);
    if (wait)
        pumpKeys();
}

} // namespace velk
