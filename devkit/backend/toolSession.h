#pragma once

#include "devkit/backend/actions.h"

namespace velk::devkit {

// There because the caller begins and ends its use of the library: one such use, from its beginning to its end. Owns
// the parts that do the work. Everything that happens is told by notifications.
class ToolSession {
public:
    ToolSession(Handles& handles, const TextTable& texts) : m_parts(handles, texts) {}
    ToolSession(const ToolSession&) = delete;
    ToolSession& operator=(const ToolSession&) = delete;

    void begin() { m_parts.conversation.command(L"RZ_INIT_COMPLETE"); }
    void openProject(const std::wstring& path) { m_parts.project.open(path); }
    bool saveAs(const std::wstring& path) { return m_parts.project.saveAs(path); }
    void setCurrentFolder(int32_t folder) { m_parts.connections.showFolder(folder); }
    Outcome act(int32_t handle, int32_t code) { return devkit::act(m_parts, handle, code); }

    // The next notification. When none waits, looks for changes of the current folder, at most once a second.
    std::optional<Notification> next(bool& more);

    Conversation& conversation() { return m_parts.conversation; }
    const ProjectTree& tree() const { return m_parts.tree; }
    ClientCode& client() { return m_parts.client; }
    bool isWorking() const { return m_parts.worker.isBusy(); }

private:
    Parts m_parts;
};

} // namespace velk::devkit
