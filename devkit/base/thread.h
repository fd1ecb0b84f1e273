#pragma once

#include "base/error.h"
#include "base/win32.h"

#include <chrono>
#include <functional>
#include <memory>
#include <utility>

namespace velk::devkit {

// The system's own threads, locks and events: the compiler's model of threads has none for the standard library in
// every version that builds this.

// Work on a thread of its own, which must not throw; whoever holds it waits for its end at last.
class Thread {
public:
    Thread() noexcept = default;
    explicit Thread(std::function<void()> work)
    {
        auto carried = std::make_unique<std::function<void()>>(std::move(work));
        m_handle = CreateThread(nullptr, 0, &run, carried.get(), 0, nullptr);
        throwLastErrorUnless(m_handle != nullptr);
        carried.release();
    }
    Thread(Thread&& other) noexcept : m_handle(std::exchange(other.m_handle, nullptr)) {}
    Thread& operator=(Thread&& other) noexcept
    {
        std::swap(m_handle, other.m_handle);
        return *this;
    }
    ~Thread() { join(); }

    // Whether there is one that nobody has waited for.
    bool joinable() const noexcept { return m_handle != nullptr; }
    void join() noexcept
    {
        const HANDLE handle = std::exchange(m_handle, nullptr);
        if (!handle)
            return;
        WaitForSingleObject(handle, INFINITE);
        CloseHandle(handle);
    }

private:
    static DWORD WINAPI run(LPVOID carried) noexcept
    {
        const std::unique_ptr<std::function<void()>> work(static_cast<std::function<void()>*>(carried));
        (*work)();
        return 0;
    }

    HANDLE m_handle = nullptr;
};

class Lock {
public:
    Lock() noexcept { InitializeCriticalSection(&m_section); }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;
    ~Lock() { DeleteCriticalSection(&m_section); }

    // Has the lock as long as it lives.
    class Held {
    public:
        explicit Held(Lock& lock) noexcept : m_section(lock.m_section) { EnterCriticalSection(&m_section); }
        Held(const Held&) = delete;
        Held& operator=(const Held&) = delete;
        ~Held() { LeaveCriticalSection(&m_section); }

    private:
        CRITICAL_SECTION& m_section;
    };

private:
    CRITICAL_SECTION m_section;
};

// What one thread tells the others once.
class Signal {
public:
    Signal() : m_event(CreateEventW(nullptr, TRUE, FALSE, nullptr)) { throwLastErrorUnless(m_event != nullptr); }
    Signal(const Signal&) = delete;
    Signal& operator=(const Signal&) = delete;
    ~Signal() { CloseHandle(m_event); }

    void give() noexcept { SetEvent(m_event); }
    void wait() const noexcept { WaitForSingleObject(m_event, INFINITE); }
    // Whether it was given within that time.
    bool wait(std::chrono::milliseconds longest) const noexcept
    {
        return WaitForSingleObject(m_event, static_cast<DWORD>(longest.count())) == WAIT_OBJECT_0;
    }

private:
    HANDLE m_event;
};

} // namespace velk::devkit
