#pragma once

#include "com/com_ptr.h"

#include <oleidl.h>
#include <string>

namespace velk::devkit {

// What OLE asks when something is dragged over an edit control: see TextDrop.
com_ptr<IDropTarget> makeTextTarget(HWND edit, std::wstring name);

// An edit control takes texts that are dropped on it by OLE, as a copy: in Unicode where the source has that, in the
// code page otherwise, each behind what stands there, in a line of its own. What arrived is written to the journal.
// The calls of OLE are places for re-entry: "Immediate.DragEnter", ".DragOver", ".DragLeave", ".Drop".
class TextDrop {
public:
    // The name is that of the journal and of the places. Without OLE on the thread nothing can be dropped.
    TextDrop(HWND edit, std::wstring name);
    TextDrop(const TextDrop&) = delete;
    TextDrop& operator=(const TextDrop&) = delete;
    ~TextDrop();

private:
    const HWND m_edit;
};

} // namespace velk::devkit
