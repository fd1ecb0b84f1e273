#pragma once

#include <windows.h>

// GoogleTest's own place for a port: of the standard library's threads it wants this one class only.
namespace testing::internal {

class Notification {
public:
    Notification() : m_event(CreateEventW(nullptr, TRUE, FALSE, nullptr)) {}
    Notification(const Notification&) = delete;
    Notification& operator=(const Notification&) = delete;
    ~Notification() { CloseHandle(m_event); }
    void Notify() { SetEvent(m_event); }
    void WaitForNotification() { WaitForSingleObject(m_event, INFINITE); }

private:
    HANDLE m_event;
};

} // namespace testing::internal

#define GTEST_HAS_NOTIFICATION_ 1
