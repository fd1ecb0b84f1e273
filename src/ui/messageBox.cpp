#include "ui/messageBox.h"

#include "base/module.h"
#include "base/never_destroyed.h"
#include "window/dialog.h"

namespace velk {
namespace {

HWND mainWindow = nullptr;
uint32_t cancelled = 0;

MessagePresenter& presenterSlot()
{
    static never_destroyed<MessagePresenter> presenter;
    return presenter.get();
}

} // namespace

void setMainWindow(HWND window) noexcept
{
    mainWindow = window;
}

HWND dialogOwner() noexcept
{
    return IsWindow(mainWindow) ? mainWindow : GetActiveWindow();
}

HWND boxOwner() noexcept
{
    const HWND owner = dialogOwner();
    if (!owner || IsWindowEnabled(owner))
        return owner;
    // Something modal is open. The active popup may also be a palette of the IDE, which can go at any time.
    constexpr ATOM dialogClass = 32770;
    const HWND active = GetLastActivePopup(owner);
    const bool isDialog = GetClassLongPtrW(active, GCW_ATOM) == dialogClass;
    if (isDialog && IsWindowVisible(active) && IsWindowEnabled(active))
        return active;
    const HWND form = Dialog::topmost();
    return form && IsWindowEnabled(form) ? form : owner;
}

void setMessagePresenter(MessagePresenter presenter)
{
    presenterSlot() = std::move(presenter);
}

uint32_t cancelledBoxes() noexcept
{
    return cancelled;
}

int32_t showMessage(const std::wstring& text, uint32_t style, const std::wstring& title)
{
    // Escape and the close button of a box that has OK only mean OK, whatever the system's box answers then.
    const auto meant = [style](int32_t answer) {
        return answer != 0 && (style & MB_TYPEMASK) == MB_OK ? int32_t{IDOK} : answer;
    };
    const auto counted = [](int32_t answer) {
        cancelled += answer == IDCANCEL ? 1 : 0;
        return answer;
    };
    if (presenterSlot())
        return counted(meant(presenterSlot()(text, style, title)));
    // Task modal where there is no owner: the user must not go on working beside a box of an unknown parent.
    const module::keep_loaded untilAnswered;
    const HWND owner = boxOwner();
    const int answer = MessageBoxW(owner, text.c_str(), title.c_str(), style | (owner ? 0u : MB_TASKMODAL));
    return counted(meant(answer));
}

} // namespace velk
