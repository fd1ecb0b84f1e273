#pragma once

#include "devkit/backend/odbc.h"
#include "devkit/base/thread.h"

#include <deque>
#include <functional>
#include <memory>

namespace velk::devkit {

// Long work on a thread of its own, one piece after the other. A piece of work gives back what is to be done with its
// result; that is done on the caller's thread, when it asks. While a piece runs, the library stays loaded.
class Worker {
public:
    using Completion = std::function<void()>;
    // Uses the cancellation for all its connections. Must not throw.
    using Work = std::function<Completion(Cancellation&)>;

    Worker() = default;
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;
    // Ends the piece that is being worked on; what waits behind it is dropped, and so are all results.
    ~Worker();

    void add(Work work);
    // Ends the piece that is being worked on and all that wait, which then fail one after the other: their completions
    // follow as if they had come to it by themselves.
    void cancel() noexcept;
    // The completion of a piece that is done; empty when there is none.
    Completion finished();
    // Whether there is work under way, or a completion to be asked for.
    bool isBusy() const { return m_thread.joinable(); }

private:
    struct Piece {
        Work work;
        std::shared_ptr<Cancellation> cancellation = std::make_shared<Cancellation>();
    };
    void startNext();
    void endThread();
    bool isDone();

    std::deque<Piece> m_waiting; // on the caller's thread only
    std::shared_ptr<Cancellation> m_current;
    HMODULE m_library = nullptr; // held while the thread runs
    Lock m_lock;
    Completion m_completion;
    bool m_isDone = false;
    Thread m_thread;
};

} // namespace velk::devkit
