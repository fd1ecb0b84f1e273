#include "checker/checkedCall.h"

#include "base/win32.h"

#include <cstddef>

// A function that loses the base pointer must not take the frame along, so that stands in memory, too.
//
//     20 state   16 count   12 arguments   8 function   4 return   0 ebp   -4 ebx   -8 esi   -12 edi
//     -16 frame of the call around this one   -20 where the stack ought to be afterwards   -24 base pointer afterwards
//     -28 vector control word   -56 floating-point environment (28 bytes), below it some room
__asm__(R"(
    .text
    .globl _velkCheckedCall
_velkCheckedCall:
    pushl %ebp
    movl %esp, %ebp
    pushl %ebx
    pushl %esi
    pushl %edi
    pushl _velkCheckedFrame
    movl %ebp, _velkCheckedFrame
    subl $120, %esp
    movl 20(%ebp), %edx
    fnstcw 34(%edx)
    cmpb $0, _velkVectorUnit
    je 1f
    stmxcsr 40(%edx)
1:  movl 12(%ebp), %esi
    movl 16(%ebp), %ecx
    leal (,%ecx,4), %eax    # the last argument ends where the first one is aligned to 16
    movl %esp, %edx
    subl %eax, %edx
    andl $15, %edx
    subl %edx, %esp
    movl %esp, -20(%ebp)
    jmp 3f
2:  pushl (%esi,%ecx,4)
3:  decl %ecx
    jns 2b
    movl 8(%ebp), %eax
    movl $0x5EED0B0B, %ebx
    movl $0x5EED0505, %esi
    movl $0x5EED0D0D, %edi
    call *%eax
    movl %esp, %edx
    movl _velkCheckedFrame, %ecx
    movl -20(%ecx), %esp
    pushfl
    cld
    movl %ebp, -24(%ecx)
    movl %ecx, %ebp
    movl 20(%ebp), %ecx
    movl %eax, (%ecx)
    subl -20(%ebp), %edx
    movl %edx, 4(%ecx)
    popl 8(%ecx)
    movl %ebx, 12(%ecx)
    movl %esi, 16(%ecx)
    movl %edi, 20(%ecx)
    movl -24(%ebp), %eax
    subl %ebp, %eax
    movl %eax, 24(%ecx)
    fnstenv -56(%ebp)
    movw -56(%ebp), %ax
    movw %ax, 30(%ecx)
    movw -52(%ebp), %ax
    movw %ax, 28(%ecx)
    movw -48(%ebp), %ax
    movw %ax, 32(%ecx)
    fninit
    fldcw 34(%ecx)
    cmpb $0, _velkVectorUnit
    je 4f
    stmxcsr 36(%ecx)
    ldmxcsr 40(%ecx)
4:  movl -16(%ebp), %eax
    movl %eax, _velkCheckedFrame
    leal -12(%ebp), %esp
    popl %edi
    popl %esi
    popl %ebx
    popl %ebp
    ret
)");

using State = velk::check::CallState;
static_assert(offsetof(State, stackOff) == 4 && offsetof(State, flags) == 8 && offsetof(State, ebx) == 12);
static_assert(offsetof(State, ebpOff) == 24 && offsetof(State, floatStatus) == 28);
static_assert(offsetof(State, floatControl) == 30 && offsetof(State, floatTags) == 32);
static_assert(offsetof(State, floatControlBefore) == 34 && offsetof(State, vectorControl) == 36);
static_assert(offsetof(State, vectorControlBefore) == 40);
static_assert(State::givenEbx == 0x5EED0B0B && State::givenEsi == 0x5EED0505 && State::givenEdi == 0x5EED0D0D);

extern "C" {

[[gnu::used]] void* velkCheckedFrame = nullptr;
[[gnu::used]] bool velkVectorUnit = IsProcessorFeaturePresent(PF_XMMI_INSTRUCTIONS_AVAILABLE) != FALSE;

void velkCheckedCall(void* function, const uint32_t* arguments, size_t count, State* state) noexcept;

} // extern "C"

namespace velk::check {

CallState checkedCall(void* function, std::span<const uint32_t> arguments) noexcept
{
    constexpr uint32_t onlyNotes = 0x3F;
    CallState state;
    velkCheckedCall(function, arguments.data(), arguments.size(), &state);
    state.vectorControl &= ~onlyNotes;
    state.vectorControlBefore &= ~onlyNotes;
    return state;
}

} // namespace velk::check
