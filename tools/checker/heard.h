#pragma once

#include "checker/calls.h"
#include "checker/kinds.h"
#include "checker/recordCopy.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velk::check {

// One attempt to have a record filled.
struct Fetched {
    int32_t answer = 0;
    std::optional<RecordCopy> record; // empty: the notification has none
    CallText call;
};

// One notification with what it brought. A long text that asked for more room has a second attempt.
struct Heard {
    std::string step; // of the script, in which it came
    int pauses = 0;   // how often nothing had waited before it
    Notify notify;
    CallText call;
    Fetched first, second, again;
    Fetched wide;             // where it was tried with room to spare
    bool asksForMore = false; // the first attempt did
    const Fetched& last() const noexcept { return second.record ? second : first; }
};

// Whether it says that something was added, changed or removed.
bool isAboutThing(const Notify& notify) noexcept;
// Whether it brought a question, with a text and buttons; a command word.
bool isQuestion(const Heard& heard);
bool isCommand(const Heard& heard, std::string_view word);
// The most harmless answer that a question's buttons allow. While a project closes that is No: nothing is saved, and it
// closes.
int32_t harmlessAnswer(std::string_view buttons, bool isClosing);

// How the thing or the payload of a notification is fetched.
struct Fetching {
    bool isTwice = true; // once more, for the comparison
    bool isWide = false; // with more room than it asks for, too
};
void fetch(Calls& calls, const Probe& probe, const Fetching& how, Heard& heard);

struct HeardConnection {
    int32_t handle = 0;
    int32_t project = 0;
    bool isConnected = false;
    int32_t folders[folderKindCount]{};
};

// What there is of the open project, as notifications tell of it.
class KnownProject {
public:
    void learn(const Heard& heard);
    void clear() { *this = KnownProject(); }
    int32_t handle() const noexcept { return m_handle; } // 0: none is open
    const std::vector<HeardConnection>& connections() const noexcept { return m_connections; }

private:
    void learnConnection(const Heard& heard);
    void forget(const Notify& notify);

    int32_t m_handle = 0;
    std::vector<HeardConnection> m_connections;
};

// Notices an enumeration that gives the same object for ever, as the add-in does.
class RepeatedHandles {
public:
    bool areTooMany(int32_t handle)
    {
        constexpr int most = 1000; // in a row
        m_times = handle == m_last ? m_times + 1 : 1;
        m_last = handle;
        return m_times >= most;
    }

private:
    int32_t m_last = 0;
    int m_times = 0;
};

} // namespace velk::check
