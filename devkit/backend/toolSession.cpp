#include "devkit/backend/toolSession.h"

namespace velk::devkit {

std::optional<Notification> ToolSession::next(bool& more)
{
    if (const Worker::Completion completion = m_parts.worker.finished())
        completion();
    auto notification = m_parts.conversation.next(more);
    if (!notification) {
        m_parts.folders.watch();
        notification = m_parts.conversation.next(more);
    }
    if (notification)
        m_parts.tree.end(notification->ends);
    return notification;
}

} // namespace velk::devkit
