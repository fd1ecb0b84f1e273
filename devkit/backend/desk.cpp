#include "devkit/backend/desk.h"

namespace velk::devkit {

Desk::Desk() : texts(loadTexts())
{
}

// The library is being unloaded, so the database drivers may be gone already: an open session is left as it is.
Desk::~Desk()
{
    if (session)
        rules.journal().breach(L"unloaded without RZTerminate");
    static_cast<void>(session.release());
}

} // namespace velk::devkit
