// The calls by which a session lives: its beginning and end, what the user asks for, and what the caller hears.
#include "devkit/backend/calls.h"
#include "devkit/backend/callWatch.h"
#include "devkit/backend/messages.h"

#include <algorithm>

namespace velk::devkit::calls {
namespace {

constexpr int32_t answerCodes[] = {answerOk, answerCancel, answerYes, answerNo};
constexpr int32_t accessOpen = 2;
constexpr int32_t accessSaveAs = 4;
constexpr int32_t applicationName = 850;
constexpr int32_t toolName = 851;

int32_t noTool(Desk& desk, int32_t text, int32_t number)
{
    desk.session->conversation().tell(messageNoTool, {desk.texts.text(text, {std::to_wstring(number)})});
    return 0;
}

} // namespace

int32_t RZInitialize(Desk& desk, int32_t ideType, char* projectFile, char* second)
{
    desk.rules.begin(L"RZInitialize");
    const std::wstring file = desk.rules.input(projectFile);
    const std::wstring empty = desk.rules.input(second);
    desk.rules.write(L"RZInitialize", ideType, projectFile, second);
    if (ideType < 1 || ideType > 3)
        desk.rules.breach(L"there is no IDE type " + std::to_wstring(ideType));
    if (!empty.empty())
        desk.rules.breach(L"the second string is not empty");
    if (desk.session) {
        desk.rules.breach(L"the session has begun already");
        return 0;
    }
    desk.rules.sessionBegins();
    desk.session = std::make_unique<ToolSession>(desk.handles, desk.texts);
    desk.session->begin();
    return 1;
}

int32_t RZTerminate(Desk& desk)
{
    if (!desk.rules.enter(L"RZTerminate"))
        return 0;
    // A caller whose session ends inside one of its own calls has had no time to end what it enumerates.
    if (!isInsideAnotherCall())
        for (const auto& [handle, enumeration] : desk.enumerations.open())
            desk.rules.breach(L"enumeration " + std::to_wstring(handle) + L" was not ended");
    desk.enumerations.endAll();
    desk.longTexts.clear();
    desk.session.reset();
    desk.rules.sessionEnds();
    return 1;
}

// Called ten times a second, so it is not in the journal.
int32_t RZGetNotification(Desk& desk, wire::trzNotify* record, int16_t* more)
{
    desk.rules.begin(L"RZGetNotification");
    if (!desk.rules.checkGiven(record && more))
        return 0;
    *record = {};
    *more = 0; // without a session, too: the caller goes on while it is set
    if (!desk.rules.mayUseSession())
        return 0;
    bool moreWait = false;
    const auto next = desk.session->next(moreWait);
    if (!next)
        return 0;
    *more = moreWait ? int16_t{-1} : int16_t{0};
    *record = {static_cast<int32_t>(next->type), next->project, next->connection, next->kind, next->handle};
    return 1;
}

int32_t RZButtonDoAction(Desk& desk, char* text, int32_t answer)
{
    if (!desk.rules.enter(L"RZButtonDoAction", text, answer))
        return 0;
    if (desk.rules.input(text) != L"User response")
        desk.rules.breach(L"the text is not the fixed one");
    if (std::find(std::begin(answerCodes), std::end(answerCodes), answer) == std::end(answerCodes))
        desk.rules.breach(L"there is no such answer");
    if (desk.session->conversation().answer(answer))
        return 1;
    desk.rules.breach(L"nothing was asked");
    return 0;
}

int32_t RZProjectDoAccess(Desk& desk, char* first, char* second, int32_t mode)
{
    if (!desk.rules.enter(L"RZProjectDoAccess", first, second, mode))
        return 0;
    const std::wstring folder = desk.rules.input(first);
    const std::wstring file = desk.rules.input(second);
    if (mode == accessOpen) {
        desk.session->openProject(folder.empty() ? file : folder + L"\\" + file);
        return 1;
    }
    if (mode != accessSaveAs) {
        desk.rules.breach(L"there is no such mode");
        return 0;
    }
    if (!file.empty())
        desk.rules.breach(L"the second string is not empty");
    return desk.session->saveAs(folder) ? 1 : 0;
}

int32_t RZSetCurrentFolder(Desk& desk, int32_t handle, int32_t kind)
{
    if (!desk.rules.enter(L"RZSetCurrentFolder", handle, kind) || !desk.rules.checkHandle(handle, kind))
        return 0;
    desk.session->setCurrentFolder(handle);
    return 1;
}

int32_t RZObjectDoAction(Desk& desk, int32_t handle, int32_t code)
{
    if (!desk.rules.enter(L"RZObjectDoAction", handle, code) || !desk.rules.checkLive(handle))
        return 0;
    const Outcome outcome = desk.session->act(handle, code);
    if (outcome == Outcome::unknown)
        desk.rules.breach(L"there is no such action");
    return outcome == Outcome::done ? 1 : 0;
}

int32_t RZLaunchApp(Desk& desk, int32_t application, char* arguments)
{
    if (!desk.rules.enter(L"RZLaunchApp", application, arguments))
        return 0;
    desk.rules.input(arguments);
    return noTool(desk, applicationName, application);
}

int32_t RZLaunchVelkTool(Desk& desk, int32_t tool)
{
    return desk.rules.enter(L"RZLaunchVelkTool", tool) ? noTool(desk, toolName, tool) : 0;
}

} // namespace velk::devkit::calls
