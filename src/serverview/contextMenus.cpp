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
    // A menu for several selected rows: by the keyboard for all of them, wherever the focus is.
    const ListSelection& selection = m_parts.serverDetailsView->selection();
    if (selection.count() <= 1 || (!isByKeyboard && !selection.has(row)))
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
    Objects several = severalObjects(menu);
    const std::optional<MenuItem> chosen = m_menus.show(menu, owner, place, !several.empty());
    if (!chosen || life.isOver())
        return;
    // What was removed meanwhile leaves the selection to another object, which nobody chose anything for. Of several
    // the others are left.
    const Target after = targetOf(menu);
    if (!several.empty() && after.first == before.first)
        carryOut(life, [&] { doForSeveral(menuRow(*chosen), std::move(several)); });
    else if (after == before)
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
    carryOut(m_parts.life, [&] {
        if (Objects several = severalObjects(row.menu); several.empty())
            doForOne(row);
        else
            doForSeveral(row, std::move(several));
    });
}

void ContextMenus::doForOne(const MenuRow& row)
{
    const Choice choice = choiceOf(row);
    if (row.code == refreshCode)
        askForContents(*m_parts.notice, m_parts.life, [&] { row.command(choice); });
    else
        row.command(choice);
}

// None while not more than one row is selected.
Objects ContextMenus::severalObjects(PopupMenu menu) const
{
    Objects objects;
    if (actsOnTheTree(menu) || m_parts.serverDetailsView->selectedCount() <= 1)
        return objects;
    for (const Row* row : m_parts.serverDetailsView->selectedRows())
        objects.push_back({makeKey(row->handle()), std::wstring(row->tag())});
    return objects;
}

void ContextMenus::doForSeveral(const MenuRow& row, Objects objects)
{
    const TreeNode* node = m_parts.serverTreeView->selected();
    if (!isForMany(row.item) || !node)
        return;
    // The list knows what is there while it shows the folder; what becomes of a folder that is left, the tool knows.
    const auto isThere = [this, folder = node->key](const Choice::Object& object) {
        const TreeNode* selected = m_parts.serverTreeView->selected();
        const bool isShown = selected && selected->key == folder;
        return isShown ? m_parts.serverDetailsView->rows().find(keyToHandle(object.key)) != nullptr
                       : m_parts.serverTreeView->has(folder);
    };
    doForMany(row, choiceOf(row), std::move(objects), isThere);
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
