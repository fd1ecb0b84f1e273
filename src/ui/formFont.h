#pragma once

#include "platform/dialog.h"

namespace velk {

// The UI font as dialogs take it.
DialogFont formFont();

} // namespace velk
