#pragma once

#include "options.h"
#include "report.h"

namespace velk::doctor {

// Looks at everything and judges it; puts right what can be, if that is asked for, and looks again then.
Report examine(const Options& options);

} // namespace velk::doctor
