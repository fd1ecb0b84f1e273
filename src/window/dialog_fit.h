#pragma once

#include "window/dialog.h"

namespace velk {

// Makes a form of a layout as wide as its texts need: a title, a label or a button that has no room for its text widens
// the whole layout, as far as the screen goes. Texts that fit leave it as it was laid out.
void fitToTexts(HWND form, const DialogLayout& layout);

} // namespace velk
