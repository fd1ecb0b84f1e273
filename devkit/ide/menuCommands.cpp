// What a script does with context menus and keys: by the mouse and the keyboard, as a user would.
#include "devkit/ide/probe.h"
#include "devkit/ide/scriptRunner.h"
#include "devkit/ide/userInput.h"

#include <optional>

#include <commctrl.h>

namespace velk::devkit {
namespace {

using Text = const std::wstring&;

constexpr UINT getMenuMessage = 0x01E1; // MN_GETHMENU of the system's menu windows
constexpr const wchar_t* menuClass = L"#32768";

std::wstring captionOf(HMENU menu, int place)
{
    wchar_t text[256] = L"";
    MENUITEMINFOW item{};
    item.cbSize = sizeof item;
    item.fMask = MIIM_FTYPE | MIIM_STRING;
    item.dwTypeData = text;
    item.cch = 256;
    GetMenuItemInfoW(menu, static_cast<UINT>(place), TRUE, &item);
    return item.fType & MFT_SEPARATOR ? L"-" : withoutMarks(text);
}

HMENU openMenu()
{
    const HWND window = probe::topWindow(menuClass);
    return window ? reinterpret_cast<HMENU>(SendMessageW(window, getMenuMessage, 0, 0)) : nullptr;
}

// All captions, a disabled item in parentheses.
std::wstring menuText(HMENU menu)
{
    std::wstring text;
    for (int place = 0; menu && place < GetMenuItemCount(menu); ++place) {
        const std::wstring caption = captionOf(menu, place);
        const bool isGray =
            caption != L"-" && (GetMenuState(menu, static_cast<UINT>(place), MF_BYPOSITION) & MF_GRAYED) != 0;
        text += (place == 0 ? L"" : L"|") + (isGray ? L"(" + caption + L")" : caption);
    }
    return text;
}

void expectMenu(ScriptRunner& script, Text wanted)
{
    const auto shown = [] { return menuText(openMenu()); };
    script.expect(L"a menu " + wanted, [&] { return shown() == wanted; }, shown);
}

// The place of an item; nothing when there is none of that caption.
std::optional<int> placeOf(HMENU menu, Text caption)
{
    for (int place = 0; menu && place < GetMenuItemCount(menu); ++place)
        if (captionOf(menu, place) == caption)
            return place;
    return std::nullopt;
}

bool isHighlighted(HMENU menu, int place)
{
    return (GetMenuState(menu, static_cast<UINT>(place), MF_BYPOSITION) & MF_HILITE) != 0;
}

std::optional<int> highlighted(HMENU menu)
{
    for (int place = 0; place < GetMenuItemCount(menu); ++place)
        if (isHighlighted(menu, place))
            return place;
    return std::nullopt;
}

// Down until the item is highlighted. A menu that has just opened may lose a key, so each one is waited for.
void highlight(HMENU menu, int wanted)
{
    constexpr int mostKeys = 100;
    constexpr int mostLooks = 50;
    for (int key = 0; key < mostKeys && !isHighlighted(menu, wanted); ++key) {
        const std::optional<int> before = highlighted(menu);
        input::key(VK_DOWN);
        for (int look = 0; look < mostLooks && highlighted(menu) == before; ++look)
            Sleep(5);
    }
    if (!isHighlighted(menu, wanted))
        throw ScriptFailure(L"the menu does not take the keys");
}

void chooseMenu(ScriptRunner& script, Text path)
{
    const std::vector<std::wstring> parts = split(path, L'/');
    script.expect(
        L"a menu with " + parts.front(), [&] { return placeOf(openMenu(), parts.front()).has_value(); },
        [] { return menuText(openMenu()); });
    HMENU menu = openMenu();
    for (size_t depth = 0; depth < parts.size(); ++depth) {
        const std::optional<int> place = placeOf(menu, parts[depth]);
        if (!place)
            throw ScriptFailure(L"the menu has no " + parts[depth] + L": " + menuText(menu));
        highlight(menu, *place);
        const bool isLast = depth + 1 == parts.size();
        input::key(isLast ? VK_RETURN : VK_RIGHT);
        if (isLast)
            break;
        menu = GetSubMenu(menu, *place);
        // It opens with its first item highlighted; until then the keys would go to the menu above it.
        script.expect(
            L"the menu below " + parts[depth], [&] { return highlighted(menu).has_value(); }, [] { return L"none"; });
    }
    script.expect(L"the menu to go", [] { return !openMenu(); }, [] { return menuText(openMenu()); });
}

void rightClick(HWND window, const RECT& place)
{
    POINT middle{(place.left + place.right) / 2, (place.top + place.bottom) / 2};
    ClientToScreen(window, &middle);
    input::mouse(middle, MOUSEEVENTF_RIGHTDOWN);
    input::mouse(middle, MOUSEEVENTF_RIGHTUP);
}

HWND control(ScriptRunner& script, const wchar_t* className)
{
    return probe::childOfClass(script.shell().hwnd(), className);
}

void rightClickNode(ScriptRunner& script, Text path)
{
    const HWND tree = control(script, WC_TREEVIEWW);
    script.expect(
        L"a node " + path, [&] { return probe::node(tree, split(path, L'/')) != nullptr; },
        [&] { return probe::treeText(tree); });
    rightClick(tree, probe::placeOfNode(tree, probe::node(tree, split(path, L'/'))));
}

void rightClickRow(ScriptRunner& script, Text name)
{
    const HWND list = control(script, WC_LISTVIEWW);
    script.expect(L"a row " + name, [&] { return probe::row(list, name).has_value(); }, [] { return L"none"; });
    rightClick(list, probe::placeOfRow(list, *probe::row(list, name)));
}

void clickHeader(ScriptRunner& script, Text caption)
{
    const HWND list = control(script, WC_LISTVIEWW);
    const HWND header = ListView_GetHeader(list);
    const std::vector<std::wstring> columns = probe::columns(list);
    for (size_t index = 0; index < columns.size(); ++index)
        if (columns[index] == caption)
            return probe::clickHeader(header, static_cast<int>(index));
    throw ScriptFailure(L"there is no column " + caption);
}

// In a file dialog: the name, and OK.
void fileDialog(ScriptRunner& script, Text path)
{
    const auto edit = [] { return probe::dialog() ? probe::childOfClass(probe::dialog(), L"Edit") : nullptr; };
    script.expect(L"a file dialog", [&] { return edit() != nullptr; }, [] { return L"none"; });
    const HWND dialog = probe::dialog();
    SendMessageW(edit(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.c_str()));
    PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    script.expect(
        L"the file dialog to go", [&] { return probe::dialog() != dialog; }, [&] { return probe::dialogText(dialog); });
}

// clang-format off
constexpr ScriptCommand commands[] = {
    {L"right-click-node", rightClickNode},
    {L"right-click-row",  rightClickRow},
    {L"expect-menu",      expectMenu},
    {L"choose-menu",      chooseMenu},
    {L"click-header",     clickHeader},
    {L"file-dialog",      fileDialog},
};
// clang-format on

} // namespace

std::span<const ScriptCommand> menuCommands()
{
    return commands;
}

} // namespace velk::devkit
