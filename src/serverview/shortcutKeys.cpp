#include "serverview/shortcutKeys.h"

#include "serverview/copyRows.h"
#include "serverview/folderKinds.h"

#include <algorithm>
#include <vector>

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

// What must have the focus: panes, or the strip above the list.
enum Pane { tree = 1, list = 2, either = tree | list, strip = 4, any = either | strip };

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
        {VK_TAB,    plain,           any,   &ShortcutKeys::usePaneChange},
        {VK_TAB,    shift,           any,   &ShortcutKeys::usePaneChange},
        {VK_F5,     plain,           any,   &ShortcutKeys::useRefresh},
        {'A',       control,         list,  &ShortcutKeys::useSelectAll},
        {'C',       control,         list,  &ShortcutKeys::useCopyOfNames},
        {'C',       control | shift, list,  &ShortcutKeys::useCopyOfTable},
        {VK_RETURN, plain,           list,  &ShortcutKeys::useFirstItem},
        {VK_RETURN, alt,             list,  &ShortcutKeys::usePropertiesOfRow},
        {VK_RETURN, alt,             tree,  &ShortcutKeys::usePropertiesOfNode},
        {VK_DELETE, plain,           list,  &ShortcutKeys::useRemoveOfRow},
        {VK_DELETE, plain,           tree,  &ShortcutKeys::useRemoveOfNode},
        {'F',       control,         any,   &ShortcutKeys::useFilter},
        {VK_RETURN, plain,           strip, &ShortcutKeys::useFirstRow},
        {VK_DOWN,   plain,           strip, &ShortcutKeys::goToFirstRow},
        {VK_ESCAPE, plain,           strip, &ShortcutKeys::useFilterEnd},
    };
    // clang-format on
    const Modifiers modifiers = heldModifiers();
    const int focused = (m_parts.serverTreeView->hasFocus() ? tree : 0) | (m_parts.list().hasFocus() ? list : 0) |
                        (m_parts.filterStrip->hasFocus() ? strip : 0);
    for (const KeyRow& row : rows)
        if (row.key == message.wParam && row.modifiers == modifiers && (row.pane & focused) != 0)
            return (this->*row.use)();
    if (focused == strip)
        return m_parts.filterStrip->useKey(message);
    // The keys by which both controls move must reach them also where a host has them as accelerators of its own.
    const bool isMove = message.wParam >= VK_PRIOR && message.wParam <= VK_DOWN;
    const bool moves = focused != 0 && message.message == WM_KEYDOWN && isMove;
    if (moves) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return moves;
}

bool ShortcutKeys::usePaneChange()
{
    const std::span<const HWND> ofStrip = m_parts.filterStrip->stops();
    std::vector<HWND> stops{m_parts.serverTreeView->hwnd()};
    stops.insert(stops.end(), ofStrip.begin(), ofStrip.end());
    stops.push_back(m_parts.list().hwnd());
    const HWND focused = GetFocus();
    const auto at = std::find_if(stops.begin(), stops.end(),
                                 [focused](HWND stop) { return stop == focused || IsChild(stop, focused); });
    const size_t step = GetKeyState(VK_SHIFT) < 0 ? stops.size() - 1 : 1;
    SetFocus(stops[(static_cast<size_t>(at - stops.begin()) + step) % stops.size()]);
    return true;
}

bool ShortcutKeys::useFilter()
{
    m_parts.filterStrip->open();
    return true;
}

bool ShortcutKeys::useFilterEnd()
{
    m_parts.filterStrip->clearOrClose();
    return true;
}

// In the strip these do nothing to an empty list, and nothing else.
bool ShortcutKeys::useFirstRow()
{
    if (m_parts.filterStrip->isButtonFocused())
        m_parts.filterStrip->close();
    else if (m_parts.serverDetailsView->rows().size() > 0) {
        m_parts.list().selectRow(0);
        m_parts.list().bringIntoView(0);
        useFirstItem();
    }
    return true;
}

bool ShortcutKeys::goToFirstRow()
{
    if (m_parts.serverDetailsView->rows().size() > 0) {
        m_parts.list().selectRow(0);
        m_parts.list().bringIntoView(0);
        SetFocus(m_parts.list().hwnd());
    }
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

bool ShortcutKeys::usePropertiesOfRow()
{
    const bool isOne = m_parts.serverDetailsView->selectedCount() == 1; // several have no properties in common
    return isOne && useProperties(m_menus.menuOfSelectedRow());
}

bool ShortcutKeys::usePropertiesOfNode()
{
    const bool isNode = m_parts.serverTreeView->selected() != nullptr;
    return useProperties(isNode ? std::optional(PopupMenus::menuOfNode(m_parts.selectedKind())) : std::nullopt);
}

bool ShortcutKeys::useProperties(std::optional<PopupMenu> menu)
{
    for (const MenuRow& row : menuRows()) {
        const MenuItemState& state = m_menus.menus()[row.item];
        if (row.menu != menu || row.code != propertiesCode || !state.visible || !state.enabled)
            continue;
        m_menus.clickMenuItem(row.item);
        return true;
    }
    return false;
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
