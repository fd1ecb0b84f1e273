#pragma once

#include "serverview/currentFolder.h"
#include "serverview/manyObjects.h"
#include "serverview/popupMenus.h"
#include "serverview/viewParts.h"

#include <optional>
#include <string>
#include <utility>

namespace velk {

// When the server view's context menus open, for what, and what becomes of the user's choice.
class ContextMenus {
public:
    ContextMenus(ViewParts& parts, CurrentFolder& folder) : m_parts(parts), m_folder(folder) {}

    PopupMenus& menus() noexcept { return m_menus; }

    // A right click on one of the panes, or the menu key there. The menu opens over the owner; the place is in pixels
    // of the screen.
    void open(HWND owner, HWND pane, POINT place, bool isByKeyboard);
    // The menu that the list's selected row would have, its items set for the row; nothing without one.
    std::optional<PopupMenu> menuOfSelectedRow();
    // What the user's choice of a menu item does: for the selected node or row, or for all of several selected rows,
    // where it is offered for many. A failure is told in a message box.
    void clickMenuItem(MenuItem item) noexcept;

private:
    void serverTreeView_MouseUp(HWND owner, POINT place, bool isByKeyboard);
    void serverDetailsView_MouseUp(HWND owner, POINT place, bool isByKeyboard);
    void popUp(PopupMenu menu, HWND owner, POINT place);
    using Target = std::pair<std::wstring, std::wstring>; // the keys of the selected node and, for its menus, row
    Target targetOf(PopupMenu menu) const;
    Choice choiceOf(const MenuRow& row) const;
    Objects severalObjects(PopupMenu menu) const;
    void doForOne(const MenuRow& row);
    void doForSeveral(const MenuRow& row, Objects objects);
    std::optional<Choice::Object> objectOf(PopupMenu menu) const;

    ViewParts& m_parts;
    CurrentFolder& m_folder;
    PopupMenus m_menus;
};

} // namespace velk
