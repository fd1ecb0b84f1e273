#include "devkit/backend/worker.h"

#include <utility>

namespace velk::devkit {

Worker::~Worker()
{
    m_cancellation.cancel();
    if (m_thread.joinable())
        m_thread.join();
}

void Worker::add(Work work)
{
    m_waiting.push_back(std::move(work));
    startNext();
}

void Worker::startNext()
{
    if (m_waiting.empty() || m_thread.joinable())
        return;
    m_thread = std::thread([this, work = std::move(m_waiting.front())] {
        Completion completion = work(m_cancellation);
        const std::lock_guard held(m_lock);
        m_completion = std::move(completion);
        m_isDone = true;
    });
    m_waiting.pop_front();
}

Worker::Completion Worker::finished()
{
    Completion completion;
    {
        const std::lock_guard held(m_lock);
        if (!std::exchange(m_isDone, false))
            return {};
        completion = std::move(m_completion);
        m_completion = nullptr;
    }
    m_thread.join();
    startNext();
    return completion;
}

} // namespace velk::devkit
