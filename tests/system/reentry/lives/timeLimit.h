#pragma once

#include "base/win32.h"

namespace velk::devkit {

// Ends the program when a pair is never done, or when nothing that the host does itself has its turn for longer than a
// user would bear; says which of them before.
void startTimeLimit(void (*sayHang)(const wchar_t* how));
void beginPair();
// Something of the host's own has its turn.
void beat() noexcept;

} // namespace velk::devkit
