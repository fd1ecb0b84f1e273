#include "devkit/ide/menus.h"

namespace velk::devkit {

void MenuStrip::fill(HMENU menu, const CommandBar& bar)
{
    for (const auto& control : bar.controls) {
        if (!control->visible)
            continue;
        if (control->beginGroup && GetMenuItemCount(menu) > 0)
            AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
        const UINT state = control->enabled ? MF_ENABLED : MF_GRAYED;
        if (control->type == controlPopup) {
            const HMENU popup = CreatePopupMenu();
            fill(popup, *control->menu.get());
            AppendMenuW(menu, MF_POPUP | state, reinterpret_cast<UINT_PTR>(popup), control->caption.c_str());
            continue;
        }
        const UINT command = first + static_cast<UINT>(m_controls.size());
        m_controls.push_back(control);
        AppendMenuW(menu, MF_STRING | state, command, control->caption.c_str());
        if (!control->face)
            continue;
        MENUITEMINFOW item{};
        item.cbSize = sizeof item;
        item.fMask = MIIM_BITMAP;
        item.hbmpItem = control->face.get();
        SetMenuItemInfoW(menu, command, FALSE, &item);
    }
}

void MenuStrip::rebuild(HWND window, const CommandBar& bar)
{
    m_controls.clear();
    const HMENU made = CreateMenu();
    fill(made, bar);
    const unique_menu before(GetMenu(window));
    SetMenu(window, made);
    DrawMenuBar(window);
}

com_ptr<CommandBarControl> MenuStrip::control(UINT command) const
{
    return command >= first && command - first < m_controls.size() ? m_controls[command - first] : nullptr;
}

} // namespace velk::devkit
