#pragma once

#include "checker/pad.h"

#include <functional>
#include <string>

namespace velk::check {

struct ChildEnd {
    enum Kind { done, died, hung, waited, threadEnded } kind = done;
    DWORD code = 0;           // of a process that died
    unsigned long passed = 0; // milliseconds, of one that hung
    std::wstring window;      // that waits for a user
};

// How long a call may take, in milliseconds: any, and one that acts.
struct Patience {
    unsigned long call, act;
};

// Runs a child on the pad until it ends, by itself or because a call of its took too long, or something between calls.
// A window that is shown meanwhile gets a user who cancels. The child's progress is told to the listener.
ChildEnd watchChild(Pad& pad, const Patience& patience, const std::function<void(const std::string&)>& listener);

} // namespace velk::check
