#include "devkit/ide/reentryActions.h"

namespace velk::devkit {
namespace {

constexpr wchar_t addInBar[] = L"Add-Ins";

// The entries that add-ins made and a user could click now.
void clickEntries(Shell& shell)
{
    const CommandBar* bar = shell.dte().bars->find(addInBar);
    const auto controls = bar ? bar->controls : std::vector<com_ptr<CommandBarControl>>();
    for (const auto& control : controls)
        if (control->enabled && control->parent && !control->onAction.empty())
            control->execute();
}

void closeToolWindows(Shell& shell)
{
    for (const auto& window : shell.dte().windows->open())
        if (window->isOpen() && window->owner)
            window->close();
}

// clang-format off
constexpr ReentryAction actions[] = {
    {L"click",        clickEntries},
    {L"disconnect",   [](Shell& shell) {
         for (const std::wstring& progId : shell.addIns().loaded())
             shell.addIns().unload(progId, DisconnectMode::userClosed);
     }},
    {L"close-window", closeToolWindows},
    {L"close-ide",    [](Shell& shell) { SendMessageW(shell.hwnd(), WM_CLOSE, 0, 0); }},
    {L"second-load",  [](Shell& shell) {
         for (const std::wstring& progId : shell.addIns().loaded())
             shell.addIns().loadAnother(progId);
     }},
    {L"let-go",       [](Shell& shell) {
         for (const std::wstring& progId : shell.addIns().loaded())
             shell.addIns().letGo(progId);
     }},
};

// These end the call that they come in. The Backend's callers must outlive that; an IDE that does so is done for.
constexpr ReentryAction faults[] = {
    {L"fault",        [](Shell&) { __asm__ volatile("movl $0, (%0)" : : "r"(16) : "memory"); }},
    {L"throw",        [](Shell&) { RaiseException(0xE06D7363, EXCEPTION_NONCONTINUABLE, 0, nullptr); }},
};
// clang-format on

} // namespace

std::span<const ReentryAction> reentryActions()
{
    return actions;
}

const ReentryAction* reentryAction(const std::wstring& name)
{
    for (const ReentryAction& row : actions)
        if (name == row.name)
            return &row;
    for (const ReentryAction& row : faults)
        if (name == row.name)
            return &row;
    return nullptr;
}

} // namespace velk::devkit
