#pragma once

#include <cstdint>
#include <string>

namespace velk::test {

// What the Backend's side does with counted strings: the room it was given, and a text written into it with a NUL
// behind it if there is room for one.
uint32_t roomOf(const char* counted);
void writeCounted(char* counted, const std::wstring& text);

} // namespace velk::test
