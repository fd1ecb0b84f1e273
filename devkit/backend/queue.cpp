#include "devkit/backend/queue.h"

#include "devkit/backend/facts.h"

namespace velk::devkit {
namespace {

// Payloads have a series of handles of their own, so that those of objects do not depend on how many texts there were.
constexpr int32_t firstText = 900001;
constexpr size_t mostTexts = 1000;

} // namespace

NotificationQueue::NotificationQueue() : m_lastText(firstText - 1)
{
}

void NotificationQueue::push(Notification notification)
{
    const std::lock_guard held(m_lock);
    m_waiting.push_back(std::move(notification));
}

int32_t NotificationQueue::pushText(TextPayload payload)
{
    const std::lock_guard held(m_lock);
    const int32_t handle = ++m_lastText;
    m_texts.emplace(handle, std::move(payload));
    if (m_texts.size() > mostTexts)
        m_texts.erase(m_texts.begin());
    m_waiting.push_back({.type = Notice::text, .handle = handle, .ends = {}});
    return handle;
}

std::optional<Notification> NotificationQueue::pop(bool& more)
{
    const std::lock_guard held(m_lock);
    more = m_waiting.size() > 1;
    if (m_waiting.empty())
        return std::nullopt;
    Notification first = std::move(m_waiting.front());
    m_waiting.pop_front();
    return first;
}

std::optional<TextPayload> NotificationQueue::text(int32_t handle) const
{
    const std::lock_guard held(m_lock);
    const auto found = m_texts.find(handle);
    return found == m_texts.end() ? std::nullopt : std::optional(found->second);
}

bool NotificationQueue::everHad(int32_t handle) const
{
    const std::lock_guard held(m_lock);
    return handle >= firstText && handle <= m_lastText;
}

} // namespace velk::devkit
