#pragma once

#include "window/dialog.h"

#include <vector>

namespace velk {

// The system's own form of a dialog's layout, as it is made from memory.
std::vector<WORD> dialogTemplate(const DialogLayout& layout, const DialogFont& font);

} // namespace velk
