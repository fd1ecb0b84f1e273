#pragma once

#include "base/win32.h"

#include <array>

namespace velk {

// What belongs to the whole process or thread and a library may leave changed: the current directory, the way in which
// the system's errors are shown, the locales of the thread and of the run-time. As it stood when this was made, put
// back at the end.
class HostState {
public:
    HostState() noexcept;
    HostState(const HostState&) = delete;
    HostState& operator=(const HostState&) = delete;
    ~HostState();

private:
    std::array<wchar_t, MAX_PATH> m_folder; // empty where it did not fit, as the next
    std::array<char, 256> m_runTimeLocale;
    UINT m_errorMode;
    LCID m_threadLocale;
};

} // namespace velk
