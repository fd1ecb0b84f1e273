#include "serverview/shortcutKeys.h"

#include "serverview/folderKinds.h"

namespace velk {
namespace {

using enum MenuItem;

bool isModified()
{
    for (const int modifier : {VK_CONTROL, VK_SHIFT, VK_MENU})
        if (GetKeyState(modifier) < 0)
            return true;
    return false;
}

} // namespace

bool ShortcutKeys::translateKey(const MSG& message)
{
    if (message.wParam == VK_TAB && GetKeyState(VK_CONTROL) >= 0) {
        SetFocus(m_parts.list().hasFocus() ? m_parts.serverTreeView->hwnd() : m_parts.list().hwnd());
        return true;
    }
    if (useKey(message.wParam))
        return true;
    // The keys by which both controls move must reach them also where a host has them as accelerators of its own.
    const bool moves = message.wParam >= VK_PRIOR && message.wParam <= VK_DOWN;
    if (moves) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return moves;
}

bool ShortcutKeys::useKey(WPARAM key)
{
    // With a modifier these are the IDE's own: Ctrl+F5 runs, Shift+Delete cuts.
    if (isModified())
        return false;
    const bool isInList = m_parts.list().hasFocus();
    switch (key) {
    case VK_F5:
        return useRefresh();
    case VK_RETURN:
        return isInList && useFirstItem();
    case VK_DELETE:
        return isInList ? useRemoveOfRow() : useRemoveOfNode();
    default:
        return false;
    }
}

bool ShortcutKeys::useRefresh()
{
    const bool isFolder = folderKindRow(m_parts.selectedKind()) != nullptr;
    if (isFolder)
        m_menus.clickMenuItem(devObjFolderRefreshMnuItem);
    return isFolder;
}

bool ShortcutKeys::useFirstItem()
{
    const std::optional<PopupMenu> menu = m_menus.menuOfSelectedRow();
    const std::optional<MenuItem> first = menu ? m_menus.menus().firstEnabled(*menu) : std::nullopt;
    if (first)
        m_menus.clickMenuItem(*first);
    return first.has_value();
}

bool ShortcutKeys::useRemoveOfRow()
{
    const bool isRemovable =
        m_menus.menuOfSelectedRow() == PopupMenu::devObjMnu && m_menus.menus()[devObjRmMnuItem].enabled;
    if (isRemovable)
        m_menus.clickMenuItem(devObjRmMnuItem);
    return isRemovable;
}

bool ShortcutKeys::useRemoveOfNode()
{
    const bool isRemovable = m_parts.selectedKind() == kindConnection;
    if (isRemovable)
        m_menus.clickMenuItem(conRemoveMnuItem);
    return isRemovable;
}

} // namespace velk
