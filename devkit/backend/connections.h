#pragma once

#include "devkit/backend/folderContents.h"
#include "devkit/backend/worker.h"

namespace velk::devkit {

// There because a database may take its time or be away: its connection is opened on the worker's thread, and a folder
// that is asked for meanwhile follows when it is known whether the database can be had.
class Connections {
public:
    Connections(ProjectTree& tree, Conversation& conversation, Worker& worker, FolderContents& folders)
        : m_tree(tree), m_conversation(conversation), m_worker(worker), m_folders(folders)
    {
    }
    Connections(const Connections&) = delete;
    Connections& operator=(const Connections&) = delete;

    // The caller hears of a new connection when the attempt has ended.
    void open(ConnectionState& connection);
    // Makes a folder the current one and shows it, once its connection is open.
    void showFolder(int32_t handle);

    // Actions: false when the handle is not of their kind of thing.
    bool connect(int32_t handle);
    bool disconnect(int32_t handle);
    bool refresh(int32_t folder);
    bool filter(int32_t folder);

private:
    void arrive(ConnectionState& connection, const std::wstring& failure);
    bool announce(ConnectionState& connection);

    ProjectTree& m_tree;
    Conversation& m_conversation;
    Worker& m_worker;
    FolderContents& m_folders;
    int32_t m_lastAttempt = 0;
};

} // namespace velk::devkit
