#include "devkit/backend/projectAccess.h"

#include "devkit/backend/messages.h"
#include "devkit/backend/systemFile.h"

#include <algorithm>

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

// Under a folder a path is told without it.
std::wstring relativeTo(const std::wstring& folder, const std::wstring& path)
{
    const bool below = !folder.empty() && path.size() > folder.size() && path.starts_with(folder + L"\\");
    std::wstring relative = below ? path.substr(folder.size() + 1) : path;
    std::replace(relative.begin(), relative.end(), L'\\', L'/');
    return relative;
}

} // namespace

void ProjectAccess::open(const std::wstring& path)
{
    closeOpened();
    const std::wstring whole = absolutePath({}, path);
    const ProjectFacts empty{baseName(whole), {}};
    const auto bytes = readBytes(whole);
    const DWORD code = bytes ? ERROR_SUCCESS : GetLastError();
    if (bytes) {
        try {
            const ProjectFile file = parseProject(*bytes);
            begin({file.name.empty() ? baseName(whole) : file.name, whole}, file);
        } catch (const ProjectFileError& error) {
            m_conversation.tell(messageProjectBroken, {whole, std::to_wstring(error.line), error.reason});
            begin(empty, {});
        }
    } else if (code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND) {
        m_conversation.tell(messageProjectMissing, {whole});
        begin({baseName(whole), whole}, {});
    } else {
        m_conversation.tell(messageProjectUnread, {whole, systemReason(code)});
        begin(empty, {});
    }
}

void ProjectAccess::begin(ProjectFacts facts, const ProjectFile& file)
{
    const ProjectState& project = m_tree.openProject(std::move(facts), file.filter);
    m_conversation.push(m_tree.about(Notice::added, kindProject, project.handle, nullptr));
    reportMissingFiles(file);
    bool first = true;
    for (const ProjectConnection& connection : file.connections)
        add(connection, file, std::exchange(first, false));
}

void ProjectAccess::reportMissingFiles(const ProjectFile& file)
{
    const std::wstring& path = m_tree.opened()->facts.path;
    if (file.connections.empty() && !(file.procedures.empty() && file.functions.empty()))
        m_conversation.tell(messageNoConnection, {path});
    for (const auto* routines : {&file.procedures, &file.functions})
        for (const ProjectRoutine& routine : *routines) {
            const std::wstring source = absolutePath(folderOf(path), routine.file);
            if (fileStamp(source).empty())
                m_conversation.tell(messageSourceMissing, {source, path});
        }
}

void ProjectAccess::add(const ProjectConnection& connection, const ProjectFile& file, bool first)
{
    const std::wstring folder = folderOf(m_tree.opened()->facts.path);
    m_connections.open(
        m_tree.addConnection(Database(connection, folder, routinesOf(file.procedures, connection.name, first, folder),
                                      routinesOf(file.functions, connection.name, first, folder))));
}

// The caller hears of the project only: its connections and folders go with it.
void ProjectAccess::closeOpened()
{
    if (!m_tree.opened())
        return;
    m_worker.cancel(); // nobody waits for it any more, and the next project's work comes behind it
    m_conversation.push(m_tree.closeProject());
}

ProjectFile ProjectAccess::content(const std::wstring& folder) const
{
    const ProjectState& project = *m_tree.opened();
    ProjectFile file{project.facts.name, project.filter, {}, {}, {}};
    for (const auto& connection : project.connections) {
        Database& database = connection->database;
        file.connections.push_back({database.name(), database.odbc()});
        const auto add = [&](std::vector<ProjectRoutine>& target, int32_t kind) {
            for (ProjectRoutine routine : *database.routinesOf(kind)) {
                routine.file = relativeTo(folder, routine.file);
                routine.connection = connection == project.connections.front() ? L"" : database.name();
                target.push_back(std::move(routine));
            }
        };
        add(file.procedures, kindProcedureFolder);
        add(file.functions, kindFunctionFolder);
    }
    return file;
}

bool ProjectAccess::write(const std::wstring& path)
{
    if (writeBytes(path, projectText(content(folderOf(path)))))
        return true;
    m_conversation.tell(messageProjectUnsaved, {path, systemReason(GetLastError())});
    return false;
}

bool ProjectAccess::save(int32_t project)
{
    const ProjectState* const state = m_tree.project(project);
    if (!state)
        return false;
    const std::wstring& path = state->facts.path;
    if (path.empty())
        m_conversation.tell(messageProjectNoPath, {});
    else if (write(path))
        m_conversation.tell(messageProjectSaved, {path});
    return true;
}

bool ProjectAccess::saveAs(const std::wstring& path)
{
    const std::wstring whole = absolutePath({}, path);
    ProjectState* const project = m_tree.opened();
    if (!project || !write(whole))
        return false;
    project->facts.path = whole;
    m_conversation.tell(messageProjectSaved, {whole});
    m_conversation.push(m_tree.about(Notice::changed, kindProject, project->handle, nullptr));
    return true;
}

bool ProjectAccess::close(int32_t project)
{
    if (!m_tree.project(project))
        return false;
    closeOpened();
    return true;
}

bool ProjectAccess::addConnection(int32_t project)
{
    const ProjectState* const state = m_tree.project(project);
    if (!state)
        return false;
    if (state->connections.empty()) {
        m_conversation.tell(messageNoConnection, {state->facts.path});
        return true;
    }
    const Database& model = state->connections.front()->database;
    std::wstring name = model.name();
    const auto isTaken = [&](const auto& one) { return one->database.name() == name; };
    for (int number = 2; std::any_of(state->connections.begin(), state->connections.end(), isTaken); ++number)
        name = model.name() + std::to_wstring(number);
    add({name, model.odbc()}, {}, false);
    return true;
}

bool ProjectAccess::removeConnection(int32_t connection)
{
    if (!m_tree.connection(connection))
        return false;
    m_conversation.push(m_tree.removeConnection(connection));
    return true;
}

} // namespace velk::devkit
