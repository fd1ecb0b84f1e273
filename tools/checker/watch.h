#pragma once

#include "checker/pad.h"

#include <functional>
#include <string>

namespace velk::check {

struct ChildEnd {
    enum Kind { done, died, hung, threadEnded } kind = done;
    DWORD code = 0; // of a process that died
};

// Runs a child on the pad until it ends, by itself or because a call of its took too long. Its progress is told to the
// listener.
ChildEnd watchChild(Pad& pad, unsigned long longestCall, const std::function<void(const std::string&)>& listener);

} // namespace velk::check
