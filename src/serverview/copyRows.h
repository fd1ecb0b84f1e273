#pragma once

#include "serverview/viewParts.h"

namespace velk {

// Puts the selected rows of the list onto the clipboard as a text, in the order shown. False when none is selected, and
// nothing was touched. A clipboard that another program holds is told to the user.
bool copySelectedNames(const ViewParts& parts);
// All columns as they stand on the screen, below their headers.
bool copySelectedTable(const ViewParts& parts);

} // namespace velk
