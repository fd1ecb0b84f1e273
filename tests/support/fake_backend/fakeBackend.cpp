#include "support/fakeBackend.h"

#include "backend/library.h"
#include "base/error.h"
#include "base/module.h"
#include "base/text.h"
#include "support/fake_backend/fakeRecords.h"

#include <utility>

namespace velk::test {
namespace {

std::string shown(int32_t number)
{
    return std::to_string(number);
}

std::string shown(const char* text)
{
    return '"' + std::string(text, roomOf(text)) + '"';
}

template <class... Values>
std::string listed(Values... values)
{
    std::string line;
    ((line += (line.empty() ? "" : ", ") + shown(values)), ...);
    return line;
}

std::wstring textAt(const char* counted)
{
    return toWide({counted, roomOf(counted)});
}

void replace(std::wstring& text, const std::wstring& mark, const std::wstring& value)
{
    if (const size_t found = text.find(mark); found != std::wstring::npos)
        text.replace(found, mark.size(), value);
}

} // namespace

FakeBackend::FakeBackend() : m_library(LoadLibraryW((module::folder() + L"\\velkvsadd.dll").c_str()))
{
    throwLastErrorUnless(static_cast<bool>(m_library));
    setActions();
    setRecords();
    setObjects();
    connect(&on);
}

FakeBackend::~FakeBackend()
{
    connect(nullptr);
    unloadBackend();
}

void FakeBackend::connect(Hooks* hooks) noexcept
{
    using Connect = void(__stdcall*)(Hooks*);
    reinterpret_cast<Connect>(reinterpret_cast<void*>(GetProcAddress(m_library.get(), "FakeBackendConnect")))(hooks);
}

void FakeBackend::notify(int32_t type, int32_t project, int32_t connection, int32_t objectType, int32_t objectHandle)
{
    notifications.push_back({type, project, connection, objectType, objectHandle});
}

int32_t FakeBackend::prompt(std::wstring text, int32_t type, std::wstring buttons)
{
    const int32_t handle = ++m_lastPrompt;
    prompts[handle] = {.strText = std::move(text), .lTextType = type, .strButtons = std::move(buttons)};
    notify(2, 0, 0, 0, handle);
    return handle;
}

// Every call: counted, written down, answered with 1 or what the test wants.
int32_t FakeBackend::enter(const std::string& name, const std::string& arguments)
{
    ++counts[name];
    if (!unjournaled.contains(name)) {
        calls.push_back(name + "(" + arguments + ")");
        if (onCall)
            onCall(calls.back());
    }
    const auto answer = answers.find(name);
    return answer == answers.end() ? 1 : answer->second;
}

int32_t FakeBackend::message(int32_t number, char* buffer, const std::vector<std::wstring>& parameters)
{
    const auto found = texts.find(number);
    if (found == texts.end() && !numbersAsTexts)
        return 0;
    std::wstring text = found == texts.end() ? L"#" + numberText(number) : found->second;
    for (size_t index = 0; index < parameters.size(); ++index)
        replace(text, L"%" + std::to_wstring(index + 1), parameters[index]);
    writeCounted(buffer, text);
    return static_cast<int32_t>(toAnsi(text).size());
}

int32_t FakeBackend::next(wire::trzNotify* record, int16_t* more)
{
    *record = {};
    *more = 0;
    if (notifications.empty())
        return 0;
    const trzNotify first = notifications.front();
    notifications.pop_front();
    *record = {first.lNotifyType, first.lProjectHdl, first.lConnectionHdl, first.lObjectType, first.lObjectHdl};
    *more = notifications.empty() ? int16_t{0} : int16_t{-1};
    return 1;
}

int32_t FakeBackend::begin(int32_t folder, int32_t* unread, int32_t* enumeration)
{
    const auto found = folders.find(folder);
    if (found == folders.end())
        return 0;
    *unread = static_cast<int32_t>(found->second.size());
    *enumeration = ++m_lastEnumeration;
    enumerations[*enumeration] = {found->second.begin(), found->second.end()};
    return 1;
}

template <class Records, class Wire>
int32_t FakeBackend::read(const Records& records, int32_t handle, Wire* target)
{
    const auto found = records.find(handle);
    if (found == records.end())
        return 0;
    auto record = found->second;
    if constexpr (requires { record.lHdl; })
        record.lHdl = record.lHdl ? record.lHdl : handle;
    write(*target, record);
    return 1;
}

template <class Records, class Wire>
int32_t FakeBackend::readNext(const Records& records, int32_t enumeration, Wire* target)
{
    const auto found = enumerations.find(enumeration);
    if (found == enumerations.end() || found->second.empty())
        return 0;
    const int32_t handle = found->second.front();
    found->second.pop_front();
    return read(records, handle, target);
}

void FakeBackend::setActions()
{
    // Functions that only note that they were called.
#define NOTED(name) on.name = [this](auto... arguments) { return enter(#name, listed(arguments...)); }
    NOTED(RZInitialize);
    NOTED(RZTerminate);
    NOTED(RZButtonDoAction);
    NOTED(RZProjectDoAccess);
    NOTED(RZSetCurrentFolder);
    NOTED(RZObjectDoAction);
    NOTED(RZObjectDoGetADO);
    NOTED(RZConnectionDoGetDE);
    NOTED(RZCommandDoGetDE);
    NOTED(RZLaunchApp);
    NOTED(RZLaunchVelkTool);
    NOTED(RZDoTestAction);
    NOTED(RZMgrInitialize);
    NOTED(RZMgrTerminate);
    NOTED(RZMgrSendData);
    NOTED(RZObjectDoPaste);
#undef NOTED
    on.RZGetString = [this](int32_t number, char* buffer, int32_t) {
        return enter("RZGetString", listed(number)) ? message(number, buffer, {}) : 0;
    };
    on.RZGetStringP1 = [this](int32_t number, char* buffer, int32_t, char** p1) {
        return enter("RZGetStringP1", listed(number, *p1)) ? message(number, buffer, {textAt(*p1)}) : 0;
    };
    on.RZGetStringP2 = [this](int32_t number, char* buffer, int32_t, char** p1, char** p2) {
        return enter("RZGetStringP2", listed(number, *p1, *p2)) ? message(number, buffer, {textAt(*p1), textAt(*p2)})
                                                                : 0;
    };
    on.RZGetNotification = [this](wire::trzNotify* record, int16_t* more) {
        return enter("RZGetNotification", {}) ? next(record, more) : 0;
    };
}

// A function that reads a record: an answer of 0 set by the test leaves the record alone.
#define READ(name, records, wireRecord)                                                                                \
    on.name = [this](int32_t handle, wire::wireRecord* target) {                                                       \
        const int32_t answer = enter(#name, listed(handle));                                                           \
        return answer && read(records, handle, target) ? answer : 0;                                                   \
    }

void FakeBackend::setRecords()
{
    READ(RZGetText, prompts, trzText);
    READ(RZGetSQLText, sqlTexts, trzSQLText);
    READ(RZGetADOText, adoTexts, trzADOText);
    READ(RZConnectionGetDE, connectionDEs, trzConnectionDE);
    READ(RZCommandGetDE, commandDEs, trzCommandDE);
    READ(RZProjectGet, projects, trzProject);
    READ(RZConnectionGet, connections, trzConnection);
}

#define OBJECTS(kind, records)                                                                                         \
    READ(RZ##kind##Get, records, trz##kind);                                                                           \
    on.RZ##kind##EnumBegin = [this](int32_t folder, int32_t* unread, int32_t* enumeration) {                           \
        const int32_t answer = enter("RZ" #kind "EnumBegin", listed(folder));                                          \
        return answer && begin(folder, unread, enumeration) ? answer : 0;                                              \
    };                                                                                                                 \
    on.RZ##kind##EnumNext = [this](int32_t enumeration, wire::trz##kind* target) {                                     \
        const int32_t answer = enter("RZ" #kind "EnumNext", listed(enumeration));                                      \
        return answer && readNext(records, enumeration, target) ? answer : 0;                                          \
    };                                                                                                                 \
    on.RZ##kind##EnumEnd = [this](int32_t enumeration) {                                                               \
        enumerations.erase(enumeration);                                                                               \
        return enter("RZ" #kind "EnumEnd", listed(enumeration));                                                       \
    }

void FakeBackend::setObjects()
{
    OBJECTS(Procedure, procedures);
    OBJECTS(Function, functions);
    OBJECTS(Trigger, triggers);
    OBJECTS(Table, tables);
    OBJECTS(View, views);
}

} // namespace velk::test
