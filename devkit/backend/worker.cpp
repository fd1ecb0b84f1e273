#include "devkit/backend/worker.h"

#include <utility>

namespace velk::devkit {

Worker::~Worker()
{
    // A statement that was about to begin may miss a cancellation, so it is told again until it has ended.
    constexpr DWORD pause = 5; // milliseconds
    m_waiting.clear();
    while (m_thread.joinable() && !isDone()) {
        cancel();
        Sleep(pause);
    }
    endThread();
}

void Worker::add(Work work)
{
    m_waiting.push_back({std::move(work)});
    startNext();
}

void Worker::cancel() noexcept
{
    if (m_current)
        m_current->cancel();
    for (const Piece& piece : m_waiting)
        piece.cancellation->cancel();
}

void Worker::startNext()
{
    if (m_waiting.empty() || m_thread.joinable())
        return;
    Piece piece = std::move(m_waiting.front());
    m_waiting.pop_front();
    m_current = piece.cancellation;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS, reinterpret_cast<const wchar_t*>(&sqlText), &m_library);
    m_thread = Thread([this, piece = std::move(piece)] {
        Completion completion = piece.work(*piece.cancellation);
        const Lock::Held held(m_lock);
        m_completion = std::move(completion);
        m_isDone = true;
    });
}

void Worker::endThread()
{
    if (m_thread.joinable())
        m_thread.join();
    m_current.reset();
    if (const HMODULE library = std::exchange(m_library, nullptr))
        FreeLibrary(library);
}

bool Worker::isDone()
{
    const Lock::Held held(m_lock);
    return m_isDone;
}

Worker::Completion Worker::finished()
{
    if (!isDone())
        return {};
    endThread();
    m_isDone = false;
    Completion completion = std::exchange(m_completion, nullptr);
    startNext();
    return completion;
}

} // namespace velk::devkit
