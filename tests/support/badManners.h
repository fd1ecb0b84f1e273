#pragma once

#include <cstdint>

namespace velk::test {

// What a library may do inside a call that it should not. The first four do not come back.
[[noreturn]] void accessViolation();
[[noreturn]] void divideByZero();
[[noreturn]] void throwAsAnotherCompiler();
[[noreturn]] void overflowStack();

// The control word of the floating-point unit, which belongs to the whole thread.
uint16_t floatControlWord();
void setFloatControlWord(uint16_t word);
// What the unit has noted, and how many numbers are on its stack: none, between functions.
uint16_t floatStatusWord();
int numbersOnTheFloatStack();
// Single precision, and every exception raised: what a library of another tool chain may want.
inline constexpr uint16_t unusualControlWord = 0x0040;

// How many faults the running test has made on purpose; any other one fails it.
int& expectedFaults() noexcept;

// Whether the system raises an exception when the stack is full. Wine 10 ends the process: it finds no room to do so.
bool isFullStackTold() noexcept;

} // namespace velk::test
