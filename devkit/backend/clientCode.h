#pragma once

#include "devkit/backend/conversation.h"
#include "devkit/backend/projectTree.h"

namespace velk::devkit {

// There because the caller's own projects use the databases, too: client code of a connection or an object, and the
// objects of a data environment. Each comes as a notification; false when the handle is not of a fitting thing.
class ClientCode {
public:
    ClientCode(const ProjectTree& tree, Conversation& conversation) : m_tree(tree), m_conversation(conversation) {}
    ClientCode(const ClientCode&) = delete;
    ClientCode& operator=(const ClientCode&) = delete;

    bool makeADO(int32_t handle, const std::wstring& project, const std::wstring& component);
    bool makeConnectionDE(int32_t handle, ConnectionDEPayload wanted);
    bool makeCommandDE(int32_t handle, CommandDEPayload wanted);

private:
    const ProjectTree& m_tree;
    Conversation& m_conversation;
};

} // namespace velk::devkit
