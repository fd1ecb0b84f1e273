#pragma once

#include "serverview/menuRows.h"
#include "window/menu.h"

#include <array>
#include <optional>
#include <string>

namespace velk {

// What an item of a context menu is like at the moment. The tag is the action code that its command reads.
struct MenuItemState {
    std::wstring caption;
    int32_t tag = noCode;
    bool enabled = true;
    bool visible = true;
};

// The seven context menus of the server view: what each item says and whether it can be chosen.
class PopupMenus {
public:
    PopupMenus();

    MenuItemState& operator[](MenuItem item) noexcept { return m_items[static_cast<size_t>(item)]; }
    const MenuItemState& operator[](MenuItem item) const noexcept { return m_items[static_cast<size_t>(item)]; }

    // The settings at the start: tags, the tool's captions, and what depends on SourceSafe and on the kind of IDE.
    void setUp(bool isSourceSafeAvailable, int32_t ideType);
    bool isSourceSafeAvailable() const noexcept { return m_isSourceSafeAvailable; }

    // The menu for a node of the tree.
    static PopupMenu menuOfNode(int32_t kind) noexcept;
    // The menu for a row while a folder of that kind is selected; its items are set for the row's language (the fifth
    // column) and tag. Nothing for a kind without one.
    std::optional<PopupMenu> menuOfRow(int32_t folderKind, const std::wstring& language, const std::wstring& tag);

    // Shows a menu at a place on the screen (pixels) and waits for the choice; nothing when the user leaves it. For
    // many objects what is offered for one only is greyed.
    std::optional<MenuItem> show(PopupMenu menu, HWND owner, POINT place, bool areMany = false) const;

    // The first item that could be chosen now: what Enter on a row does.
    std::optional<MenuItem> firstEnabled(PopupMenu menu, bool areMany = false) const noexcept;

private:
    void prepareRoutineMenu(bool isDebuggingOffered, const std::wstring& language, const std::wstring& tag);

    std::array<MenuItemState, static_cast<size_t>(MenuItem::count)> m_items;
    bool m_isSourceSafeAvailable = false;
};

} // namespace velk
