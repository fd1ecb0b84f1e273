#pragma once

#include "devkit/backend/routineFiles.h"
#include "devkit/backend/worker.h"

namespace velk::devkit {

// There because a routine is code that a database runs: its source is shown, built and run, the long work on the
// worker's thread. Every routine that is handed over has its source.
class RoutineWork {
public:
    RoutineWork(ProjectTree& tree, Conversation& conversation, Worker& worker, FolderContents& folders)
        : m_tree(tree), m_conversation(conversation), m_worker(worker), m_folders(folders)
    {
    }
    RoutineWork(const RoutineWork&) = delete;
    RoutineWork& operator=(const RoutineWork&) = delete;

    void showSource(const Routine& routine);
    void build(const Routine& routine);
    void runSettings(const Routine& routine);
    void run(const Routine& routine);

private:
    ProjectTree& m_tree;
    Conversation& m_conversation;
    Worker& m_worker;
    FolderContents& m_folders;
};

} // namespace velk::devkit
