#pragma once

#include "facts.h"
#include "options.h"

namespace velk::doctor {

// Looks at all of the machine, one area after the other; one that cannot be looked at is a failure of that area alone.
Facts gather(const Options& options);

// The areas. They throw; what they need of each other stands in the facts already, in this order.
void gatherSystem(Facts& facts, const Options& options);
void gatherRegistration(Facts& facts, const Options& options);
void gatherIde(Facts& facts, const Options& options);
void gatherInstalled(Facts& facts, const Options& options);
void gatherAddin(Facts& facts, const Options& options);
void gatherRunning(Facts& facts, const Options& options);
void gatherBackend(Facts& facts, const Options& options);
void gatherSourceSafe(Facts& facts, const Options& options);
void gatherOdbc(Facts& facts, const Options& options);
void gatherLanguage(Facts& facts, const Options& options);
void gatherLog(Facts& facts, const Options& options);

} // namespace velk::doctor
