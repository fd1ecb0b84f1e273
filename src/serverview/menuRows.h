#pragma once

#include "serverview/commands.h"

#include <cstdint>
#include <span>

namespace velk {

// The context menus of the server view and their items, under the names by which the product knows them. An item that
// opens a submenu is named like one, too.
// clang-format off
enum class PopupMenu {
    conFolderMnu, devObjFolderMnu, dbObjFolderMnu, dbConMnu, devObjMnu, dbTableObjMnu, trigObjMnu,
    devObjScmMnuItem, // the submenu of devObjMnu
    count
};
// clang-format on

// In the order of the table, so that an item's number is the place of its row.
enum class MenuItem {
#define MENU_ROW(item, ...) item,
#include "serverview/menuRows.inc"
#undef MENU_ROW
    count
};

inline constexpr int32_t noText = 0; // keeps the caption of its row
inline constexpr int32_t noCode = 0; // its command reads none, or it is a separator
inline constexpr int32_t propertiesCode = 13;
inline constexpr int32_t refreshCode = 10; // the contents of the folder come anew

// One item: the menu it stands in, its caption ("-" is a separator), the message number of its text, the action code
// that its tag carries, and what it does.
struct MenuRow {
    MenuItem item;
    PopupMenu menu;
    const wchar_t* caption;
    int32_t text;
    int32_t code;
    Command command = doMenuCommand;
};

// All items, in their order within each menu; and the row of one.
std::span<const MenuRow> menuRows() noexcept;
const MenuRow& menuRow(MenuItem item) noexcept;

// Whether the items of a menu act on the tree's selected node; else on the details list's selected row.
bool actsOnTheTree(PopupMenu menu) noexcept;
// Whether an item is offered while several rows are selected.
bool isForMany(MenuItem item) noexcept;

} // namespace velk
