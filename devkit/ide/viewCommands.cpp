// What a script does in a tool window with a tree and a list.
#include "devkit/ide/probe.h"
#include "devkit/ide/scriptRunner.h"

#include <commctrl.h>
#include <utility>

namespace velk::devkit {
namespace {

using Text = const std::wstring&;

constexpr DWORD untilAnotherClick = 2000; // milliseconds

HWND control(ScriptRunner& script, const wchar_t* className)
{
    const auto find = [&] { return probe::childOfClass(script.shell().hwnd(), className); };
    script.expect(std::wstring(L"a control ") + className, [&] { return find() != nullptr; }, [] { return L"none"; });
    return find();
}

HWND tree(ScriptRunner& script)
{
    return control(script, WC_TREEVIEWW);
}

HWND list(ScriptRunner& script)
{
    return control(script, WC_LISTVIEWW);
}

HTREEITEM nodeAt(ScriptRunner& script, Text path)
{
    const HWND window = tree(script);
    const auto find = [&] { return probe::node(window, split(path, L'/')); };
    script.expect(
        L"a node " + path, [&] { return find() != nullptr; }, [&] { return L"the tree\n" + probe::treeText(window); });
    return find();
}

// A move of the real pointer, which rests somewhere above the window that came, makes a drag of the click if it comes
// between its two messages. Then the user clicks once more.
void selectNode(ScriptRunner& script, Text path)
{
    const HTREEITEM item = nodeAt(script, path);
    const HWND window = tree(script);
    probe::clickNode(window, item, false);
    const DWORD clicked = GetTickCount();
    bool isClickedAgain = false;
    const auto isSelected = [&] {
        if (TreeView_GetSelection(window) == item)
            return true;
        if (GetTickCount() - clicked >= untilAnotherClick && !std::exchange(isClickedAgain, true))
            probe::clickNode(window, item, false);
        return false;
    };
    script.expect(path + L" to be selected", isSelected,
                  [&] { return probe::nodeText(window, TreeView_GetSelection(window)); });
}

void expectNoNode(ScriptRunner& script, Text path)
{
    const HWND window = tree(script);
    script.expect(
        L"no node " + path, [&] { return !probe::node(window, split(path, L'/')); },
        [&] { return L"the tree\n" + probe::treeText(window); });
}

void expectNodes(ScriptRunner& script, Text number)
{
    const HWND window = tree(script);
    const int count = _wtoi(number.c_str());
    script.expect(
        number + L" nodes", [&] { return TreeView_GetCount(window) == static_cast<UINT>(count); },
        [&] { return L"the tree\n" + probe::treeText(window); });
}

std::wstring joined(const std::vector<std::wstring>& texts)
{
    std::wstring line;
    for (const std::wstring& text : texts)
        line += (line.empty() ? L"" : L"|") + text;
    return line;
}

void expectColumns(ScriptRunner& script, Text wanted)
{
    const HWND window = list(script);
    script.expect(
        L"columns " + wanted, [&] { return joined(probe::columns(window)) == wanted; },
        [&] { return joined(probe::columns(window)); });
}

std::wstring rowsText(HWND window)
{
    std::wstring text;
    for (int row = 0; row < probe::rowCount(window) && row < 50; ++row)
        text += joined(probe::cells(window, row)) + L"\n";
    return L"the rows\n" + text;
}

// Cells in order; "*" stands for any text, and what follows the last one given does not matter.
bool matches(const std::vector<std::wstring>& cells, const std::vector<std::wstring>& wanted)
{
    for (size_t index = 0; index < wanted.size(); ++index)
        if (index >= cells.size() || (wanted[index] != L"*" && wanted[index] != cells[index]))
            return false;
    return true;
}

void expectRow(ScriptRunner& script, Text rest)
{
    const HWND window = list(script);
    const std::vector<std::wstring> wanted = split(rest, L'|');
    const auto isThere = [&] {
        for (int row = 0; row < probe::rowCount(window); ++row)
            if (matches(probe::cells(window, row), wanted))
                return true;
        return false;
    };
    script.expect(L"a row " + rest, isThere, [&] { return rowsText(window); });
}

void expectFirstRow(ScriptRunner& script, Text name)
{
    const HWND window = list(script);
    script.expect(
        name + L" to be first", [&] { return probe::rowCount(window) > 0 && probe::cells(window, 0).front() == name; },
        [&] { return rowsText(window); });
}

void expectNoRow(ScriptRunner& script, Text name)
{
    const HWND window = list(script);
    script.expect(L"no row " + name, [&] { return !probe::row(window, name); }, [&] { return rowsText(window); });
}

void expectRows(ScriptRunner& script, Text number)
{
    const HWND window = list(script);
    script.expect(
        number + L" rows", [&] { return probe::rowCount(window) == _wtoi(number.c_str()); },
        [&] { return rowsText(window); });
}

int rowAt(ScriptRunner& script, Text name)
{
    const HWND window = list(script);
    script.expect(
        L"a row " + name, [&] { return probe::row(window, name).has_value(); }, [&] { return rowsText(window); });
    return *probe::row(window, name);
}

void selectRow(ScriptRunner& script, Text name)
{
    const int row = rowAt(script, name);
    const HWND window = list(script);
    probe::clickRow(window, row, false);
    script.expect(
        name + L" to be selected", [&] { return ListView_GetItemState(window, row, LVIS_SELECTED) == LVIS_SELECTED; },
        [] { return L"it is not"; });
}

// clang-format off
constexpr ScriptCommand commands[] = {
    {L"select-node",    selectNode},
    {L"expect-node",    [](ScriptRunner& script, Text path) { nodeAt(script, path); }},
    {L"expect-no-node", expectNoNode},
    {L"expect-nodes",   expectNodes},
    {L"expect-columns", expectColumns},
    {L"expect-row",     expectRow},
    {L"expect-first-row", expectFirstRow},
    {L"expect-no-row",  expectNoRow},
    {L"expect-rows",    expectRows},
    {L"select-row",     selectRow},
};
// clang-format on

} // namespace

std::span<const ScriptCommand> viewCommands()
{
    return commands;
}

} // namespace velk::devkit
