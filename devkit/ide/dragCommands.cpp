// What a script does by dragging: with the mouse, as a user would.
#include "devkit/ide/probe.h"
#include "devkit/ide/recorder.h"
#include "devkit/ide/scriptRunner.h"
#include "devkit/ide/userInput.h"

#include <algorithm>

#include <commctrl.h>

namespace velk::devkit {
namespace {

using Text = const std::wstring&;

constexpr wchar_t immediate[] = L"Immediate";
constexpr DWORD handsPause = 20; // milliseconds between two movements

HWND immediateWindow(ScriptRunner& script)
{
    return script.onShell([&]() -> HWND {
        for (const auto& window : script.shell().dte().windows->open())
            if (window->caption == immediate)
                return window->hwnd();
        throw ScriptFailure(L"there is no Immediate window");
    });
}

int drops(ScriptRunner& script)
{
    return script.onShell([] {
        const auto& lines = recorder().lines();
        return static_cast<int>(std::count_if(lines.begin(), lines.end(), [](Text line) {
            return line.starts_with(std::wstring(immediate) + L" dropped");
        }));
    });
}

// The window of the shell's thread that has the mouse: OLE's own while something is dragged.
HWND captured(ScriptRunner& script)
{
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetWindowThreadProcessId(script.shell().hwnd(), nullptr), &info);
    return info.hwndCapture;
}

// A place in a row's first cell, on the screen.
POINT placeOfRow(ScriptRunner& script, HWND list, Text name)
{
    script.expect(L"a row " + name, [&] { return probe::row(list, name).has_value(); }, [] { return L"none"; });
    const RECT text = probe::placeOfRow(list, *probe::row(list, name));
    POINT place{text.left + 6, (text.top + text.bottom) / 2};
    ClientToScreen(list, &place);
    return place;
}

void clickAt(POINT place)
{
    input::mouse(place, MOUSEEVENTF_LEFTDOWN);
    input::mouse(place, MOUSEEVENTF_LEFTUP);
    Sleep(handsPause);
}

// Several rows are selected first, with Ctrl, and then held by one that was not clicked last: that would be a double
// click.
POINT takeHold(ScriptRunner& script, Text rows)
{
    const HWND list = probe::childOfClass(script.shell().hwnd(), WC_LISTVIEWW);
    const std::vector<std::wstring> names = split(rows, L'|');
    const bool areSeveral = names.size() > 1;
    for (size_t index = 0; areSeveral && index < names.size(); ++index) {
        if (index == 1)
            input::keyDown(VK_CONTROL);
        clickAt(placeOfRow(script, list, names[index]));
    }
    if (areSeveral)
        input::keyUp(VK_CONTROL);
    const POINT place = placeOfRow(script, list, names.front());
    input::mouse(place, MOUSEEVENTF_LEFTDOWN);
    return place;
}

// From where the rows are held to the Immediate window; gives the place there.
POINT dragToImmediate(ScriptRunner& script, Text rows)
{
    constexpr int steps = 10;
    const HWND edit = immediateWindow(script);
    const POINT from = takeHold(script, rows);
    RECT area{};
    GetWindowRect(edit, &area);
    const POINT to{(area.left + area.right) / 2, (area.top + area.bottom) / 2};
    for (int step = 1; step <= steps; ++step) {
        Sleep(handsPause);
        input::mouse({from.x + (to.x - from.x) * step / steps, from.y + (to.y - from.y) * step / steps});
    }
    return to;
}

void expectTheEnd(ScriptRunner& script)
{
    script.expect(L"the drag to end", [&] { return captured(script) == nullptr; }, [] { return L"it goes on"; });
}

// "A|B to immediate"
std::wstring rowsOf(Text rest)
{
    constexpr std::wstring_view target = L" to immediate";
    if (!rest.ends_with(target))
        throw ScriptFailure(L"rows are dragged like this: A|B to immediate");
    return rest.substr(0, rest.size() - target.size());
}

void drag(ScriptRunner& script, Text rest)
{
    const int before = drops(script);
    const POINT to = dragToImmediate(script, rowsOf(rest));
    Sleep(handsPause);
    input::mouse(to, MOUSEEVENTF_LEFTUP);
    script.expect(L"a drop", [&] { return drops(script) > before; }, [] { return L"none"; });
    expectTheEnd(script);
}

void dragAndCancel(ScriptRunner& script, Text rest)
{
    const int before = drops(script);
    const POINT to = dragToImmediate(script, rowsOf(rest));
    script.expect(
        L"the mouse to be dragging", [&] { return captured(script) != nullptr; }, [] { return L"it is not"; });
    input::key(VK_ESCAPE);
    expectTheEnd(script);
    input::mouse(to, MOUSEEVENTF_LEFTUP);
    Sleep(handsPause);
    if (drops(script) != before)
        throw ScriptFailure(L"it was dropped all the same");
}

// The drag is begun, and comes to whatever end something else makes of it; the button is released then.
void dragAndLetGo(ScriptRunner& script, Text rest)
{
    const POINT to = dragToImmediate(script, rowsOf(rest));
    Sleep(handsPause);
    input::mouse({to.x + 1, to.y});
    Sleep(handsPause);
    input::mouse(to, MOUSEEVENTF_LEFTUP);
    expectTheEnd(script);
}

void expectImmediate(ScriptRunner& script, Text wanted)
{
    const HWND edit = immediateWindow(script);
    const auto shown = [&] { return probe::textOf(edit); };
    script.expect(
        L"\"" + wanted + L"\" in the Immediate window", [&] { return shown().find(wanted) != std::wstring::npos; },
        shown);
}

// clang-format off
constexpr ScriptCommand commands[] = {
    {L"drag",             drag},
    {L"drag-and-cancel",  dragAndCancel},
    {L"drag-and-let-go",  dragAndLetGo},
    {L"expect-immediate", expectImmediate},
};
// clang-format on

} // namespace

std::span<const ScriptCommand> dragCommands()
{
    return commands;
}

} // namespace velk::devkit
