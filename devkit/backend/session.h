#pragma once

#include "devkit/backend/database.h"
#include "devkit/backend/handles.h"
#include "devkit/backend/queue.h"
#include "devkit/backend/texts.h"
#include "devkit/backend/worker.h"

#include <functional>
#include <memory>
#include <optional>
#include <unordered_map>

namespace velk::devkit {

struct ProjectState;
struct ConnectionState;
struct FolderState;

// What an action came to.
enum class Outcome {
    unknown, // there is no such action
    refused, // not for this object, or not in this edition; the user has been told
    done,
};

// The tool's work for one user of it, from its beginning to its end: the open project, its connections and objects.
// Everything that happens is told by notifications. Long work is done by the worker, one piece after the other; all
// else, also what follows from such work, is done on the caller's thread.
class Session {
public:
    Session(Handles& handles, const TextTable& texts);
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    ~Session();

    void begin();
    void openProject(const std::wstring& path);
    void setCurrentFolder(int32_t folder);
    Outcome act(int32_t handle, int32_t code);

    // The next notification. When none waits, looks for changes of the current folder, at most once a second.
    std::optional<Notification> next(bool& more);

    // A question to the user, with buttons as the caller understands them; the answer arrives at the function.
    void ask(const std::wstring& text, const std::wstring& buttons, std::function<void(int32_t)> answered);
    // False when nothing was asked.
    bool answer(int32_t button);
    void tell(int32_t number, const std::vector<std::wstring>& parameters);

    // What a handle stands for; null when it does not stand for such a thing any more.
    const ProjectFacts* project(int32_t handle) const;
    std::optional<ConnectionFacts> connection(int32_t handle) const;
    const ObjectFacts* object(int32_t handle) const;
    // The objects in a folder, or the connections of a project.
    std::vector<int32_t> contents(int32_t container) const;
    const NotificationQueue& queue() const { return m_queue; }

    // The actions' work, each on the thing with that handle; false when it is not for that kind of thing.
    bool connect(int32_t handle);
    bool disconnect(int32_t handle);
    bool refresh(int32_t handle);
    bool save(int32_t handle);
    bool add(int32_t handle);
    bool filter(int32_t handle);
    bool import(int32_t handle);
    bool paste(int32_t handle);
    bool copy(int32_t handle);
    bool remove(int32_t handle);
    bool properties(int32_t handle);
    bool showSource(int32_t handle);
    bool runSettings(int32_t handle);
    bool run(int32_t handle);
    bool build(int32_t handle);
    bool sampleContents(int32_t handle);
    bool drop(int32_t handle);

    // Saves the project under another path.
    bool saveAs(const std::wstring& path);
    // Client code of a connection or an object, and the objects of a data environment: each comes as a notification.
    bool makeADO(int32_t handle, const std::wstring& project, const std::wstring& component);
    bool makeConnectionDE(int32_t handle, ConnectionDEPayload wanted);
    bool makeCommandDE(int32_t handle, CommandDEPayload wanted);

    bool isWorking() const { return m_worker.isBusy(); }

private:
    void addProject(ProjectFacts facts, const ProjectFile& file);
    void addConnection(const ProjectConnection& connection, const ProjectFile& file, bool first);
    void reportMissingFiles(const ProjectFile& file);
    void closeProject();
    // Connects on the worker's thread; what is to be done then hears why it failed, nothing if it did not.
    void connectThen(ConnectionState& connection, std::function<void(ConnectionState&, const std::wstring&)> done);
    void announce(ConnectionState& connection); // once
    void tellClosed(const ConnectionState& connection, const std::wstring& reason);
    void showCurrent(ConnectionState& connection);
    void lose(ConnectionState& connection, const std::wstring& reason, int32_t number);
    bool load(ConnectionState& connection, FolderState& folder, bool announce);
    void update(ConnectionState& connection, FolderState& folder, std::vector<ObjectFacts> found, bool announce);
    void announceContents(const ConnectionState& connection, FolderState& folder);
    void watch();
    Notification about(Notice type, int32_t kind, int32_t handle, const ConnectionState* connection) const;

    // Where an object stands; nulls when the handle is not an object's.
    struct Place {
        ConnectionState* connection = nullptr;
        FolderState* folder = nullptr;
        const ObjectFacts* facts = nullptr;
    };
    Place placeOf(int32_t object) const;
    // The same for a procedure or function with its source; no facts for anything else. Where the source cannot be read
    // the user has been told.
    struct Routine {
        Place place;
        std::optional<std::wstring> source;
    };
    Routine routineOf(int32_t object);
    bool addRoutine(ConnectionState& connection, FolderState& folder, const std::wstring& file);
    bool addRoutineFile(ConnectionState& connection, FolderState& folder, const std::wstring& name,
                        const std::wstring& source);
    void removeRoutine(ConnectionState& connection, FolderState& folder, const std::wstring& file);
    void addConnectionLike(const ConnectionState& model);
    void removeConnection(int32_t handle);
    void dropNow(int32_t handle);
    bool writeProject(const std::wstring& path);
    void beginTask();
    void endTask();

    ConnectionState* connectionState(int32_t handle) const;
    std::pair<ConnectionState*, FolderState*> folderState(int32_t handle) const;

    Handles& m_handles;
    const TextTable& m_texts;
    NotificationQueue m_queue;
    std::unique_ptr<ProjectState> m_project;
    std::unordered_map<int32_t, ObjectFacts> m_objects;
    int32_t m_currentFolder = 0;
    uint64_t m_nextWatch = 0;
    int32_t m_lastAttempt = 0;
    std::deque<std::function<void(int32_t)>> m_questions;
    Worker m_worker;
    std::wstring m_copied; // the source of the routine that was copied last
};

} // namespace velk::devkit
