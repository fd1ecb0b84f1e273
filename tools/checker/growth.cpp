// The sessions of level 9.
#include "checker/bench.h"

#include <algorithm>

namespace velk::check {
namespace {

constexpr int warmUp = 10; // sessions in which a library makes what it keeps

} // namespace

// One life of a session, which does not wait longer than for what it knows to come.
void Bench::leadSession(std::optional<size_t> connections)
{
    ScriptedSession& session = newSession();
    session.fetching.isTwice = false;
    session.begin(projectFile());
    session.listen([](const Heard& one) { return isCommand(one, "RZ_INIT_COMPLETE"); });
    if (!connections)
        session.open();
    else
        session.openQuickly([&] { return session.connections().size() >= *connections; });
    if (session.project() == 0)
        throw NotChecked{"no project was added (see N4)"};
    for (const HeardConnection& connection : std::vector(session.connections()))
        for (size_t index = 0; index < folderKindCount; ++index)
            if (connection.folders[index] != 0) {
                session.select(connection.folders[index], folderKinds()[index].folder);
                session.enumerate(connection.folders[index], folderKinds()[index].folder);
            }
    for (const int32_t number : {200, 426, 427, 428, 429, 430})
        calls.text(number);
    m_connectionCount = session.connections().size();
    session.close();
    endSession();
}

// What is on its way out when a session has ended may take its time.
Counts Bench::settledCounts(const Counts* before)
{
    constexpr int attempts = 20;
    constexpr DWORD pause = 50; // milliseconds
    Counts counts;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        Sleep(pause);
        counts = Counts::now();
        if (!before || (counts.kernelHandles <= before->kernelHandles && counts.threads <= before->threads))
            break;
    }
    return counts;
}

const Growth& Bench::growth()
{
    if (m_growth)
        return *m_growth;
    const int sessions = std::max(asked().sessions, warmUp + 1);
    Growth growth;
    for (int count = 0; count < sessions; ++count) {
        if (count == warmUp / 2)
            library.times.reserve(); // what grows here is to be the library's alone
        if (count == warmUp)
            growth.before = settledCounts(nullptr);
        probe.pad().showProgress("session " + std::to_string(count + 1) + " of " + std::to_string(sessions));
        leadSession(m_connectionCount);
    }
    growth.sessions = sessions - warmUp;
    growth.after = settledCounts(&growth.before);
    m_growth = growth;
    return *m_growth;
}

} // namespace velk::check
