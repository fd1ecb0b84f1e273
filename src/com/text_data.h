#pragma once

#include "com/com_ptr.h"

#include <objidl.h>
#include <string>

namespace velk {

// A text as what a drop target or the clipboard takes: in Unicode or, for those that know no better, in the process's
// code page, each in global memory of the taker's own. It can only be read.
com_ptr<IDataObject> makeTextData(std::wstring text);

} // namespace velk
