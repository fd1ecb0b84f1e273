// What a script does with keys, with several rows and by letting the mouse rest, and what is to be seen then.
#include "devkit/ide/probe.h"
#include "devkit/ide/scriptRunner.h"
#include "devkit/ide/systemColours.h"
#include "devkit/ide/userInput.h"

#include <utility>

#include <commctrl.h>

namespace velk::devkit {
namespace {

using Text = const std::wstring&;

constexpr DWORD handsPause = 40; // milliseconds between two movements

HWND control(ScriptRunner& script, const wchar_t* className)
{
    const auto find = [&] { return probe::childOfClass(script.shell().hwnd(), className); };
    script.expect(std::wstring(L"a control ") + className, [&] { return find() != nullptr; }, [] { return L"none"; });
    return find();
}

// The row of a name, scrolled into sight.
RECT placeOfRow(ScriptRunner& script, HWND list, Text name)
{
    script.expect(
        L"a row " + name, [&] { return probe::row(list, name).has_value(); },
        [&] { return std::to_wstring(probe::rowCount(list)) + L" others"; });
    return probe::placeOfRow(list, *probe::row(list, name));
}

POINT middleOf(HWND window, const RECT& area)
{
    POINT middle{(area.left + area.right) / 2, (area.top + area.bottom) / 2};
    ClientToScreen(window, &middle);
    return middle;
}

// With the mouse, and a key held down that makes a selection of several rows.
template <WORD modifier>
void clickRowWith(ScriptRunner& script, Text name)
{
    const HWND list = control(script, WC_LISTVIEWW);
    const POINT place = middleOf(list, placeOfRow(script, list, name));
    input::keyDown(modifier);
    input::mouse(place, MOUSEEVENTF_LEFTDOWN);
    input::mouse(place, MOUSEEVENTF_LEFTUP);
    Sleep(handsPause); // the press is worked off while the key is down
    input::keyUp(modifier);
}

void expectSelected(ScriptRunner& script, Text number)
{
    const HWND list = control(script, WC_LISTVIEWW);
    const auto count = [&] { return std::to_wstring(ListView_GetSelectedCount(list)); };
    script.expect(number + L" selected rows", [&] { return count() == number; }, count);
}

struct KeyRow {
    const wchar_t* name;
    WORD key;
};
// clang-format off
constexpr KeyRow keys[] = {
    {L"tab", VK_TAB}, {L"enter", VK_RETURN}, {L"escape", VK_ESCAPE}, {L"delete", VK_DELETE}, {L"f5", VK_F5}, {L"f10", VK_F10},
    {L"up", VK_UP}, {L"down", VK_DOWN}, {L"left", VK_LEFT}, {L"right", VK_RIGHT}, {L"menu", VK_APPS},
    {L"a", 'A'}, {L"c", 'C'}, {L"f", 'F'}, {L"v", 'V'}, {L"ctrl", VK_CONTROL}, {L"shift", VK_SHIFT}, {L"alt", VK_MENU},
};
// clang-format on

WORD keyOf(Text name)
{
    for (const KeyRow& row : keys)
        if (name == row.name)
            return row.key;
    throw ScriptFailure(L"there is no key " + name);
}

// "f5", "ctrl+shift+c": the last one is pressed while the others are down.
void press(ScriptRunner&, Text names)
{
    std::vector<WORD> held;
    for (const std::wstring& name : split(names, L'+'))
        held.push_back(keyOf(name));
    const WORD pressed = held.back();
    held.pop_back();
    for (const WORD key : held)
        input::keyDown(key);
    input::key(pressed);
    for (const WORD key : held)
        input::keyUp(key);
}

// Into what has the focus, whatever the keyboard's layout.
void type(ScriptRunner& script, Text text)
{
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetWindowThreadProcessId(script.shell().hwnd(), nullptr), &info);
    for (const wchar_t character : text)
        PostMessageW(info.hwndFocus, WM_CHAR, character, 0);
}

void expectShown(ScriptRunner& script, Text text)
{
    script.expect(
        L"a control that says " + text, [&] { return probe::childWithText(script.shell().hwnd(), text) != nullptr; },
        [] { return L"none"; });
}

void expectNotShown(ScriptRunner& script, Text text)
{
    script.expect(
        L"no control that says " + text, [&] { return probe::childWithText(script.shell().hwnd(), text) == nullptr; },
        [] { return L"one"; });
}

void expectFocus(ScriptRunner& script, Text className)
{
    const auto focused = [&] {
        GUITHREADINFO info{};
        info.cbSize = sizeof info;
        GetGUIThreadInfo(GetWindowThreadProcessId(script.shell().hwnd(), nullptr), &info);
        return probe::classOf(info.hwndFocus);
    };
    script.expect(L"the focus in a " + className, [&] { return focused() == className; }, focused);
}

// The mouse comes from the side and stays.
void rest(POINT place)
{
    for (const LONG aside : {LONG{4}, LONG{2}, LONG{0}}) {
        input::mouse({place.x - aside, place.y});
        Sleep(handsPause);
    }
}

void hoverRow(ScriptRunner& script, Text name)
{
    const HWND list = control(script, WC_LISTVIEWW);
    rest(middleOf(list, placeOfRow(script, list, name)));
}

// "COLUMN ROW"
std::pair<int, std::wstring> columnAndRow(HWND list, Text rest)
{
    const size_t space = rest.rfind(L' ');
    const std::vector<std::wstring> columns = probe::columns(list);
    for (size_t column = 0; column < columns.size(); ++column)
        if (columns[column] == rest.substr(0, space))
            return {static_cast<int>(column), rest.substr(space + 1)};
    throw ScriptFailure(L"there is no column " + rest.substr(0, space));
}

void hoverCell(ScriptRunner& script, Text where)
{
    const HWND list = control(script, WC_LISTVIEWW);
    const auto [column, name] = columnAndRow(list, where);
    placeOfRow(script, list, name);
    RECT place{};
    ListView_GetSubItemRect(list, *probe::row(list, name), column, LVIR_LABEL, &place);
    rest(middleOf(list, place));
}

// "COLUMN PIXELS": the divider at the column's end is dragged so far that the column is as wide.
void widenColumn(ScriptRunner& script, Text how)
{
    const HWND list = control(script, WC_LISTVIEWW);
    const auto [column, width] = columnAndRow(list, how);
    const HWND header = ListView_GetHeader(list);
    RECT place{};
    Header_GetItemRect(header, column, &place);
    const POINT divider = middleOf(header, {place.right - 1, place.top, place.right - 1, place.bottom});
    const LONG end = divider.x - (place.right - place.left) + _wtoi(width.c_str());
    input::mouse(divider, MOUSEEVENTF_LEFTDOWN);
    for (const LONG left : {(divider.x + end) / 2, end}) {
        Sleep(handsPause);
        input::mouse({left, divider.y});
    }
    Sleep(handsPause);
    input::mouse({end, divider.y}, MOUSEEVENTF_LEFTUP);
}

void hoverNode(ScriptRunner& script, Text path)
{
    const HWND tree = control(script, WC_TREEVIEWW);
    const HTREEITEM item = probe::node(tree, split(path, L'/'));
    if (!item)
        throw ScriptFailure(L"there is no node " + path);
    rest(middleOf(tree, probe::placeOfNode(tree, item)));
}

void expectTip(ScriptRunner& script, Text text)
{
    const auto shown = [] {
        const HWND tip = probe::topWindow(TOOLTIPS_CLASSW);
        return tip ? probe::textOf(tip) : std::wstring();
    };
    script.expect(L"a tip " + text, [&] { return shown() == text; }, [&] { return L"\"" + shown() + L"\""; });
}

void useColours(ScriptRunner& script, Text name)
{
    if (!script.onShell([&] { return useSystemColours(script.shell().hwnd(), name); }))
        throw ScriptFailure(L"there are no colours " + name);
}

// clang-format off
constexpr ScriptCommand commands[] = {
    {L"add-row",          clickRowWith<VK_CONTROL>},
    {L"extend-to-row",    clickRowWith<VK_SHIFT>},
    {L"expect-selected",  expectSelected},
    {L"press",            press},
    {L"type",             type},
    {L"expect-shown",     expectShown},
    {L"expect-not-shown", expectNotShown},
    {L"expect-focus",     expectFocus},
    {L"hover-row",        hoverRow},
    {L"hover-cell",       hoverCell},
    {L"hover-node",       hoverNode},
    {L"widen-column",     widenColumn},
    {L"expect-tip",       expectTip},
    {L"use-colours",      useColours},
};
// clang-format on

} // namespace

std::span<const ScriptCommand> gestureCommands()
{
    return commands;
}

} // namespace velk::devkit
