#pragma once

#include "backend/records.h"
#include "base/session.h"

namespace velk {

// Shows the tool's question and sends it the number of the button that the user pressed. No answer goes out when the
// session ended while the box was open.
void showPrompt(const Session& session, const trzText& text);

} // namespace velk
