#pragma once

#include "devkit/contract/callMoment.h"

namespace velk::devkit {

// What happens inside every call besides its work: the host's hook is told, and with VELK_BACKEND_PUMP set to 1 the
// thread's messages are worked off.
void setCallHook(CallHook hook) noexcept;
void passMoment(const wchar_t* call, CallMoment moment) noexcept;
// Whether the call that is being served came inside another one.
bool isInsideAnotherCall() noexcept;

} // namespace velk::devkit
