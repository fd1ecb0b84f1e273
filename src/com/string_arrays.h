#pragma once

#include "base/win32.h"

#include <string>
#include <vector>

namespace velk {

// Lists of texts travel as automation arrays of strings. An absent array is an empty list; an array of another
// element type is error 13.
std::vector<std::wstring> textsOf(SAFEARRAY* array);
// A new array with the texts, owned by the caller.
SAFEARRAY* arrayOf(const std::vector<std::wstring>& texts);

} // namespace velk
