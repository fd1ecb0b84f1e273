#include "checker/bench.h"

#include "checker/texts.h"

#include <algorithm>

namespace velk::check {
namespace {

constexpr size_t mostObjectsOfAFolder = 20; // whose texts are asked for
constexpr int32_t developmentLanguage = 3;

} // namespace

std::string Bench::projectFile() const
{
    if (!asked().project[0])
        throw NotChecked{"no project was given"};
    const std::string path = toAnsi(asked().project);
    if (fromAnsi(path) != asked().project)
        throw NotChecked{"the project's path cannot be said in code page " + std::to_string(GetACP())};
    return path;
}

std::string Bench::anyProjectFile() const
{
    return asked().project[0] ? toAnsi(asked().project) : "C:\\velkcheck\\none.rzv";
}

size_t Bench::mostEnumerated() const noexcept
{
    constexpr int32_t most = 20'000;
    return static_cast<size_t>(std::min(asked().objects, most));
}

void Bench::load()
{
    std::string reason;
    if (library.isLoaded() || library.load(reason))
        return;
    if (!probe.hasFound(Rule::F1))
        probe.found(Rule::F2, "it loads", reason);
    throw NotChecked{"the library does not load: " + reason};
}

ScriptedSession& Bench::newSession()
{
    load();
    endSession();
    m_session = std::make_unique<ScriptedSession>(probe, calls, patience());
    m_session->mostEnumerated = mostEnumerated();
    m_session->fetching.isWide = asked().level == rowOf(Rule::L1).level;
    return *m_session;
}

void Bench::beginScript(ScriptedSession& session)
{
    session.begin(projectFile());
    session.listen([](const Heard& one) { return isCommand(one, "RZ_INIT_COMPLETE"); });
    session.open();
    if (session.project() == 0)
        throw NotChecked{"no project was added (see N4)"};
}

ScriptedSession& Bench::opened()
{
    if (m_session && m_session->project() != 0)
        return *m_session;
    ScriptedSession& session = newSession();
    beginScript(session);
    for (size_t index = 0; index < session.connections().size(); ++index)
        if (!session.connections()[index].isConnected)
            session.connect(session.connections()[index].handle);
    walkFolders(session);
    return session;
}

void Bench::walkFolders(ScriptedSession& session)
{
    for (const HeardConnection& connection : std::vector(session.connections()))
        for (size_t index = 0; index < folderKindCount; ++index) {
            const int32_t kind = folderKinds()[index].folder;
            if (connection.folders[index] == 0)
                continue; // H1 tells of that
            m_selections.push_back({"RZSetCurrentFolder",
                                    std::to_string(connection.folders[index]) + ", " + std::to_string(kind),
                                    session.select(connection.folders[index], kind)});
        }
}

void Bench::walkConnections(ScriptedSession& session)
{
    for (const HeardConnection& connection : std::vector(session.connections())) {
        const std::string handle = std::to_string(connection.handle);
        if (!connection.isConnected)
            m_connectings.push_back({"RZObjectDoAction", handle + ", 7", session.connect(connection.handle)});
        m_connectings.push_back({"RZObjectDoAction", handle + ", 8", session.disconnect(connection.handle)});
        m_connectings.push_back({"RZObjectDoAction", handle + ", 7", session.connect(connection.handle)});
    }
}

ScriptedSession& Bench::script()
{
    if (m_isScript)
        return *m_session;
    ScriptedSession& session = newSession();
    m_isScript = true;
    try {
        beginScript(session);
    } catch (const NotChecked&) {
        return session; // what was heard until then is looked at all the same
    }
    if (session.isEndless())
        return session;
    walkConnections(session);
    walkFolders(session);
    for (const HeardConnection& connection : std::vector(session.connections()))
        for (size_t index = 0; index < folderKindCount; ++index)
            if (connection.folders[index] != 0) // H1 tells of that
                m_selections.push_back({"RZObjectDoAction", std::to_string(connection.folders[index]) + ", 10",
                                        session.refresh(connection.folders[index])});
    askForTexts(session);
    for (const HeardConnection& connection : std::vector(session.connections())) {
        session.act(connection.folders[0], actionFilter); // asks, and the answer is Cancel
        session.listen();
    }
    m_isClosed = true;
    m_isCloseHeard = session.close();
    session.listen();
    session.end();
    return session;
}

void Bench::askForTexts(ScriptedSession& session)
{
    session.act(session.project(), actionProperties);
    for (const HeardConnection& connection : std::vector(session.connections())) {
        session.act(connection.handle, actionProperties);
        calls.getAdo(connection.handle, developmentLanguage, "", "");
        calls.connectionDe(connection.handle, "Project", "Environment", "Connection");
        for (size_t index = 0; index < folderKindCount; ++index) {
            const FolderKind& kind = folderKinds()[index];
            std::vector<RecordCopy> objects = session.enumerate(connection.folders[index], kind.folder);
            objects.erase(objects.begin() + static_cast<ptrdiff_t>(std::min(objects.size(), mostObjectsOfAFolder)),
                          objects.end());
            for (const RecordCopy& object : objects) {
                const int32_t handle = object.number("lHdl");
                session.act(handle, actionProperties);
                if (kind.folder <= kindFirstFolder + 2) { // procedures and functions
                    session.act(handle, actionViewSource);
                    calls.getAdo(handle, developmentLanguage, "", "");
                    calls.commandDe(handle, "Project", "Environment", "Connection", "Command");
                }
            }
        }
    }
    session.listen();
}

void Bench::endSession()
{
    if (m_session && !m_isScript)
        m_session->end();
    m_session.reset();
    m_isScript = false;
}

void Bench::forgetSession()
{
    m_session.reset();
    m_isScript = false;
}

} // namespace velk::check
