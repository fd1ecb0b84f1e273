#pragma once

#include "serverview/contextMenus.h"

namespace velk {

// The keys of the view: those that stand for items of the context menus, and those by which the panes and the filter
// strip are used.
class ShortcutKeys {
public:
    ShortcutKeys(const ViewParts& parts, ContextMenus& menus) noexcept : m_parts(parts), m_menus(menus) {}

    // Whether the key, WM_KEYDOWN or WM_SYSKEYDOWN, was used. A key does nothing while no part of the view has the
    // focus, but for those by which whatever has it moves.
    bool translateKey(const MSG& message);

    // What Enter and a double click on the list's row do: the first item of its menu that can be chosen.
    bool useFirstItem();

private:
    struct KeyRow; // what a key does

    bool usePaneChange();
    bool useFilter();
    bool useFilterEnd();
    bool useFirstRow();
    bool goToFirstRow();
    bool useRefresh();
    bool useSelectAll();
    bool useCopyOfNames();
    bool useCopyOfTable();
    bool usePropertiesOfRow();
    bool usePropertiesOfNode();
    bool useProperties(std::optional<PopupMenu> menu);
    bool useRemoveOfRow();
    bool useRemoveOfNode();

    const ViewParts& m_parts;
    ContextMenus& m_menus;
};

} // namespace velk
