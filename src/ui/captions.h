#pragma once

#include "window/dialog.h"

namespace velk {

// Gives the controls of a form that is loaded the captions that its rows name, in the tool's words.
void setCaptions(const Dialog& form, std::span<const DialogRow> rows);

} // namespace velk
