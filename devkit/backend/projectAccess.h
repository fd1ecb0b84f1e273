#pragma once

#include "devkit/backend/connections.h"

namespace velk::devkit {

// There because a project is a file of the user's: opens it as far as it can be understood, saves what has become of
// it, and closes it with all that hangs on it.
class ProjectAccess {
public:
    ProjectAccess(ProjectTree& tree, Conversation& conversation, Worker& worker, Connections& connections)
        : m_tree(tree), m_conversation(conversation), m_worker(worker), m_connections(connections)
    {
    }
    ProjectAccess(const ProjectAccess&) = delete;
    ProjectAccess& operator=(const ProjectAccess&) = delete;

    void open(const std::wstring& path);
    // Saves the project under another path.
    bool saveAs(const std::wstring& path);

    // Actions: false when the handle is not of their kind of thing. What they take out of the project stays on disk.
    bool save(int32_t project);
    bool close(int32_t project);
    bool addConnection(int32_t project); // like its first one
    bool removeConnection(int32_t connection);

private:
    void closeOpened();
    void begin(ProjectFacts facts, const ProjectFile& file);
    void reportMissingFiles(const ProjectFile& file);
    void add(const ProjectConnection& connection, const ProjectFile& file, bool first);
    ProjectFile content(const std::wstring& folder) const;
    bool write(const std::wstring& path);

    ProjectTree& m_tree;
    Conversation& m_conversation;
    Worker& m_worker;
    Connections& m_connections;
};

} // namespace velk::devkit
