#pragma once

#include "devkit/backend/facts.h"

#include <string>

namespace velk::devkit {

// The facts in a routine's source. They come from its CREATE PROCEDURE or CREATE FUNCTION statement (which stands in
// comments where the language is not SQL) and from comment lines "-- name: value": remark, specific, package, results,
// fenced. A source without such a statement has no name.
ObjectFacts parseRoutine(const std::wstring& source);

// The source as it is compared with what was built: line ends do not count.
std::wstring comparable(const std::wstring& source);

} // namespace velk::devkit
