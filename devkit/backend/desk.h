#pragma once

#include "devkit/backend/callRules.h"
#include "devkit/backend/enumerations.h"
#include "devkit/backend/toolSession.h"

#include <map>
#include <memory>

namespace velk::devkit {

// There because the exports are functions without an object: what they have in common from the library's load to its
// unload.
struct Desk {
    Desk();
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;
    ~Desk();

    bool isWorking() const { return session && session->isWorking(); }

    Handles handles;
    CallRules rules{handles};
    TextTable texts;
    std::unique_ptr<ToolSession> session; // from RZInitialize to RZTerminate
    Enumerations enumerations;
    std::map<int32_t, int32_t> longTexts; // texts that did not fit at first, and the room that they need
};

} // namespace velk::devkit
