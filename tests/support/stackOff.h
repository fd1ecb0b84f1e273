#pragma once

#include "base/win32.h"

#include <array>
#include <bit>
#include <cstdint>
#include <unknwn.h>

extern "C" {
uint32_t velkCallWithStackOff(uint32_t off, void* entry, const uint32_t* arguments, uint32_t count);
// An entry that tells where its caller put the arguments: the distance from the multiple of 16 below.
uint32_t velkPlaceOfArguments();
}

namespace velk::test {

// Calls an entry of the outside as 32-bit Windows may do it: with a stack that is aligned to 4 bytes and no more. The
// arguments begin so many bytes below a multiple of 16; the compiler's own calls have 0 there. Whoever cleans up the
// arguments, the stack is restored afterwards. No exception may leave the entry.
template <class... Arguments>
uint32_t enterWithStackOff(uint32_t off, void* entry, Arguments... arguments)
{
    const std::array<uint32_t, sizeof...(Arguments)> words{std::bit_cast<uint32_t>(arguments)...};
    return velkCallWithStackOff(off, entry, words.data(), sizeof...(Arguments));
}

// The address of a method by its place in an interface.
template <class Interface>
void* methodOf(Interface* object, size_t place)
{
    return (*reinterpret_cast<void***>(object))[place];
}

} // namespace velk::test
