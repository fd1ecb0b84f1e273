#include "devkit/backend/projectTree.h"

#include <algorithm>

namespace velk::devkit {
namespace {

void appendHandles(std::vector<int32_t>& handles, const ConnectionState& connection)
{
    handles.push_back(connection.handle);
    for (const FolderState& folder : connection.folders) {
        handles.push_back(folder.handle);
        for (const auto* objects : {&folder.objects, &folder.leaving})
            handles.insert(handles.end(), objects->begin(), objects->end());
    }
}

} // namespace

ProjectState* ProjectTree::project(int32_t handle) const
{
    return m_project && m_project->handle == handle ? m_project.get() : nullptr;
}

ConnectionState* ProjectTree::connection(int32_t handle) const
{
    if (m_project)
        for (const auto& connection : m_project->connections)
            if (connection->handle == handle)
                return connection.get();
    return nullptr;
}

TreePlace ProjectTree::folder(int32_t handle) const
{
    if (m_project)
        for (const auto& connection : m_project->connections)
            for (FolderState& folder : connection->folders)
                if (folder.handle == handle)
                    return {connection.get(), &folder, nullptr};
    return {};
}

TreePlace ProjectTree::object(int32_t handle) const
{
    const ObjectFacts* const found = facts(handle);
    if (!found)
        return {};
    for (const auto& connection : m_project->connections)
        for (FolderState& folder : connection->folders) {
            const auto entry = folder.byKey.find(found->key);
            if (entry != folder.byKey.end() && entry->second == handle)
                return {connection.get(), &folder, found};
        }
    return {};
}

const ObjectFacts* ProjectTree::facts(int32_t object) const
{
    const auto found = m_objects.find(object);
    return found == m_objects.end() ? nullptr : &found->second;
}

std::optional<ConnectionFacts> ProjectTree::connectionFacts(int32_t handle) const
{
    const ConnectionState* const state = connection(handle);
    if (!state)
        return std::nullopt;
    ConnectionFacts facts{state->database.name(), state->database.connected(), {}};
    for (size_t index = 0; index < state->folders.size(); ++index)
        facts.folders[index] = state->folders[index].handle;
    return facts;
}

std::vector<int32_t> ProjectTree::contents(int32_t container) const
{
    if (const FolderState* const found = folder(container).folder)
        return found->objects;
    std::vector<int32_t> connections;
    if (project(container))
        for (const auto& connection : m_project->connections)
            connections.push_back(connection->handle);
    return connections;
}

Notification ProjectTree::about(Notice type, int32_t kind, int32_t handle, const ConnectionState* connection) const
{
    return {type, m_project ? m_project->handle : 0, connection ? connection->handle : 0, kind, handle, {}};
}

ProjectState& ProjectTree::openProject(ProjectFacts facts, const std::wstring& filter)
{
    m_project = std::make_unique<ProjectState>();
    m_project->handle = m_handles.make(kindProject);
    m_project->facts = std::move(facts);
    m_project->filter = filter;
    return *m_project;
}

ConnectionState& ProjectTree::addConnection(Database database)
{
    auto made =
        std::make_unique<ConnectionState>(ConnectionState{m_handles.make(kindConnection), std::move(database), {}});
    for (size_t index = 0; index < made->folders.size(); ++index)
        made->folders[index] = {m_handles.make(folderKinds[index]), folderKinds[index], {}, {}, {}, {}, {}};
    return *m_project->connections.emplace_back(std::move(made));
}

int32_t ProjectTree::addObject(int32_t kind)
{
    const int32_t handle = m_handles.make(kind);
    m_objects.emplace(handle, ObjectFacts{});
    return handle;
}

Notification ProjectTree::closeProject()
{
    Notification removed = about(Notice::removed, kindProject, m_project->handle, nullptr);
    removed.ends.push_back(m_project->handle);
    for (const auto& connection : m_project->connections)
        appendHandles(removed.ends, *connection);
    m_objects.clear();
    m_project.reset();
    return removed;
}

Notification ProjectTree::removeConnection(int32_t handle)
{
    const auto found = std::find_if(m_project->connections.begin(), m_project->connections.end(),
                                    [&](const auto& one) { return one->handle == handle; });
    Notification removed = about(Notice::removed, kindConnection, handle, found->get());
    appendHandles(removed.ends, **found);
    for (const FolderState& folder : (*found)->folders)
        for (const int32_t object : folder.objects)
            m_objects.erase(object);
    m_project->connections.erase(found);
    return removed;
}

void ProjectTree::end(const std::vector<int32_t>& handles)
{
    for (const int32_t handle : handles)
        m_handles.end(handle);
}

} // namespace velk::devkit
