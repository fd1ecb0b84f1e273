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

enum class MenuItem {
    projOpenMnuItem, projSaveMnuItem, projSaveAsMnuItem, scmPropsMnuItem, projSep, addConMnuItem, projPropsMnuItem,
    devObjFolderNewMnuItem, devObjFolderImportMnuItem, devObjFolderPasteMnuItem, devObjFolderRefreshMnuItem,
    devObjFolderFilterMnuItem,
    dbObjFolderRefreshMnuItem, dbObjFolderFilterMnuItem,
    conConnectMnuItem, conDisconnectmnuItem, conRemoveMnuItem, conPropsMnuItem, dbConSep, adoConCodeMnuItem,
    adoConObjMnuItem,
    devObjViewSrcMnuItem, devObjEditSrcMnuItem, devObjSep2, devObjBuildMnuItem, devObjBuildWDebugMnuItem,
    devObjRunMnuItem, devObjRunWDebugMnuItem, devObjRunSetMnuItem, devObjRmMnuItem, devObjDropMnuItem,
    devObjCopyMnuItem, devObjPropsMnuItem, devObjSep1, devObjScmMnuItem, devObjSep, addCmdCodeMnuItem,
    addCmdObjMnuItem,
    dbTblPropsMnuItem, dbTblSmplContMnuItem,
    trigObjPropsMnuItem,
    devObjAddFileMnuItem, devObjChkOutMnuItem, devObjChkInMnuItem,
    count
};
// clang-format on

inline constexpr int32_t noText = 0; // keeps the caption of its row
inline constexpr int32_t noCode = 0; // its command reads none, or it is a separator

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

} // namespace velk
