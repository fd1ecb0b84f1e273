#include "devkit/backend/queue.h"

#include "devkit/backend/facts.h"

namespace velk::devkit {
namespace {

// Payloads have a series of handles of their own, so that those of objects do not depend on how many texts there were.
constexpr int32_t firstPayload = 900001;
constexpr size_t mostPayloads = 1000;

} // namespace

NotificationQueue::NotificationQueue() : m_lastPayload(firstPayload - 1)
{
}

void NotificationQueue::push(Notification notification)
{
    m_waiting.push_back(std::move(notification));
}

int32_t NotificationQueue::pushPayload(Notice type, Payload payload)
{
    const int32_t handle = ++m_lastPayload;
    m_payloads.emplace(handle, std::move(payload));
    if (m_payloads.size() > mostPayloads)
        m_payloads.erase(m_payloads.begin());
    m_waiting.push_back({.type = type, .handle = handle, .ends = {}});
    return handle;
}

std::optional<Notification> NotificationQueue::pop(bool& more)
{
    more = m_waiting.size() > 1;
    if (m_waiting.empty())
        return std::nullopt;
    Notification first = std::move(m_waiting.front());
    m_waiting.pop_front();
    return first;
}

bool NotificationQueue::everHad(int32_t handle) const
{
    return handle >= firstPayload && handle <= m_lastPayload;
}

} // namespace velk::devkit
