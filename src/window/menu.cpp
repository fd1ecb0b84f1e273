#include "window/menu.h"

#include "base/error.h"
#include "base/never_destroyed.h"
#include "base/unique_any.h"

namespace velk {
namespace {

MenuPresenter& presenter()
{
    static never_destroyed<MenuPresenter> only;
    return only.get();
}

unique_menu made(const std::vector<MenuLine>& lines)
{
    unique_menu menu(CreatePopupMenu());
    throwLastErrorUnless(static_cast<bool>(menu));
    for (const MenuLine& line : lines) {
        const UINT state = (line.enabled ? MF_ENABLED : MF_GRAYED) | (line.checked ? MF_CHECKED : MF_UNCHECKED);
        if (line.caption == L"-") {
            AppendMenuW(menu.get(), MF_SEPARATOR, 0, nullptr);
        } else if (line.submenu.empty()) {
            AppendMenuW(menu.get(), MF_STRING | state, static_cast<UINT_PTR>(line.id), line.caption.c_str());
        } else {
            // The menu owns its submenus.
            unique_menu submenu = made(line.submenu);
            if (AppendMenuW(menu.get(), MF_POPUP | state, reinterpret_cast<UINT_PTR>(submenu.get()),
                            line.caption.c_str()))
                submenu.release();
        }
    }
    return menu;
}

} // namespace

int showPopupMenu(const std::vector<MenuLine>& lines, HWND owner, POINT place)
{
    if (presenter())
        return presenter()(lines, place);
    const unique_menu menu = made(lines);
    return TrackPopupMenu(menu.get(), TPM_LEFTALIGN | TPM_RETURNCMD | TPM_NONOTIFY, place.x, place.y, 0, owner,
                          nullptr);
}

void setMenuPresenter(MenuPresenter replacement)
{
    presenter() = std::move(replacement);
}

} // namespace velk
