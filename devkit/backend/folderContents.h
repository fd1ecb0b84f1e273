#pragma once

#include "devkit/backend/conversation.h"
#include "devkit/backend/projectTree.h"

namespace velk::devkit {

// There because the caller shows one folder and never looks again by itself: reads folders, tells what is in them and
// what has become of it, and watches the current one for what others do.
class FolderContents {
public:
    FolderContents(ProjectTree& tree, Conversation& conversation) : m_tree(tree), m_conversation(conversation) {}
    FolderContents(const FolderContents&) = delete;
    FolderContents& operator=(const FolderContents&) = delete;

    // The folder that is the current one from now on; none, if the handle is not a folder's.
    void select(int32_t folder) { m_current = folder; }
    // Does nothing unless the current folder is one of the connection's.
    void showCurrent(ConnectionState& connection);
    void announceCurrent(const ConnectionState& connection);
    // Reads a folder again and tells each difference.
    void reload(const TreePlace& place) { load(*place.connection, *place.folder, true); }
    // Closes the database and empties the folders without a word for each object.
    void close(ConnectionState& connection);
    // Tells what others have changed in the current folder; looks at most once a second.
    void watch();

private:
    void load(ConnectionState& connection, FolderState& folder, bool announce);
    void update(const ConnectionState& connection, FolderState& folder, std::vector<ObjectFacts> found, bool announce);
    void put(const ConnectionState& connection, FolderState& folder, ObjectFacts found, int32_t known, bool announce);
    void take(const ConnectionState& connection, FolderState& folder, int32_t handle, bool announce);
    void announceContents(const ConnectionState& connection, FolderState& folder);

    ProjectTree& m_tree;
    Conversation& m_conversation;
    int32_t m_current = 0;
    uint64_t m_nextWatch = 0;
};

} // namespace velk::devkit
