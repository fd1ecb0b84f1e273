#pragma once

#include "base/unique_any.h"

#include <cstdint>
#include <string>

namespace velk {

// The one font of all windows of the add-in, fixed when the IDE connects it and never changed after that.
struct UiFont {
    std::wstring name;   // empty: not set, windows keep the system's font
    int32_t size = 0;    // points
    int32_t charset = 1; // as in LOGFONT; 1 lets the system choose
};
UiFont& uiFont();
// Lets go of the name: the DLL is about to be unloaded.
void forgetUiFont() noexcept;

// The character set of a face name. Only four double-byte faces are told apart; their names are compared byte for
// byte as they come over the bridge.
int32_t fontCharset(std::wstring_view name);

// A GDI font of these settings at the resolution of the screen; the system's message font when no name is set.
unique_font makeFont(const UiFont& settings);

} // namespace velk
