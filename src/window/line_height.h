#pragma once

#include "base/win32.h"

namespace velk {

// Pixels that a line of text is high in a font; without one in the system's. And vertical dialog units, which are
// eighths of that, in pixels.
int lineHeightOf(HFONT font) noexcept;
int verticalUnits(int units, int lineHeight) noexcept;

} // namespace velk
