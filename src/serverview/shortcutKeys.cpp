#include "serverview/shortcutKeys.h"

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
