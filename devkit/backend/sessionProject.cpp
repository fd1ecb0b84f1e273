// The part of a session that opens and closes projects and connections.
#include "devkit/backend/messages.h"
#include "devkit/backend/session.h"
#include "devkit/backend/sessionState.h"
#include "devkit/backend/systemFile.h"

#include <algorithm>
#include <utility>

namespace velk::devkit {
namespace {

std::vector<ProjectRoutine> routinesOf(const std::vector<ProjectRoutine>& all, const std::wstring& connection,
                                       bool first, const std::wstring& folder)
{
    std::vector<ProjectRoutine> result;
    for (ProjectRoutine routine : all) {
        if (routine.connection.empty() ? !first : routine.connection != connection)
            continue;
        routine.file = absolutePath(folder, routine.file);
        result.push_back(std::move(routine));
    }
    return result;
}

} // namespace

void Session::openProject(const std::wstring& path)
{
    closeProject();
    const std::wstring whole = absolutePath({}, path);
    const ProjectFacts empty{baseName(whole), {}};
    const auto bytes = readBytes(whole);
    const DWORD code = bytes ? ERROR_SUCCESS : GetLastError();
    if (bytes) {
        try {
            const ProjectFile file = parseProject(*bytes);
            const std::wstring name = file.name.empty() ? baseName(whole) : file.name;
            addProject({name, whole}, file);
        } catch (const ProjectFileError& error) {
            tell(messageProjectBroken, {whole, std::to_wstring(error.line), error.reason});
            addProject(empty, {});
        }
    } else if (code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND) {
        tell(messageProjectMissing, {whole});
        addProject({baseName(whole), whole}, {});
    } else {
        tell(messageProjectUnread, {whole, systemReason(code)});
        addProject(empty, {});
    }
}

void Session::addProject(ProjectFacts facts, const ProjectFile& file)
{
    m_project = std::make_unique<ProjectState>();
    m_project->handle = m_handles.make(kindProject);
    m_project->facts = std::move(facts);
    m_project->filter = file.filter;
    m_queue.push(about(Notice::added, kindProject, m_project->handle, nullptr));
    reportMissingFiles(file);
    bool first = true;
    for (const ProjectConnection& connection : file.connections) {
        addConnection(connection, file, first);
        first = false;
    }
}

void Session::reportMissingFiles(const ProjectFile& file)
{
    if (file.connections.empty() && !(file.procedures.empty() && file.functions.empty()))
        tell(messageNoConnection, {m_project->facts.path});
    for (const auto* routines : {&file.procedures, &file.functions})
        for (const ProjectRoutine& routine : *routines) {
            const std::wstring source = absolutePath(folderOf(m_project->facts.path), routine.file);
            if (fileStamp(source).empty())
                tell(messageSourceMissing, {source, m_project->facts.path});
        }
}

void Session::addConnection(const ProjectConnection& connection, const ProjectFile& file, bool first)
{
    const std::wstring folder = folderOf(m_project->facts.path);
    auto made = std::make_unique<ConnectionState>(
        ConnectionState{m_handles.make(kindConnection),
                        Database(connection, folder, routinesOf(file.procedures, connection.name, first, folder),
                                 routinesOf(file.functions, connection.name, first, folder)),
                        {}});
    for (size_t index = 0; index < made->folders.size(); ++index)
        made->folders[index] = {m_handles.make(folderKinds[index]), folderKinds[index], {}, {}, {}, {}, {}};
    ConnectionState& state = *m_project->connections.emplace_back(std::move(made));
    // The caller hears of it when it is known whether its database can be had.
    connectThen(state, [this](ConnectionState& added, const std::wstring& failure) {
        announce(added);
        if (!failure.empty())
            tellClosed(added, failure);
        showCurrent(added); // a caller that asked for the connections itself may have been quicker
    });
}

// The caller hears of the project only: its connections and folders go with it.
void Session::closeProject()
{
    if (!m_project)
        return;
    Notification removed = about(Notice::removed, kindProject, m_project->handle, nullptr);
    removed.ends.push_back(m_project->handle);
    for (const auto& connection : m_project->connections) {
        removed.ends.push_back(connection->handle);
        for (const FolderState& folder : connection->folders) {
            removed.ends.push_back(folder.handle);
            for (const auto* objects : {&folder.objects, &folder.leaving})
                removed.ends.insert(removed.ends.end(), objects->begin(), objects->end());
        }
    }
    m_worker.cancel(); // nobody waits for it any more, and the next project's work comes behind it
    m_currentFolder = 0;
    m_objects.clear();
    m_project.reset();
    m_queue.push(std::move(removed));
}

void Session::connectThen(ConnectionState& connection, std::function<void(ConnectionState&, const std::wstring&)> done)
{
    const int32_t attempt = connection.attempt = ++m_lastAttempt;
    m_worker.add([this, attempt, done = std::move(done), handle = connection.handle,
                  workshop = connection.database.workshop()](Cancellation& cancellation) -> Worker::Completion {
        // Shared only because a completion can be copied.
        const auto opened = std::make_shared<std::unique_ptr<OdbcConnection>>();
        const std::wstring failure = failureOf([&] { *opened = workshop.open(cancellation); });
        return [this, attempt, done, handle, opened, failure] {
            ConnectionState* const state = connectionState(handle);
            if (!state || state->attempt != attempt)
                return; // closed or disconnected meanwhile
            state->attempt = 0;
            state->database.connect(std::move(*opened));
            done(*state, failure);
        };
    });
}

void Session::announce(ConnectionState& connection)
{
    if (!std::exchange(connection.isAnnounced, true))
        m_queue.push(about(Notice::added, kindConnection, connection.handle, &connection));
}

void Session::tellClosed(const ConnectionState& connection, const std::wstring& reason)
{
    tell(messageDatabaseClosed,
         {connection.database.name(), connection.database.file(), reason, m_project->facts.path});
}

// The current folder's contents, if it is one of the connection's.
void Session::showCurrent(ConnectionState& connection)
{
    const auto [owner, folder] = folderState(m_currentFolder);
    if (owner != &connection)
        return;
    load(connection, *folder, false);
    announceContents(connection, *folder);
}

void Session::lose(ConnectionState& connection, const std::wstring& reason, int32_t number)
{
    connection.database.close();
    if (number != 0)
        tell(number, {connection.database.name(), connection.database.file(), reason});
    m_queue.push(about(Notice::changed, kindConnection, connection.handle, &connection));
    for (FolderState& folder : connection.folders)
        update(connection, folder, {}, false);
}

bool Session::connect(int32_t handle)
{
    ConnectionState* const state = connectionState(handle);
    if (!state)
        return false;
    if (!state->database.connected() && state->attempt == 0)
        connectThen(*state, [this](ConnectionState& connection, const std::wstring& failure) {
            if (failure.empty())
                m_queue.push(about(Notice::changed, kindConnection, connection.handle, &connection));
            else
                tellClosed(connection, failure);
            showCurrent(connection);
        });
    return true;
}

bool Session::disconnect(int32_t handle)
{
    ConnectionState* const state = connectionState(handle);
    if (!state)
        return false;
    state->attempt = 0;
    announce(*state);
    if (state->database.connected())
        lose(*state, {}, 0);
    const auto [connection, folder] = folderState(m_currentFolder);
    if (connection == state)
        announceContents(*connection, *folder);
    return true;
}

} // namespace velk::devkit
