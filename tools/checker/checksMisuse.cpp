// Level 8: calls at the wrong time, and of things that are not there. Each call is a step: where one ends the process,
// the next process goes on behind it.
#include "checker/anyCall.h"
#include "checker/checks.h"

#include <algorithm>
#include <limits>

namespace velk::check {
namespace {

constexpr int32_t neverGiven[] = {0, 1, -1, std::numeric_limits<int32_t>::max(), std::numeric_limits<int32_t>::min()};

// What a session had when its project was open.
struct Handles {
    std::vector<std::pair<int32_t, int32_t>> things; // kind, handle
    std::vector<int32_t> texts;

    bool isOf(int32_t kind, int32_t handle) const
    {
        return std::find(things.begin(), things.end(), std::pair(kind, handle)) != things.end();
    }
};

Handles handlesOf(ScriptedSession& session)
{
    Handles handles;
    handles.things.emplace_back(kindProject, session.project());
    for (const HeardConnection& connection : std::vector(session.connections())) {
        handles.things.emplace_back(kindConnection, connection.handle);
        for (size_t index = 0; index < folderKindCount; ++index) {
            const FolderKind& kind = folderKinds()[index];
            handles.things.emplace_back(kind.folder, connection.folders[index]);
            for (const RecordCopy& object : session.enumerate(connection.folders[index], kind.folder))
                handles.things.emplace_back(kind.object(), object.number("lHdl"));
        }
    }
    for (const Heard& heard : session.heard())
        if (fetchOfType(heard.notify.type))
            handles.texts.push_back(heard.notify.handle);
    return handles;
}

// One handle of each kind, and those that nobody has.
std::vector<int32_t> samples(const Handles& handles)
{
    std::vector<int32_t> values(std::begin(neverGiven), std::end(neverGiven));
    int32_t lastKind = 0;
    for (const auto& [kind, handle] : handles.things) {
        if (kind != lastKind)
            values.push_back(handle);
        lastKind = kind;
    }
    return values;
}

bool isProjectThere(Bench& bench, int32_t project)
{
    WireRecord record = fetchOfKind(kindProject)->record();
    return bench.calls.fill(Fn::RZProjectGet, project, record) != 0;
}

// The handles of a project that was closed, in a session that has another one open.
Handles deadHandles(Bench& bench)
{
    ScriptedSession& session = bench.opened();
    const Handles dead = handlesOf(session);
    if (!session.close() || session.project() != 0)
        throw NotChecked{"the project was not closed (see N11)"};
    session.open();
    if (session.project() == 0)
        throw NotChecked{"no project was added (see N4)"};
    return dead;
}

void expectNothing(Bench& bench, Rule rule, std::span<const int32_t> handles)
{
    for (const AnyCall& row : anyCalls())
        for (const int32_t handle : handles)
            if (bench.probe.step())
                if (const int32_t answer = row.call(bench, row.function, row.kind, handle); answer != 0)
                    bench.probe.found(rule, "0 without a session", std::to_string(answer));
}

// The steps and ends of every kind with what is no open enumeration of it. One is open, of the kind that is given.
void useDeadEnumerations(Bench& bench, const FolderKind& kind, int32_t ended, int32_t open)
{
    for (const AnyCall& row : anyCalls()) {
        const bool isNext = row.what == AnyCall::continuesEnumeration;
        const bool isOwn = row.function == kind.next || row.function == kind.end;
        if (!isNext && row.what != AnyCall::endsEnumeration)
            continue;
        for (const int32_t number : {int32_t{0}, int32_t{-1}, int32_t{0x7FFFFFF0}, ended, open}) {
            if ((number == open && isOwn) || !bench.probe.step())
                continue;
            const int32_t answer = row.call(bench, row.function, row.kind, number);
            if (isNext && answer != 0)
                bench.probe.found(Rule::M6, "0 for an enumeration that is not open", std::to_string(answer));
        }
    }
}

// How many objects an enumeration still gives, up to one more than there should be.
size_t leftIn(Bench& bench, const FolderKind& kind, int32_t enumeration, size_t most)
{
    size_t count = 0;
    for (bool isThere = true; isThere && count <= most;) {
        WireRecord record = kind.record();
        isThere = bench.calls.fill(kind.next, enumeration, record) != 0;
        count += isThere ? 1U : 0U;
    }
    bench.calls.plain(kind.end, enumeration);
    return count;
}

} // namespace

void checkBeforeSession(Bench& bench)
{
    bench.load();
    constexpr int32_t handles[] = {0, 1, 1001};
    expectNothing(bench, Rule::M1, handles);
}

void checkAfterSession(Bench& bench)
{
    ScriptedSession& session = bench.opened();
    const std::vector<int32_t> handles = samples(handlesOf(session));
    bench.endSession();
    expectNothing(bench, Rule::M2, handles);
}

void checkSecondBeginning(Bench& bench)
{
    const int32_t project = bench.opened().project();
    if (bench.probe.step())
        bench.calls.initialize(bench.projectFile());
    if (!isProjectThere(bench, project))
        bench.probe.found(Rule::M3, "the project that was open", "it is there no more");
    for (const HeardConnection& connection : bench.opened().connections()) {
        WireRecord record = fetchOfKind(kindConnection)->record();
        if (bench.calls.fill(Fn::RZConnectionGet, connection.handle, record) == 0)
            bench.probe.found(Rule::M3, "the connection that was there", "it is there no more");
    }
    bench.endSession();
}

void checkSecondEnd(Bench& bench)
{
    bench.load();
    if (bench.probe.step())
        bench.calls.terminate(); // before any session
    int32_t usual = 0;
    for (int twice = 0; twice < 2; ++twice) {
        usual = bench.calls.initialize(bench.projectFile());
        bench.calls.terminate();
    }
    if (bench.probe.step())
        bench.calls.terminate();
    const int32_t again = bench.calls.initialize(bench.projectFile());
    bench.calls.terminate();
    if (usual != 0 && again == 0)
        bench.probe.found(Rule::M4, "a session that begins afterwards", "RZInitialize answers 0");
}

void checkDeadHandles(Bench& bench)
{
    const Handles dead = deadHandles(bench);
    const int32_t project = bench.opened().project();
    std::vector<int32_t> values = samples(dead);
    for (const int32_t value : samples(handlesOf(bench.opened())))
        values.push_back(value);
    for (const AnyCall& row : anyCalls())
        for (const int32_t handle : values) {
            const bool takesHandle = row.what != AnyCall::other && row.what != AnyCall::continuesEnumeration &&
                                     row.what != AnyCall::endsEnumeration;
            if (takesHandle && bench.probe.step())
                row.call(bench, row.function, row.kind, handle);
        }
    if (!isProjectThere(bench, project))
        bench.probe.found(Rule::M5, "the project that is open", "it is there no more");
    bench.endSession();
}

void checkDeadHandleAnswers(Bench& bench)
{
    const Handles dead = deadHandles(bench);
    const Handles live = handlesOf(bench.opened());
    std::vector<int32_t> values = samples(dead);
    for (const int32_t value : samples(live))
        values.push_back(value);
    for (const AnyCall& row : anyCalls())
        for (const int32_t handle : values) {
            const bool isThing = row.what == AnyCall::fetchesThing || row.what == AnyCall::beginsEnumeration;
            if (!isThing || live.isOf(row.kind, handle) || !bench.probe.step())
                continue;
            if (const int32_t answer = row.call(bench, row.function, row.kind, handle); answer != 0)
                bench.probe.found(Rule::H4, "0 for a handle that is dead, unknown or of another kind",
                                  std::to_string(answer));
        }
    bench.endSession();
}

void checkDeadEnumerations(Bench& bench)
{
    ScriptedSession& session = bench.opened();
    if (session.connections().empty())
        throw NotChecked{"the project has no connection"};
    constexpr size_t tables = 3;
    const FolderKind& kind = folderKinds()[tables];
    const int32_t folder = session.connections().front().folders[tables];
    const size_t whole = session.enumerate(folder, kind.folder).size();
    const int32_t ended = bench.calls.enumBegin(kind.begin, folder).enumeration;
    bench.calls.plain(kind.end, ended);
    const int32_t open = bench.calls.enumBegin(kind.begin, folder).enumeration;
    useDeadEnumerations(bench, kind, ended, open);
    const size_t count = leftIn(bench, kind, open, whole);
    if (count != whole)
        bench.probe.found(Rule::M6, "the enumeration that is open goes on, for " + std::to_string(whole) + " objects",
                          std::to_string(count));
    bench.endSession();
}

} // namespace velk::check
