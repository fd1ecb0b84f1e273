#pragma once

#include <cstdint>
#include <span>

namespace velk::check {

// What the processor held when a call of the library came back, beside its result, and how it was handed over.
struct CallState {
    int32_t result = 0;
    int32_t stackOff = 0; // bytes by which the stack is off: above 0, more arguments were taken than given
    uint32_t flags = 0;   // bit 10 is the direction flag
    uint32_t ebx = 0, esi = 0, edi = 0;
    int32_t ebpOff = 0;
    uint16_t floatStatus = 0; // bits 11 to 13 are the top of the floating-point stack
    uint16_t floatControl = 0;
    uint16_t floatTags = 0; // two bits for each register, 3: empty
    uint16_t floatControlBefore = 0;
    uint32_t vectorControl = 0; // without the bits that only note what happened
    uint32_t vectorControlBefore = 0;

    static constexpr uint32_t givenEbx = 0x5EED0B0B, givenEsi = 0x5EED0505, givenEdi = 0x5EED0D0D;

    bool isDirectionDown() const noexcept { return (flags & 0x400) != 0; }
    bool keepsRegisters() const noexcept
    {
        return ebx == givenEbx && esi == givenEsi && edi == givenEdi && ebpOff == 0;
    }
    bool keepsFloatStack() const noexcept { return floatTags == 0xFFFF; }
    bool keepsControlWords() const noexcept
    {
        return floatControl == floatControlBefore && vectorControl == vectorControlBefore;
    }
};

// Calls a stdcall function of 32-bit arguments and looks at what it left behind; all of that is put back. What goes
// wrong inside of it ends the process, as it would without this.
CallState checkedCall(void* function, std::span<const uint32_t> arguments) noexcept;

} // namespace velk::check
