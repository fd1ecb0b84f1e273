#pragma once

#include "devkit/backend/conversation.h"
#include "devkit/backend/projectTree.h"
#include "devkit/backend/worker.h"

namespace velk::devkit {

// There because the user may ask what a thing is: answers in a text for reading.
class ObjectReports {
public:
    ObjectReports(const ProjectTree& tree, Conversation& conversation, Worker& worker)
        : m_tree(tree), m_conversation(conversation), m_worker(worker)
    {
    }
    ObjectReports(const ObjectReports&) = delete;
    ObjectReports& operator=(const ObjectReports&) = delete;

    // Actions: false when the handle is not of their kind of thing.
    bool properties(int32_t handle);
    bool sampleContents(int32_t table);

private:
    const ProjectTree& m_tree;
    Conversation& m_conversation;
    Worker& m_worker;
};

} // namespace velk::devkit
