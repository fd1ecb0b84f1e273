#pragma once

#include <cstddef>
#include <string>

namespace velk {

// A number as the user's language writes it, in groups: "12,300".
std::wstring groupedNumber(size_t number);

} // namespace velk
