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

Handles handlesOf(Session& session)
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
    Session& session = bench.opened();
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

} // namespace

void checkBeforeSession(Bench& bench)
{
    bench.load();
    constexpr int32_t handles[] = {0, 1, 1001};
    expectNothing(bench, Rule::M1, handles);
}

void checkAfterSession(Bench& bench)
{
    Session& session = bench.opened();
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
    bench.endSession();
    bench.load();
    std::string reason;
    if (bench.probe.step()) {
        bench.library.unload();
        bench.library.load(reason);
        bench.calls.terminate(); // before any session
    }
    bench.load();
    const int32_t answer = bench.calls.initialize(bench.projectFile());
    bench.calls.terminate();
    if (bench.probe.step())
        bench.calls.terminate();
    const int32_t again = bench.calls.initialize(bench.projectFile());
    bench.calls.terminate();
    if (answer != 0 && again == 0)
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
    Session& session = bench.opened();
    const HeardConnection connection =
        session.connections().empty() ? HeardConnection() : session.connections().front();
    if (connection.handle == 0)
        throw NotChecked{"the project has no connection"};
    constexpr size_t tables = 3;
    const FolderKind& kind = folderKinds()[tables];
    const size_t whole = session.enumerate(connection.folders[tables], kind.folder).size();
    const EnumBegin ended = bench.calls.enumBegin(kind.begin, connection.folders[tables]);
    bench.calls.plain(kind.end, ended.enumeration);
    const EnumBegin open = bench.calls.enumBegin(kind.begin, connection.folders[tables]);
    for (const AnyCall& row : anyCalls()) {
        const bool isNext = row.what == AnyCall::continuesEnumeration;
        if (!isNext && row.what != AnyCall::endsEnumeration)
            continue;
        const bool isOther = row.function != kind.next && row.function != kind.end;
        for (const int32_t number : {int32_t{0}, int32_t{-1}, 0x7FFFFFF0, ended.enumeration, open.enumeration}) {
            const bool isDead = number != open.enumeration || isOther;
            if (!isDead || !bench.probe.step())
                continue;
            const int32_t answer = row.call(bench, row.function, row.kind, number);
            if (isNext && answer != 0)
                bench.probe.found(Rule::M6, "0 for an enumeration that is not open", std::to_string(answer));
        }
    }
    size_t count = 0;
    for (WireRecord record = kind.record();
         count <= whole && bench.calls.fill(kind.next, open.enumeration, record) != 0; record = kind.record())
        ++count;
    bench.calls.plain(kind.end, open.enumeration);
    if (count != whole)
        bench.probe.found(Rule::M6, "the enumeration that is open goes on, for " + std::to_string(whole) + " objects",
                          std::to_string(count));
    bench.endSession();
}

} // namespace velk::check
