#pragma once

#include "devkit/contract/faultHook.h"

#include "base/win32.h"

#include <optional>
#include <string>

namespace velk::devkit {

// Who decides which calls of this module's automation objects fail; null for nobody.
void setFaultHook(FaultHook hook) noexcept;
// What a call answers instead of doing its work; empty when it is to go on.
std::optional<HRESULT> faultOf(const std::wstring& call) noexcept;

} // namespace velk::devkit
