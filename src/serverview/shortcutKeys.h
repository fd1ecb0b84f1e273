#pragma once

#include "serverview/contextMenus.h"

namespace velk {

// The keys that stand for items of the context menus, and those by which the panes are used.
class ShortcutKeys {
public:
    ShortcutKeys(const ViewParts& parts, ContextMenus& menus) noexcept : m_parts(parts), m_menus(menus) {}

    // Whether the key was used: Tab moves between tree and list, and their own keys stay theirs.
    bool translateKey(const MSG& message);

private:
    bool useKey(WPARAM key);
    bool useRefresh();
    bool useFirstItem();
    bool useRemoveOfRow();
    bool useRemoveOfNode();

    const ViewParts& m_parts;
    ContextMenus& m_menus;
};

} // namespace velk
