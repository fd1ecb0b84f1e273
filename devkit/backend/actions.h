#pragma once

#include "devkit/backend/parts.h"

namespace velk::devkit {

// What an action came to.
enum class Outcome {
    unknown, // there is no such action
    refused, // not for this object, or not in this edition; the user has been told
    done,
};

// Carries out an action by its code on the thing with that handle.
Outcome act(Parts& parts, int32_t handle, int32_t code);

} // namespace velk::devkit
