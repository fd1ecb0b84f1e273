#pragma once

#include "devkit/backend/odbc.h"

#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace velk::devkit {

// Long work on a thread of its own, one piece after the other. A piece of work gives back what is to be done with its
// result; that is done on the caller's thread, when it asks.
class Worker {
public:
    using Completion = std::function<void()>;
    // Uses the cancellation for all its connections.
    using Work = std::function<Completion(Cancellation&)>;

    Worker() = default;
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;
    // Ends the piece that is being worked on; what waits behind it is dropped, and so are all results.
    ~Worker();

    void add(Work work);
    // The completion of a piece that is done; empty when there is none.
    Completion finished();
    // Whether there is work under way, or a completion to be asked for.
    bool isBusy() const { return m_thread.joinable(); }

private:
    void startNext();

    Cancellation m_cancellation; // outlives the thread
    std::mutex m_lock;
    std::deque<Work> m_waiting; // on the caller's thread only
    Completion m_completion;
    bool m_isDone = false;
    std::thread m_thread;
};

} // namespace velk::devkit
