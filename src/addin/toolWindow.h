#pragma once

#include "base/session.h"
#include "serverview/serverViewDoc.h"

#include <string>

namespace velk {

// The IDE's tool window with the server view. Hosts that declare the document as a plain variable take no reference to
// an object, others take one and leave it empty: then the window is asked for what it hosts, and the other form is
// tried. Throws what the IDE reports, and what says that the session is over.
ServerViewWindow createToolWindow(const com_ptr<IDispatch>& windows, const com_ptr<IDispatch>& addin,
                                  const std::wstring& caption, const Session& session);

// Takes a window out of the frame that it is docked in.
void undock(const com_ptr<IDispatch>& window);

} // namespace velk
