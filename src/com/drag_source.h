#pragma once

#include "base/session.h"
#include "com/com_ptr.h"

#include <oleidl.h>
#include <string>

namespace velk {

// Whether a drag goes on: Esc ends it, and so does the end of the session that it belongs to; when the left button is
// released, what is dragged is dropped. Shows the system's own pointers.
com_ptr<IDropSource> makeDropSource(const Session& life);

// Lets the user drag a copy of a text with the left mouse button, which is down already, to a window that takes
// dropped texts. Whether one took it. Works off this thread's messages until the button is released: the caller may be
// gone afterwards. While one drag goes on there is no other. Throws when OLE refuses.
bool dragText(const std::wstring& text, const Session& life);

} // namespace velk
