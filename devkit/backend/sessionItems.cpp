// The part of a session that saves the project and changes what is in it.
#include "devkit/backend/messages.h"
#include "devkit/backend/routineSource.h"
#include "devkit/backend/session.h"
#include "devkit/backend/sessionState.h"
#include "devkit/backend/systemFile.h"

#include <algorithm>

namespace velk::devkit {
namespace {

// A source for a new routine of each kind.
constexpr const wchar_t* newProcedure = L"-- remark: A new procedure\nCREATE PROCEDURE main.%1 (IN a_number INTEGER)\n"
                                        L"LANGUAGE SQL\nBEGIN\n    SELECT a_number;\nEND\n";
constexpr const wchar_t* newFunction = L"-- remark: A new function\nCREATE FUNCTION main.%1 (a_number INTEGER) RETURNS "
                                       L"INTEGER\nLANGUAGE SQL\nRETURN SELECT a_number\n";

// Under a folder a path is told without it.
std::wstring relativeTo(const std::wstring& folder, const std::wstring& path)
{
    const bool below = !folder.empty() && path.size() > folder.size() && path.starts_with(folder + L"\\");
    std::wstring relative = below ? path.substr(folder.size() + 1) : path;
    std::replace(relative.begin(), relative.end(), L'\\', L'/');
    return relative;
}

std::vector<std::wstring> sourcesIn(const std::wstring& folder)
{
    std::vector<std::wstring> files;
    for (const wchar_t* pattern : {L"\\*.sql", L"\\*.java"}) {
        WIN32_FIND_DATAW entry{};
        const HANDLE search = FindFirstFileW((folder + pattern).c_str(), &entry);
        if (search == INVALID_HANDLE_VALUE)
            continue;
        do
            files.push_back(folder + L"\\" + entry.cFileName);
        while (FindNextFileW(search, &entry));
        FindClose(search);
    }
    std::sort(files.begin(), files.end());
    return files;
}

void replaceAll(std::wstring& text, const std::wstring& from, const std::wstring& to)
{
    for (size_t place = text.find(from); place != std::wstring::npos; place = text.find(from, place + to.size()))
        text.replace(place, from.size(), to);
}

} // namespace

Session::Place Session::placeOf(int32_t object) const
{
    const ObjectFacts* facts = this->object(object);
    if (!facts)
        return {};
    for (const auto& connection : m_project->connections)
        for (FolderState& folder : connection->folders) {
            const auto found = folder.byKey.find(facts->key);
            if (found != folder.byKey.end() && found->second == object)
                return {connection.get(), &folder, facts};
        }
    return {};
}

bool Session::writeProject(const std::wstring& path)
{
    const std::wstring folder = folderOf(path);
    ProjectFile file{m_project->facts.name, m_project->filter, {}, {}, {}};
    for (const auto& connection : m_project->connections) {
        Database& database = connection->database;
        file.connections.push_back({database.name(), database.odbc()});
        const auto add = [&](std::vector<ProjectRoutine>& target, int32_t kind) {
            for (ProjectRoutine routine : *database.routinesOf(kind)) {
                routine.file = relativeTo(folder, routine.file);
                routine.connection = connection == m_project->connections.front() ? L"" : database.name();
                target.push_back(std::move(routine));
            }
        };
        add(file.procedures, kindProcedureFolder);
        add(file.functions, kindFunctionFolder);
    }
    if (writeBytes(path, projectText(file)))
        return true;
    tell(messageProjectUnsaved, {path, systemReason(GetLastError())});
    return false;
}

bool Session::save(int32_t handle)
{
    if (!project(handle))
        return false;
    if (m_project->facts.path.empty())
        tell(messageProjectNoPath, {});
    else if (writeProject(m_project->facts.path))
        tell(messageProjectSaved, {m_project->facts.path});
    return true;
}

bool Session::saveAs(const std::wstring& path)
{
    const std::wstring whole = absolutePath({}, path);
    if (!m_project || !writeProject(whole))
        return false;
    m_project->facts.path = whole;
    tell(messageProjectSaved, {whole});
    m_queue.push(about(Notice::changed, kindProject, m_project->handle, nullptr));
    return true;
}

// The folder shows the routine as soon as it is read again.
bool Session::addRoutine(ConnectionState& connection, FolderState& folder, const std::wstring& file)
{
    std::vector<ProjectRoutine>& routines = *connection.database.routinesOf(folder.kind);
    const auto same = [&](const ProjectRoutine& routine) { return routine.file == file; };
    if (std::none_of(routines.begin(), routines.end(), same))
        routines.push_back({file, {}, false});
    return load(connection, folder, true);
}

// Beside the other sources, under a name that is free: name, name2, name3 ... The name goes into the source, too.
bool Session::addRoutineFile(ConnectionState& connection, FolderState& folder, const std::wstring& name,
                             const std::wstring& source)
{
    const std::vector<ProjectRoutine>& routines = *connection.database.routinesOf(folder.kind);
    const std::wstring beside = routines.empty() ? folderOf(m_project->facts.path) : folderOf(routines.front().file);
    std::wstring free = name;
    for (int number = 2; !fileStamp(beside + L"\\" + free + L".sql").empty(); ++number)
        free = name + std::to_wstring(number);
    std::wstring text = source;
    replaceAll(text, L"%1", free);
    const std::wstring file = beside + L"\\" + free + L".sql";
    if (writeBytes(file, toUtf8(text)))
        return addRoutine(connection, folder, file);
    tell(messageFileUnread, {file, systemReason(GetLastError())});
    return true;
}

bool Session::add(int32_t handle)
{
    if (project(handle)) {
        if (m_project->connections.empty())
            tell(messageNoConnection, {m_project->facts.path});
        else
            addConnectionLike(*m_project->connections.front());
        return true;
    }
    const auto [connection, folder] = folderState(handle);
    if (!folder || !connection->database.routinesOf(folder->kind))
        return false;
    const bool isProcedure = folder->kind == kindProcedureFolder;
    addRoutineFile(*connection, *folder, isProcedure ? L"new_procedure" : L"new_function",
                   isProcedure ? newProcedure : newFunction);
    return true;
}

void Session::addConnectionLike(const ConnectionState& model)
{
    std::wstring name = model.database.name();
    const auto isTaken = [&] {
        return std::any_of(m_project->connections.begin(), m_project->connections.end(),
                           [&](const auto& one) { return one->database.name() == name; });
    };
    for (int number = 2; isTaken(); ++number)
        name = model.database.name() + std::to_wstring(number);
    addConnection({name, model.database.odbc()}, {}, false);
}

bool Session::import(int32_t handle)
{
    const auto [connection, folder] = folderState(handle);
    if (!folder || !connection->database.routinesOf(folder->kind))
        return false;
    const std::wstring from = folderOf(m_project->facts.path) + L"\\import";
    const std::vector<std::wstring> files = sourcesIn(from);
    if (files.empty())
        tell(messageNothingToImport, {from});
    for (const std::wstring& file : files)
        addRoutine(*connection, *folder, file);
    return true;
}

bool Session::copy(int32_t handle)
{
    Routine routine = routineOf(handle);
    if (routine.source)
        m_copied = std::move(*routine.source);
    return routine.place.facts != nullptr;
}

bool Session::paste(int32_t handle)
{
    const auto [connection, folder] = folderState(handle);
    if (!folder || !connection->database.routinesOf(folder->kind))
        return false;
    if (m_copied.empty()) {
        tell(messageNothingCopied, {});
        return true;
    }
    const std::wstring name = parseRoutine(m_copied).name;
    std::wstring source = m_copied;
    if (!name.empty())
        replaceAll(source, name, L"%1");
    addRoutineFile(*connection, *folder, name.empty() ? L"pasted" : name, source);
    return true;
}

void Session::removeRoutine(ConnectionState& connection, FolderState& folder, const std::wstring& file)
{
    std::erase_if(*connection.database.routinesOf(folder.kind),
                  [&](const ProjectRoutine& routine) { return routine.file == file; });
    load(connection, folder, true);
}

void Session::removeConnection(int32_t handle)
{
    const auto found = std::find_if(m_project->connections.begin(), m_project->connections.end(),
                                    [&](const auto& one) { return one->handle == handle; });
    Notification removed = about(Notice::removed, kindConnection, handle, found->get());
    removed.ends.push_back(handle);
    for (const FolderState& folder : (*found)->folders) {
        removed.ends.push_back(folder.handle);
        removed.ends.insert(removed.ends.end(), folder.leaving.begin(), folder.leaving.end());
        for (const int32_t object : folder.objects) {
            removed.ends.push_back(object);
            m_objects.erase(object);
        }
        if (folder.handle == m_currentFolder)
            m_currentFolder = 0;
    }
    m_project->connections.erase(found);
    m_queue.push(std::move(removed));
}

// Takes a thing out of the project; files and databases stay.
bool Session::remove(int32_t handle)
{
    if (project(handle)) {
        closeProject();
        return true;
    }
    if (connectionState(handle)) {
        removeConnection(handle);
        return true;
    }
    const Place place = placeOf(handle);
    if (!place.facts || !place.connection->database.routinesOf(place.folder->kind))
        return false;
    removeRoutine(*place.connection, *place.folder, std::wstring(place.facts->key));
    return true;
}

bool Session::filter(int32_t handle)
{
    const FolderState* folder = folderState(handle).second;
    if (!folder)
        return false;
    constexpr int32_t firstFolderText = 426;
    constexpr int32_t answerYes = 6;
    constexpr int32_t answerNo = 7;
    const std::wstring caption = m_texts.text(firstFolderText + (folder->kind - kindProcedureFolder) / 2);
    ask(m_texts.text(questionFilter, {caption, m_project->filter}), m_texts.text(questionFilterButtons),
        [this, handle](int32_t answer) {
            FolderState* asked = folderState(handle).second;
            if (!asked || (answer != answerYes && answer != answerNo))
                return;
            asked->pattern = answer == answerYes ? m_project->filter : std::wstring();
            refresh(handle);
        });
    return true;
}

} // namespace velk::devkit
