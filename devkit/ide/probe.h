#pragma once

#include "base/win32.h"

#include <optional>
#include <string>
#include <vector>

namespace velk::devkit::probe {

// What stands on the screen of this process, read by messages as a user's eyes would; from any of its threads.

// The first visible child, at any depth, of a window class; null when there is none.
HWND childOfClass(HWND parent, const wchar_t* className);
// A top-level window of this process by its class.
HWND topWindow(const std::wstring& className);
std::wstring textOf(HWND window);
std::wstring classOf(HWND window);
// A visible child, at any depth, with that very text; null when there is none.
HWND childWithText(HWND parent, const std::wstring& text);

// The message box (or dialog) that is on top; null when none is open.
HWND dialog();
// All its static texts and its caption, one a line.
std::wstring dialogText(HWND dialog);
// A dialog's button by what it says ("ok", "yes", "no", "cancel", or a caption without regard to "&"); null when none.
HWND dialogButton(HWND dialog, const std::wstring& name);
// A dialog's text field by its number from 1 on; null when there are fewer.
HWND field(HWND dialog, int number);

// Tree and list of the tool window.
HTREEITEM node(HWND tree, const std::vector<std::wstring>& path);
std::wstring nodeText(HWND tree, HTREEITEM item);
std::wstring treeText(HWND tree); // the nodes' paths, one a line
std::vector<std::wstring> columns(HWND list);
std::vector<std::wstring> cells(HWND list, int row);
std::optional<int> row(HWND list, const std::wstring& firstCell);
int rowCount(HWND list);

// Where an item's text stands in its control, scrolled into sight.
RECT placeOfNode(HWND tree, HTREEITEM item);
RECT placeOfRow(HWND list, int row);

// A click with a mouse button at the middle of an item, by the messages that the mouse makes.
void clickNode(HWND tree, HTREEITEM item, bool right);
void clickRow(HWND list, int row, bool right);
void clickHeader(HWND header, int column);

} // namespace velk::devkit::probe
