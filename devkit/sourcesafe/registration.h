#pragma once

#include "base/win32.h"

namespace velk::devkit::vss {

inline constexpr CLSID databaseClass{0x783CD4E4, 0x9D54, 0x11CF, {0xB8, 0xEE, 0x00, 0x60, 0x8C, 0xC9, 0xA7, 0x1F}};

// Writes the class, its names, and the installation's server path. Machine-wide, as SourceSafe's own set-up does.
// Throws when a part cannot be written; what was written before is taken back then.
void registerServer();
// Removes exactly that. The list of databases is its maker's, and keeps its key if there is one.
void unregisterServer();

} // namespace velk::devkit::vss
