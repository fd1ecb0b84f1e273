#pragma once

#include "devkit/backend/database.h"
#include "devkit/backend/handles.h"
#include "devkit/backend/queue.h"

#include <array>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

namespace velk::devkit {

struct FolderState {
    int32_t handle = 0;
    int32_t kind = 0;
    std::vector<int32_t> objects; // in the order in which they are shown
    std::unordered_map<std::wstring, int32_t> byKey;
    std::vector<int32_t> leaving; // objects that went away without word: their handles end with the next contents
    std::wstring mark;            // of the contents that were read last
    std::wstring pattern;         // of the names that are shown; empty: all
};

struct ConnectionState {
    int32_t handle = 0;
    Database database;
    std::array<FolderState, std::size(folderKinds)> folders{};
    bool isAnnounced = false;
    int32_t attempt = 0; // the number of the attempt to connect that is under way; 0: none is
};

struct ProjectState {
    int32_t handle = 0;
    ProjectFacts facts;
    std::wstring filter; // the pattern that "Filter" proposes
    std::vector<std::unique_ptr<ConnectionState>> connections;
};

// Where a folder or an object stands; nulls for a handle that is of no such thing.
struct TreePlace {
    ConnectionState* connection = nullptr;
    FolderState* folder = nullptr;
    const ObjectFacts* facts = nullptr; // of an object

    // The project's routines of the folder, to be changed in place; null where there are none.
    std::vector<ProjectRoutine>* routines() const
    {
        return folder ? connection->database.routinesOf(folder->kind) : nullptr;
    }
};

// There because any handle of the caller may be of another thing than it takes it for, or of none any more: what there
// is of the open project, and what each handle stands for.
class ProjectTree {
public:
    explicit ProjectTree(Handles& handles) : m_handles(handles) {}
    ProjectTree(const ProjectTree&) = delete;
    ProjectTree& operator=(const ProjectTree&) = delete;
    ~ProjectTree() { m_handles.endAll(); }

    ProjectState* opened() const { return m_project.get(); }
    // Each of these is null, or has nulls, when the handle does not stand for such a thing.
    ProjectState* project(int32_t handle) const;
    ConnectionState* connection(int32_t handle) const;
    TreePlace folder(int32_t handle) const;
    TreePlace object(int32_t handle) const;
    const ObjectFacts* facts(int32_t object) const;
    std::optional<ConnectionFacts> connectionFacts(int32_t handle) const;
    // The objects in a folder, or the connections of a project.
    std::vector<int32_t> contents(int32_t container) const;

    // A notification of a thing of the open project.
    Notification about(Notice type, int32_t kind, int32_t handle, const ConnectionState* connection) const;

    ProjectState& openProject(ProjectFacts facts, const std::wstring& filter);
    ConnectionState& addConnection(Database database);
    int32_t addObject(int32_t kind);
    ObjectFacts& factsOf(int32_t object) { return m_objects.at(object); }
    // What goes with the thing; the handles end when the caller has the notification that these two give back.
    Notification closeProject();
    Notification removeConnection(int32_t handle);
    // The handle is not ended yet.
    void removeObject(int32_t handle) { m_objects.erase(handle); }
    void end(const std::vector<int32_t>& handles);

private:
    Handles& m_handles;
    std::unique_ptr<ProjectState> m_project;
    std::unordered_map<int32_t, ObjectFacts> m_objects;
};

} // namespace velk::devkit
