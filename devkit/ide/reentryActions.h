#pragma once

#include "devkit/ide/shell.h"

#include <span>
#include <string>

namespace velk::devkit {

// What a user or the IDE may do while an add-in waits in a call.
struct ReentryAction {
    const wchar_t* name;
    void (*run)(Shell& shell);
};

std::span<const ReentryAction> reentryActions();

// Null for an unknown name.
const ReentryAction* reentryAction(const std::wstring& name);

} // namespace velk::devkit
