#pragma once

#include "base/win32.h"

namespace velk::devkit {

// Ends the program, with the word HANG, when a pair takes too long or, where that is asked for, when nothing that the
// host does itself has had its turn for longer than a user would bear.
void startTimeLimit(void (*sayHang)());
void beginPair(bool limitsSilence);
// Something of the host's own has its turn.
void beat() noexcept;

} // namespace velk::devkit
