#pragma once

#include "window/dialog.h"

namespace velk {

// The UI font as dialogs take it.
DialogFont formFont();

} // namespace velk
