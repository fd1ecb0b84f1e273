#pragma once

#include "facts.h"

namespace velk::doctor {

// Holds the tool's library against its contract with the add-in, as far as that goes without a project: its file, a
// session's beginning and end, its texts. In processes of its own; a call may take so many seconds.
ContractFacts checkContract(const std::wstring& library, uint32_t seconds);

} // namespace velk::doctor
