#include "backend/fetched.h"
#include "notify/handlers.h"
#include "notify/prompts.h"

#include "backend/texts.h"
#include "base/unique_any.h"
#include "ui/messageBox.h"
#include "ui/splashscrnFrm.h"

#include <string_view>

namespace velk {
namespace {

constexpr int32_t commandOrPrompt = 1;
constexpr int32_t plainMessage = 3;
constexpr int32_t toolIsReadyText = 646;

void onTaskComplete(const IntegrationMgr& manager)
{
    manager.restoreVSAppWinState();
}

void onMinimize(const IntegrationMgr& manager)
{
    manager.minimizeVSAppWin();
}

void onInitComplete(const IntegrationMgr& manager)
{
    // No project will come to take the splash screen away where it cannot be opened.
    scope_exit taken([] { unloadSplashScreen(); });
    const std::wstring ready = getRZString(toolIsReadyText);
    manager.session().throwIfOver();
    splashScreen().updateProgress(ready);
    manager.openRZProject();
    taken.release();
}

struct CommandWord {
    std::wstring_view word;
    void (*carryOut)(const IntegrationMgr& manager);
};

// clang-format off
constexpr CommandWord commandWords[] = {
    {L"RZ_TASK_COMPLETE", onTaskComplete},
    {L"MINIMIZE_MSWIN",   onMinimize},
    {L"RZ_INIT_COMPLETE", onInitComplete},
};
// clang-format on

} // namespace

void handleText(const IntegrationMgr& manager, const trzNotify& notification)
{
    const trzText text = fetched(manager.session(), fetchText, notification.lObjectHdl);
    if (text.lTextType == plainMessage)
        showMessage(text.strText);
    if (text.lTextType != commandOrPrompt)
        return;
    for (const CommandWord& row : commandWords)
        if (row.word == text.strText)
            return row.carryOut(manager);
    if (!text.strButtons.empty())
        showPrompt(manager.session(), text);
}

} // namespace velk
