#include "serverview/shortcutKeys.h"

#include "serverview/copyRows.h"
#include "serverview/folderKinds.h"

namespace velk {
namespace {

using enum MenuItem;

// The modifiers of a key, exactly: F5 is ours, Ctrl+F5, which runs, is the IDE's.
enum Modifiers { plain = 0, shift = 1, control = 2, alt = 4 };

constexpr Modifiers operator|(Modifiers left, Modifiers right)
{
    return static_cast<Modifiers>(static_cast<int>(left) | static_cast<int>(right));
}

Modifiers heldModifiers()
{
    const auto held = [](int key, Modifiers modifier) { return GetKeyState(key) < 0 ? modifier : plain; };
    return held(VK_SHIFT, shift) | held(VK_CONTROL, control) | held(VK_MENU, alt);
}

// The pane that must have the focus.
enum class Pane { tree, list, either };

} // namespace

struct ShortcutKeys::KeyRow {
    WPARAM key;
    Modifiers modifiers;
    Pane pane;
    bool (ShortcutKeys::*use)(); // whether it did something; else the key is left to the IDE
};

bool ShortcutKeys::translateKey(const MSG& message)
{
    // clang-format off
    static constexpr KeyRow rows[] = {
        {VK_TAB,    plain, Pane::either, &ShortcutKeys::usePaneChange},
        {VK_TAB,    shift, Pane::either, &ShortcutKeys::usePaneChange},
        {VK_F5,     plain, Pane::either, &ShortcutKeys::useRefresh},
        {'A',       control, Pane::list, &ShortcutKeys::useSelectAll},
        {'C',       control, Pane::list, &ShortcutKeys::useCopyOfNames},
        {'C',       control | shift, Pane::list, &ShortcutKeys::useCopyOfTable},
        {VK_RETURN, plain, Pane::list,   &ShortcutKeys::useFirstItem},
        {VK_DELETE, plain, Pane::list,   &ShortcutKeys::useRemoveOfRow},
        {VK_DELETE, plain, Pane::tree,   &ShortcutKeys::useRemoveOfNode},
    };
    // clang-format on
    const Modifiers modifiers = heldModifiers();
    const bool isInList = m_parts.list().hasFocus();
    const bool isInTree = m_parts.serverTreeView->hasFocus();
    for (const KeyRow& row : rows) {
        const bool isItsPane = (row.pane != Pane::tree && isInList) || (row.pane != Pane::list && isInTree);
        if (row.key == message.wParam && row.modifiers == modifiers && isItsPane)
            return (this->*row.use)();
    }
    // The keys by which both controls move must reach them also where a host has them as accelerators of its own.
    const bool moves = message.message == WM_KEYDOWN && message.wParam >= VK_PRIOR && message.wParam <= VK_DOWN;
    if (moves) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return moves;
}

bool ShortcutKeys::usePaneChange()
{
    SetFocus(m_parts.list().hasFocus() ? m_parts.serverTreeView->hwnd() : m_parts.list().hwnd());
    return true;
}

bool ShortcutKeys::useRefresh()
{
    const bool isFolder = folderKindRow(m_parts.selectedKind()) != nullptr;
    if (isFolder)
        m_menus.clickMenuItem(devObjFolderRefreshMnuItem);
    return isFolder;
}

bool ShortcutKeys::useSelectAll()
{
    const ListView& list = m_parts.list();
    m_parts.serverDetailsView->selection().addAll();
    if (list.focusedRow() < 0)
        list.focusRow(0);
    return list.rowCount() > 0;
}

bool ShortcutKeys::useCopyOfNames()
{
    bool isUsed = true; // a failure was told
    carryOut(m_parts.life, [&] { isUsed = copySelectedNames(m_parts); });
    return isUsed;
}

bool ShortcutKeys::useCopyOfTable()
{
    bool isUsed = true;
    carryOut(m_parts.life, [&] { isUsed = copySelectedTable(m_parts); });
    return isUsed;
}

bool ShortcutKeys::useFirstItem()
{
    const std::optional<PopupMenu> menu = m_menus.menuOfSelectedRow();
    const std::optional<MenuItem> first =
        menu ? m_menus.menus().firstEnabled(*menu, m_parts.serverDetailsView->selectedCount() > 1) : std::nullopt;
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
