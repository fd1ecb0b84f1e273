#include "devkit/backend/desk.h"

#include "devkit/backend/callWatch.h"
#include "devkit/backend/deskTemplates.h"
#include "devkit/backend/messages.h"
#include "devkit/backend/systemFile.h"

#include <algorithm>

namespace velk::devkit {
namespace {

constexpr int32_t answerCodes[] = {answerOk, answerCancel, answerYes, answerNo};
constexpr int32_t accessOpen = 2;
constexpr int32_t accessSaveAs = 4;

} // namespace

Desk::Desk() : m_texts(loadTexts())
{
}

// The library is being unloaded, so the database drivers may be gone already: an open session is left as it is.
Desk::~Desk()
{
    if (m_session)
        m_journal.breach(L"unloaded without RZTerminate");
    static_cast<void>(m_session.release());
}

bool Desk::mayUseSession(const std::wstring& call)
{
    m_call = call;
    if (!m_session) {
        breach(L"outside of RZInitialize and RZTerminate");
        return false;
    }
    if (GetCurrentThreadId() != m_thread)
        breach(L"on another thread than RZInitialize");
    return true;
}

std::wstring Desk::input(char* text)
{
    const CountedString string(text);
    if (string.missing())
        breach(L"a string is missing");
    else if (!string.isWellFormed())
        breach(L"the length of a string is not where its NUL is");
    return string.text();
}

bool Desk::checkPreset(const std::wstring& name, char* text, size_t capacity)
{
    const CountedString string(text);
    if (string.missing())
        breach(name + L" is missing");
    else if (string.length() != capacity)
        breach(name + L" has length " + std::to_wstring(string.length()) + L", not " + std::to_wstring(capacity));
    else if (!string.isBlank())
        breach(name + L" is not preset with NULs");
    // A string that claims more room than it should have may not have it.
    return !string.missing() && string.length() <= capacity;
}

bool Desk::checkHandle(int32_t handle, int32_t kind)
{
    const int32_t actual = m_handles.kindOf(handle);
    if (actual == 0)
        breach(L"the handle is not live");
    else if (actual != kind)
        breach(L"the handle is of kind " + std::to_wstring(actual) + L", not " + std::to_wstring(kind));
    return actual == kind;
}

int32_t Desk::RZInitialize(int32_t ideType, char* projectFile, char* second)
{
    m_call = L"RZInitialize";
    const std::wstring file = input(projectFile);
    const std::wstring empty = input(second);
    m_journal.line(L"RZInitialize(" + shown(ideType) + L", " + shown(projectFile) + L", " + shown(second) + L")");
    if (ideType < 1 || ideType > 3)
        breach(L"there is no IDE type " + std::to_wstring(ideType));
    if (!empty.empty())
        breach(L"the second string is not empty");
    if (m_session) {
        breach(L"the session has begun already");
        return 0;
    }
    m_thread = GetCurrentThreadId();
    m_session = std::make_unique<Session>(m_handles, m_texts);
    m_session->begin();
    return 1;
}

int32_t Desk::RZTerminate()
{
    if (!enter(L"RZTerminate"))
        return 0;
    // A caller whose session ends inside one of its own calls has had no time to end what it enumerates.
    if (!isInsideAnotherCall())
        for (const auto& [handle, enumeration] : m_enumerations)
            breach(L"enumeration " + std::to_wstring(handle) + L" was not ended");
    m_enumerations.clear();
    m_longTexts.clear();
    m_session.reset();
    return 1;
}

int32_t Desk::giveText(int32_t number, char* buffer, int32_t capacity, const std::vector<std::wstring>& parameters)
{
    if (environmentText(L"VELK_BACKEND_JOURNAL_TEXTS") == L"1")
        m_journal.line(m_call + L"(" + std::to_wstring(number) + L")");
    if (!checkPreset(L"the buffer", buffer, static_cast<size_t>(std::max(capacity, 0))))
        return 0;
    return static_cast<int32_t>(CountedString(buffer).write(m_texts.text(number, parameters)));
}

int32_t Desk::RZGetString(int32_t number, char* buffer, int32_t capacity)
{
    m_call = L"RZGetString";
    return giveText(number, buffer, capacity, {});
}

int32_t Desk::RZGetStringP1(int32_t number, char* buffer, int32_t capacity, char** p1)
{
    m_call = L"RZGetStringP1";
    return giveText(number, buffer, capacity, {input(p1 ? *p1 : nullptr)});
}

int32_t Desk::RZGetStringP2(int32_t number, char* buffer, int32_t capacity, char** p1, char** p2)
{
    m_call = L"RZGetStringP2";
    return giveText(number, buffer, capacity, {input(p1 ? *p1 : nullptr), input(p2 ? *p2 : nullptr)});
}

// Called ten times a second, so it is not in the journal.
int32_t Desk::RZGetNotification(wire::trzNotify* record, int16_t* more)
{
    if (!mayUseSession(L"RZGetNotification"))
        return 0;
    if (!record || !more) {
        breach(L"an argument is missing");
        return 0;
    }
    bool moreWait = false;
    const auto next = m_session->next(moreWait);
    *record = {};
    *more = next && moreWait ? int16_t{-1} : int16_t{0};
    if (!next)
        return 0;
    *record = {static_cast<int32_t>(next->type), next->project, next->connection, next->kind, next->handle};
    return 1;
}

int32_t Desk::RZButtonDoAction(char* text, int32_t answer)
{
    if (!enter(L"RZButtonDoAction", text, answer))
        return 0;
    if (input(text) != L"User response")
        breach(L"the text is not the fixed one");
    if (std::find(std::begin(answerCodes), std::end(answerCodes), answer) == std::end(answerCodes))
        breach(L"there is no such answer");
    if (m_session->conversation().answer(answer))
        return 1;
    breach(L"nothing was asked");
    return 0;
}

int32_t Desk::RZGetText(int32_t handle, wire::trzText* record)
{
    return getLong<TextPayload>(L"RZGetText", handle, record);
}

int32_t Desk::RZGetSQLText(int32_t handle, wire::trzSQLText* record)
{
    return getLong<SqlPayload>(L"RZGetSQLText", handle, record);
}

int32_t Desk::RZGetADOText(int32_t handle, wire::trzADOText* record)
{
    return getLong<AdoPayload>(L"RZGetADOText", handle, record);
}

int32_t Desk::RZConnectionGetDE(int32_t handle, wire::trzConnectionDE* record)
{
    return getShort<ConnectionDEPayload>(L"RZConnectionGetDE", handle, record);
}

int32_t Desk::RZCommandGetDE(int32_t handle, wire::trzCommandDE* record)
{
    return getShort<CommandDEPayload>(L"RZCommandGetDE", handle, record);
}

int32_t Desk::RZProjectDoAccess(char* first, char* second, int32_t mode)
{
    if (!enter(L"RZProjectDoAccess", first, second, mode))
        return 0;
    const std::wstring folder = input(first);
    const std::wstring file = input(second);
    if (mode == accessOpen) {
        m_session->openProject(folder.empty() ? file : folder + L"\\" + file);
        return 1;
    }
    if (mode != accessSaveAs) {
        breach(L"there is no such mode");
        return 0;
    }
    if (!file.empty())
        breach(L"the second string is not empty");
    return m_session->saveAs(folder) ? 1 : 0;
}

int32_t Desk::RZSetCurrentFolder(int32_t handle, int32_t kind)
{
    if (!enter(L"RZSetCurrentFolder", handle, kind) || !checkHandle(handle, kind))
        return 0;
    m_session->setCurrentFolder(handle);
    return 1;
}

int32_t Desk::RZObjectDoAction(int32_t handle, int32_t code)
{
    if (!enter(L"RZObjectDoAction", handle, code))
        return 0;
    if (m_handles.kindOf(handle) == 0) {
        breach(L"the handle is not live");
        return 0;
    }
    const Outcome outcome = m_session->act(handle, code);
    if (outcome == Outcome::unknown)
        breach(L"there is no such action");
    return outcome == Outcome::done ? 1 : 0;
}

int32_t Desk::notAvailable(int32_t action)
{
    m_session->conversation().tell(messageNotAvailable, {m_texts.text(actionNames + action)});
    return 0;
}

} // namespace velk::devkit
