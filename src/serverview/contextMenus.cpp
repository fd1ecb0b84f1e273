#include "serverview/contextMenus.h"

#include "serverview/objectColumns.h"

#include <algorithm>

namespace velk {
namespace {

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

} // namespace

void ContextMenus::open(HWND owner, HWND pane, POINT place, bool isByKeyboard)
{
    if (m_parts.life.isOver())
        return;
    if (pane == m_parts.serverTreeView->hwnd())
        serverTreeView_MouseUp(owner, place, isByKeyboard);
    else if (pane == m_parts.list().hwnd())
        serverDetailsView_MouseUp(owner, place, isByKeyboard);
}

void ContextMenus::serverTreeView_MouseUp(HWND owner, POINT place, bool isByKeyboard)
{
    TreeView& tree = *m_parts.serverTreeView;
    const TreeNode* hit = isByKeyboard ? tree.selected() : tree.nodeAt(inWindow(tree.hwnd(), place));
    if (!hit)
        return;
    tree.select(std::wstring(hit->key));
    m_folder.selectNode(false);
    if (m_parts.life.isOver())
        return;
    if (isByKeyboard) {
        tree.bringSelectedIntoView();
        place = below(tree.hwnd(), tree.placeOfSelected());
    }
    popUp(PopupMenus::menuOfNode(m_parts.selectedKind()), owner, place);
}

void ContextMenus::serverDetailsView_MouseUp(HWND owner, POINT place, bool isByKeyboard)
{
    ListView& list = m_parts.list();
    const int row = isByKeyboard ? list.focusedRow() : list.rowAt(inWindow(list.hwnd(), place));
    if (!m_parts.serverTreeView->selected() || row < 0)
        return;
    list.selectRow(row);
    if (isByKeyboard) {
        list.bringIntoView(row);
        place = below(list.hwnd(), list.placeOf(row));
    }
    if (const std::optional<PopupMenu> menu = menuOfSelectedRow())
        popUp(*menu, owner, place);
}

std::optional<PopupMenu> ContextMenus::menuOfSelectedRow()
{
    const Row* row = m_parts.serverDetailsView->selected();
    if (!row)
        return std::nullopt;
    return m_menus.menuOfRow(m_parts.selectedKind(), std::wstring(row->cell(languageColumn)), std::wstring(row->tag()));
}

void ContextMenus::popUp(PopupMenu menu, HWND owner, POINT place)
{
    // The tool goes on while the menu is open: the view may be gone when the user has chosen.
    const Session life = m_parts.life;
    const Target before = targetOf(menu);
    const std::optional<MenuItem> chosen = m_menus.show(menu, owner, place);
    // What was removed meanwhile leaves the selection to another object, which nobody chose anything for.
    if (chosen && !life.isOver() && targetOf(menu) == before)
        clickMenuItem(*chosen);
}

ContextMenus::Target ContextMenus::targetOf(PopupMenu menu) const
{
    const TreeNode* node = m_parts.serverTreeView->selected();
    const Row* row = actsOnTheTree(menu) ? nullptr : m_parts.serverDetailsView->selected();
    return {node ? node->key : std::wstring(), row ? makeKey(row->handle()) : std::wstring()};
}

void ContextMenus::clickMenuItem(MenuItem item) noexcept
{
    const MenuRow& row = menuRow(item);
    carryOut(m_parts.life, [&] { row.command(choiceOf(row)); });
}

Choice ContextMenus::choiceOf(const MenuRow& row) const
{
    return {m_parts.IMgr,
            m_parts.life,
            m_menus[row.item].tag,
            m_menus[row.item].caption,
            m_menus[MenuItem::devObjViewSrcMnuItem].caption,
            objectOf(row.menu)};
}

std::optional<Choice::Object> ContextMenus::objectOf(PopupMenu menu) const
{
    if (!actsOnTheTree(menu)) {
        const Row* row = m_parts.serverDetailsView->selected();
        return row ? std::optional(Choice::Object{makeKey(row->handle()), std::wstring(row->tag())}) : std::nullopt;
    }
    const TreeNode* node = m_parts.serverTreeView->selected();
    return node ? std::optional(Choice::Object{node->key, node->tag}) : std::nullopt;
}

} // namespace velk
