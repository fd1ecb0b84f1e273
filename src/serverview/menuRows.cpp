#include "serverview/menuRows.h"

#include <algorithm>

namespace velk {
namespace {

constexpr MenuRow rows[] = {
#define MENU_ROW(item, menu, ...) {MenuItem::item, PopupMenu::menu, __VA_ARGS__},
#include "serverview/menuRows.inc"
#undef MENU_ROW
};

using enum MenuItem;
constexpr MenuItem itemsForMany[] = {
    devObjViewSrcMnuItem, devObjEditSrcMnuItem, devObjBuildMnuItem,   devObjBuildWDebugMnuItem, devObjRmMnuItem,
    devObjDropMnuItem,    devObjScmMnuItem,     devObjAddFileMnuItem, devObjChkOutMnuItem,      devObjChkInMnuItem};

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

bool isForMany(MenuItem item) noexcept
{
    return std::find(std::begin(itemsForMany), std::end(itemsForMany), item) != std::end(itemsForMany);
}

} // namespace velk
