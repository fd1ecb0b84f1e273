#include "base/guarded_call.h"

#include "base/win32.h"

#include <cstddef>

// This compiler has no __try, so the frame is built by hand as the system knows it: a record of the one before and the
// handler, on the stack, with its address at fs:0. The system accepts any handler of an image that has neither a table
// of handlers nor the mark that it has none.
//
//     20 outcome   16 count   12 arguments   8 function   4 return   0 ebp   -4 ebx   -8 esi   -12 edi
//     -16 float control word before, -14 and after   -20 where the stack ought to be then   -24 vector control word
//     before -28 float status word before   -32 handler   -36 frame before
//
// Between functions the float stack is empty. It is when its top is where it was and there is room for one more number:
// looking at that takes a few cycles, and making the unit new as many as all the rest.
__asm__(R"(
    .text
    .globl _velkGuardedCall
_velkGuardedCall:
    pushl %ebp
    movl %esp, %ebp
    pushl %ebx
    pushl %esi
    pushl %edi
    subl $16, %esp
    fnstcw -16(%ebp)
    fnstsw -28(%ebp)
    cmpb $0, _velkHasVectorUnit
    je 6f
    stmxcsr -24(%ebp)
6:  pushl $_velkGuard
    pushl %fs:0
    movl %esp, %fs:0
    movl 12(%ebp), %esi
    movl 16(%ebp), %ecx
    leal (,%ecx,4), %eax    # the last argument ends where the first one is aligned to 16
    movl %esp, %edx
    subl %eax, %edx
    andl $15, %edx
    subl %edx, %esp
    movl %esp, -20(%ebp)
    jmp 2f
1:  pushl (%esi,%ecx,4)
2:  decl %ecx
    jns 1b
    call *8(%ebp)
    movl 20(%ebp), %edx
    movl %eax, (%edx)
    movl %esp, %eax
    subl -20(%ebp), %eax
    movl %eax, 12(%edx)
    cld
    fnstsw %ax
    testb $0x80, %al        # an exception that the next float instruction would raise
    jnz 4f
    xorw -28(%ebp), %ax
    testw $0x3800, %ax      # the top
    jnz 4f
    fld1
    fnstsw %ax
    testb $0x40, %al        # no room
    jnz 4f
    fstp %st(0)
    fnstcw -14(%ebp)
    movw -14(%ebp), %ax
    cmpw -16(%ebp), %ax
    jne 4f
3:  cmpb $0, _velkHasVectorUnit
    je 7f
    stmxcsr -20(%ebp)
    movl -20(%ebp), %eax
    xorl -24(%ebp), %eax
    testl $0xFFC0, %eax     # but for what is only noted
    je 7f
    ldmxcsr -24(%ebp)
7:  leal -36(%ebp), %esp
    popl %fs:0
    leal -12(%ebp), %esp
    popl %edi
    popl %esi
    popl %ebx
    popl %ebp
    ret
4:  fninit
    fldcw -16(%ebp)
    jmp 3b

# Called by the handler with its frame and what was raised: unwinds what stands above the frame and ends the call.
    .globl _velkEndGuardedCall
_velkEndGuardedCall:
    movl 4(%esp), %ebx
    movl 8(%esp), %esi
    movl 56(%ebx), %edx     # the outcome
    movl (%esi), %eax
    movl %eax, 4(%edx)
    movl 12(%esi), %eax
    movl %eax, 8(%edx)
    pushl $0
    pushl %esi
    pushl $5f
    pushl %ebx
    call _RtlUnwind@16      # keeps no register but the stack's
5:  movl %fs:0, %ebp
    addl $36, %ebp
    cld
    jmp 4b
)");

static_assert(offsetof(velk::CallOutcome, exception) == 4 && offsetof(velk::CallOutcome, place) == 8 &&
              offsetof(velk::CallOutcome, stackError) == 12);
static_assert(offsetof(EXCEPTION_RECORD, ExceptionAddress) == 12);

extern "C" {

[[gnu::used]] bool velkHasVectorUnit = IsProcessorFeaturePresent(PF_XMMI_INSTRUCTIONS_AVAILABLE) != FALSE;

void velkGuardedCall(void* function, const uint32_t* arguments, size_t count, velk::CallOutcome* outcome) noexcept;
[[noreturn]] void velkEndGuardedCall(void* frame, const EXCEPTION_RECORD* raised) noexcept;

// The frame's handler. Errors, and whatever its raiser does not expect to go on after; the rest is for others.
[[gnu::used]] EXCEPTION_DISPOSITION __cdecl velkGuard(EXCEPTION_RECORD* raised, void* frame, CONTEXT*, void*) noexcept
{
    constexpr DWORD unwinding = 2;
    constexpr DWORD exitUnwinding = 4;
    constexpr DWORD severityError = 3;
    const DWORD flags = raised->ExceptionFlags;
    const bool isFatal = (flags & EXCEPTION_NONCONTINUABLE) != 0 || raised->ExceptionCode >> 30 == severityError;
    if ((flags & (unwinding | exitUnwinding)) != 0 || !isFatal)
        return ExceptionContinueSearch;
    velkEndGuardedCall(frame, raised);
}

} // extern "C"

namespace velk {
namespace {

// The page below the stack that makes it grow and tells when it cannot is used up by an overflow. Without it the next
// one ends the process.
void mendStack() noexcept
{
    using Reset = int(__cdecl*)();
    if (const HMODULE runTime = GetModuleHandleW(L"msvcrt.dll"))
        if (const auto reset =
                reinterpret_cast<Reset>(reinterpret_cast<void*>(GetProcAddress(runTime, "_resetstkoflw"))))
            reset();
}

} // namespace

CallOutcome guardedCall(void* function, std::span<const uint32_t> arguments) noexcept
{
    CallOutcome outcome;
    velkGuardedCall(function, arguments.data(), arguments.size(), &outcome);
    if (outcome.exception == STATUS_STACK_OVERFLOW)
        mendStack();
    return outcome;
}

} // namespace velk
