#pragma once

#include "backend/records.h"
#include "base/unique_any.h"
#include "support/fake_backend/counted.h"
#include "support/fake_backend/hooks.h"

#include <deque>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace velk::test {

// A Backend without a tool behind it. It stands beside the test program (velk_fake_backend in CMake), and what it
// knows and answers is set here:
//
//     FakeBackend backend;
//     backend.texts[646] = L"Opening the project";
//     backend.procedures[101] = {.strName = L"RAISE"};
//     backend.folders[30] = {101};
//     backend.notify(5, 1, 2, 7, 30);
//     ...
//     EXPECT_EQ(backend.calls, (Calls{"RZProcedureEnumBegin(30)", ...}));
//
// One at a time; made before the first Backend call of the test. At its end the product's library is unloaded.
class FakeBackend {
public:
    FakeBackend();
    FakeBackend(const FakeBackend&) = delete;
    FakeBackend& operator=(const FakeBackend&) = delete;
    ~FakeBackend();

    // What each function does; any of them may be replaced. The functions set here write the journal and answer
    // from what stands below.
    Hooks on;

    // The journal: name and input arguments, texts in quotes: RZProjectDoAccess("C:\x", "a.rzv", 2).
    std::vector<std::string> calls;
    // Functions that only count: those that are called all the time.
    std::set<std::string> unjournaled{"RZGetString", "RZGetStringP1", "RZGetStringP2", "RZGetNotification"};
    std::map<std::string, int> counts;
    // Hears each line of the journal as it is written, for a journal shared by several stand-ins.
    std::function<void(const std::string&)> onCall;

    // The answer of a function by name, whatever it would be otherwise; and of all functions not named (1).
    std::map<std::string, int32_t> answers;

    // Message texts by number, with %1 and %2 for the parameters. A number without one has no text, or with
    // numbersAsTexts the text "#number".
    std::map<int32_t, std::wstring> texts;
    bool numbersAsTexts = false;

    // Records by handle. A record without a handle of its own gets that under which it is kept.
    std::map<int32_t, trzText> prompts;
    std::map<int32_t, trzSQLText> sqlTexts;
    std::map<int32_t, trzADOText> adoTexts;
    std::map<int32_t, trzConnectionDE> connectionDEs;
    std::map<int32_t, trzCommandDE> commandDEs;
    std::map<int32_t, trzProject> projects;
    std::map<int32_t, trzConnection> connections;
    std::map<int32_t, trzProcedure> procedures;
    std::map<int32_t, trzFunction> functions;
    std::map<int32_t, trzTrigger> triggers;
    std::map<int32_t, trzTable> tables;
    std::map<int32_t, trzView> views;
    // The objects of a folder in the order of their enumeration. An unknown folder cannot be enumerated.
    std::map<int32_t, std::vector<int32_t>> folders;
    // Enumerations that were begun and not ended; their handles count up from 1.
    std::map<int32_t, std::deque<int32_t>> enumerations;

    // What the next polls get.
    std::deque<trzNotify> notifications;
    void notify(int32_t type, int32_t project, int32_t connection, int32_t objectType, int32_t objectHandle);
    // Queues a text notification (type 2) and keeps its text; gives the text's handle.
    int32_t prompt(std::wstring text, int32_t type, std::wstring buttons = {});

private:
    void connect(Hooks* hooks) noexcept;
    int32_t enter(const std::string& name, const std::string& arguments);
    int32_t message(int32_t number, char* buffer, const std::vector<std::wstring>& parameters);
    int32_t next(wire::trzNotify* record, int16_t* more);
    int32_t begin(int32_t folder, int32_t* unread, int32_t* enumeration);
    template <class Records, class Wire>
    int32_t read(const Records& records, int32_t handle, Wire* target);
    template <class Records, class Wire>
    int32_t readNext(const Records& records, int32_t enumeration, Wire* target);
    void setActions();
    void setRecords();
    void setObjects();

    unique_module m_library;
    int32_t m_lastEnumeration = 0;
    int32_t m_lastPrompt = 20000;
};

using Calls = std::vector<std::string>;

} // namespace velk::test
