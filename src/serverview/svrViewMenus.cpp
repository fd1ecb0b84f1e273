// When the server view's context menus open, and which keys stand for their items.

#include "serverview/folderKinds.h"
#include "serverview/objectColumns.h"
#include "serverview/svrViewCtl.h"
#include "serverview/viewAPIs.h"

#include <algorithm>

namespace velk {
namespace {

using enum MenuItem;

POINT onScreen(HWND window, POINT place)
{
    ClientToScreen(window, &place);
    return place;
}

// Where a menu that is asked for by the keyboard opens: below an item's text, as far as that is in sight.
POINT below(HWND window, const RECT& text)
{
    RECT inner{};
    GetClientRect(window, &inner);
    return onScreen(window, {std::clamp(text.left, 0L, inner.right), std::clamp(text.bottom, 0L, inner.bottom)});
}

POINT inWindow(HWND window, POINT place)
{
    ScreenToClient(window, &place);
    return place;
}

std::wstring cellOf(const Row& row, size_t column)
{
    return column < row.cells.size() ? row.cells[column] : std::wstring();
}

} // namespace

int32_t svrViewCtl::selectedKind() const
{
    return kindOf(m_serverTreeView->selected());
}

void svrViewCtl::onContextMenu(HWND source, POINT place, bool isByKeyboard)
{
    if (m_life.isOver())
        return;
    if (source == m_serverTreeView->hwnd())
        serverTreeView_MouseUp(place, isByKeyboard);
    else if (source == m_serverDetailsView->view().hwnd())
        serverDetailsView_MouseUp(place, isByKeyboard);
}

void svrViewCtl::serverTreeView_MouseUp(POINT place, bool isByKeyboard)
{
    const HWND window = m_serverTreeView->hwnd();
    const TreeNode* hit =
        isByKeyboard ? m_serverTreeView->selected() : m_serverTreeView->nodeAt(inWindow(window, place));
    if (!hit)
        return;
    m_serverTreeView->select(std::wstring(hit->key));
    selectNode(false);
    if (m_life.isOver())
        return;
    if (isByKeyboard) {
        m_serverTreeView->bringSelectedIntoView();
        place = below(window, m_serverTreeView->placeOfSelected());
    }
    popUp(PopupMenus::menuOfNode(selectedKind()), place);
}

void svrViewCtl::serverDetailsView_MouseUp(POINT place, bool isByKeyboard)
{
    list_view& list = m_serverDetailsView->view();
    const int row = isByKeyboard ? list.focusedRow() : list.rowAt(inWindow(list.hwnd(), place));
    if (!m_serverTreeView->selected() || row < 0)
        return;
    list.selectRow(row);
    if (isByKeyboard) {
        list.bringIntoView(row);
        place = below(list.hwnd(), list.placeOf(row));
    }
    if (const std::optional<PopupMenu> menu = menuOfSelectedRow())
        popUp(*menu, place);
}

std::optional<PopupMenu> svrViewCtl::menuOfSelectedRow()
{
    const Row* row = m_serverDetailsView->selected();
    if (!row)
        return std::nullopt;
    return m_menus.menuOfRow(selectedKind(), cellOf(*row, languageColumn), row->tag);
}

void svrViewCtl::popUp(PopupMenu menu, POINT place)
{
    // The tool goes on while the menu is open: the view may be gone when the user has chosen.
    const Session life = m_life;
    const auto target = [&] {
        const TreeNode* node = m_serverTreeView->selected();
        const Row* row = actsOnTheTree(menu) ? nullptr : m_serverDetailsView->selected();
        return std::pair(node ? node->key : std::wstring(), row ? row->key : std::wstring());
    };
    const auto before = target();
    const std::optional<MenuItem> chosen = m_menus.show(menu, hwnd(), place);
    // What was removed meanwhile leaves the selection to another object, which nobody chose anything for.
    if (chosen && !life.isOver() && target() == before)
        clickMenuItem(*chosen);
}

bool svrViewCtl::useKey(WPARAM key)
{
    // With a modifier these are the IDE's own: Ctrl+F5 runs, Shift+Delete cuts.
    for (const int modifier : {VK_CONTROL, VK_SHIFT, VK_MENU})
        if (GetKeyState(modifier) < 0)
            return false;
    const bool isInList = m_serverDetailsView->view().hasFocus();
    switch (key) {
    case VK_F5:
        if (!folderKindRow(selectedKind()))
            return false;
        clickMenuItem(devObjFolderRefreshMnuItem);
        return true;
    case VK_RETURN:
        return isInList && useFirstItem();
    case VK_DELETE:
        return isInList ? useRemoveOfRow() : useRemoveOfNode();
    default:
        return false;
    }
}

bool svrViewCtl::useFirstItem()
{
    const std::optional<PopupMenu> menu = menuOfSelectedRow();
    const std::optional<MenuItem> first = menu ? m_menus.firstEnabled(*menu) : std::nullopt;
    if (first)
        clickMenuItem(*first);
    return first.has_value();
}

bool svrViewCtl::useRemoveOfRow()
{
    const bool isRemovable = menuOfSelectedRow() == PopupMenu::devObjMnu && m_menus[devObjRmMnuItem].enabled;
    if (isRemovable)
        clickMenuItem(devObjRmMnuItem);
    return isRemovable;
}

bool svrViewCtl::useRemoveOfNode()
{
    const bool isRemovable = selectedKind() == kindConnection;
    if (isRemovable)
        clickMenuItem(conRemoveMnuItem);
    return isRemovable;
}

} // namespace velk
