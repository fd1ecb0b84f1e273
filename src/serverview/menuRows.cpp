#include "serverview/menuRows.h"

#include <iterator>

namespace velk {
namespace {

using enum MenuItem;

// clang-format off
constexpr MenuRow rows[] = {
    {projOpenMnuItem,            PopupMenu::conFolderMnu,    L"Open",                            438,     2,      openOtherProject},
    {projSaveMnuItem,            PopupMenu::conFolderMnu,    L"Save",                            439,     3},
    {projSaveAsMnuItem,          PopupMenu::conFolderMnu,    L"Save As",                         440,     4,      projSaveAsMnuItem_Click}, // which never reads the code
    {scmPropsMnuItem,            PopupMenu::conFolderMnu,    L"Add Project to Visual SourceSafe",431,     noCode, scmPropsMnuItem_Click},
    {projSep,                    PopupMenu::conFolderMnu,    L"-",                               noText,  noCode},
    {addConMnuItem,              PopupMenu::conFolderMnu,    L"Add Connection",                  401,     9},
    {projPropsMnuItem,           PopupMenu::conFolderMnu,    L"Properties",                      noText,  13},

    {devObjFolderNewMnuItem,     PopupMenu::devObjFolderMnu, L"New",                             406,     9},
    {devObjFolderImportMnuItem,  PopupMenu::devObjFolderMnu, L"Import",                          407,     12},
    {devObjFolderPasteMnuItem,   PopupMenu::devObjFolderMnu, L"Paste",                           405,     23},
    {devObjFolderRefreshMnuItem, PopupMenu::devObjFolderMnu, L"Refresh",                         noText,  10},
    {devObjFolderFilterMnuItem,  PopupMenu::devObjFolderMnu, L"Filter",                          noText,  11},

    {dbObjFolderRefreshMnuItem,  PopupMenu::dbObjFolderMnu,  L"Refresh",                         noText,  10},
    {dbObjFolderFilterMnuItem,   PopupMenu::dbObjFolderMnu,  L"Filter",                          noText,  11},

    {conConnectMnuItem,          PopupMenu::dbConMnu,        L"Connect",                         408,     7},
    {conDisconnectmnuItem,       PopupMenu::dbConMnu,        L"Disconnect",                      409,     8},
    {conRemoveMnuItem,           PopupMenu::dbConMnu,        L"Remove",                          410,     21},
    {conPropsMnuItem,            PopupMenu::dbConMnu,        L"Properties",                      noText,  13},
    {dbConSep,                   PopupMenu::dbConMnu,        L"-",                               noText,  noCode},
    {adoConCodeMnuItem,          PopupMenu::dbConMnu,        L"Add ADO Connection Code",         412,     26,     addCode},
    {adoConObjMnuItem,           PopupMenu::dbConMnu,        L"Add ADO Connection Object",       413,     27,     addConnectionObject},

    {devObjViewSrcMnuItem,       PopupMenu::devObjMnu,       L"View Source",                     414,     25},
    {devObjEditSrcMnuItem,       PopupMenu::devObjMnu,       L"Edit Source",                     444,     14},
    {devObjSep2,                 PopupMenu::devObjMnu,       L"-",                               noText,  noCode},
    {devObjBuildMnuItem,         PopupMenu::devObjMnu,       L"Build",                           415,     18},
    {devObjBuildWDebugMnuItem,   PopupMenu::devObjMnu,       L"Build With Debug",                416,     19},
    {devObjRunMnuItem,           PopupMenu::devObjMnu,       L"Run",                             noText,  16},
    {devObjRunWDebugMnuItem,     PopupMenu::devObjMnu,       L"Run With Debug",                  418,     17},
    {devObjRunSetMnuItem,        PopupMenu::devObjMnu,       L"Run Settings",                    noText,  15},
    {devObjRmMnuItem,            PopupMenu::devObjMnu,       L"Remove From Project",             445,     21},
    {devObjDropMnuItem,          PopupMenu::devObjMnu,       L"Drop From Database",              noText,  22},
    {devObjCopyMnuItem,          PopupMenu::devObjMnu,       L"Copy",                            421,     24},
    {devObjPropsMnuItem,         PopupMenu::devObjMnu,       L"Properties",                      noText,  13},
    {devObjSep1,                 PopupMenu::devObjMnu,       L"-",                               noText,  noCode},
    {devObjScmMnuItem,           PopupMenu::devObjMnu,       L"Visual SourceSafe",               432,     noCode},
    {devObjSep,                  PopupMenu::devObjMnu,       L"-",                               noText,  noCode},
    {addCmdCodeMnuItem,          PopupMenu::devObjMnu,       L"Add ADO Command Code",            noText,  28,     addCode},
    {addCmdObjMnuItem,           PopupMenu::devObjMnu,       L"Add ADO Command Object",          noText,  29,     addCommandObject},

    {dbTblPropsMnuItem,          PopupMenu::dbTableObjMnu,   L"Properties",                      noText,  13},
    {dbTblSmplContMnuItem,       PopupMenu::dbTableObjMnu,   L"Sample Contents",                 424,     20},

    {trigObjPropsMnuItem,        PopupMenu::trigObjMnu,      L"Properties",                      noText,  13},

    {devObjAddFileMnuItem,       PopupMenu::devObjScmMnuItem, L"Add &File",           443,     noCode, devObjAddFileMnuItem_Click},
    {devObjChkOutMnuItem,        PopupMenu::devObjScmMnuItem, L"Check Out",           434,     noCode, devObjChkOutMnuItem_Click},
    {devObjChkInMnuItem,         PopupMenu::devObjScmMnuItem, L"Check In",            433,     noCode, devObjChkInMnuItem_Click},
};
// clang-format on

constexpr bool itemsStandInTheOrderOfTheirNames()
{
    for (size_t index = 0; index < std::size(rows); ++index)
        if (static_cast<size_t>(rows[index].item) != index)
            return false;
    return std::size(rows) == static_cast<size_t>(MenuItem::count);
}
static_assert(itemsStandInTheOrderOfTheirNames(), "an item is found by its number");

} // namespace

std::span<const MenuRow> menuRows() noexcept
{
    return rows;
}

const MenuRow& menuRow(MenuItem item) noexcept
{
    return rows[static_cast<size_t>(item)];
}

bool actsOnTheTree(PopupMenu menu) noexcept
{
    return menu == PopupMenu::conFolderMnu || menu == PopupMenu::devObjFolderMnu || menu == PopupMenu::dbObjFolderMnu ||
           menu == PopupMenu::dbConMnu;
}

} // namespace velk
