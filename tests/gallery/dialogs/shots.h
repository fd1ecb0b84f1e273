#pragma once

#include "base/win32.h"

#include <string>

namespace velk {

// Shows a window, lets it draw itself, writes its picture and hides it.
void shoot(HWND window, const std::wstring& file);

} // namespace velk
