// The call that the compiler never makes by itself: its arguments stand where the caller wants them.

__asm__(R"(
    .text
    .globl _velkCallWithStackOff
_velkCallWithStackOff:
    pushl %ebp
    movl %esp, %ebp
    pushl %esi
    pushl %edi
    movl 16(%ebp), %esi     # the arguments
    movl 20(%ebp), %ecx     # how many
    leal (,%ecx,4), %eax
    subl %eax, %esp
    andl $-16, %esp
    subl 8(%ebp), %esp      # off
    movl %esp, %edi
    rep movsl
    call *12(%ebp)          # the entry
    leal -8(%ebp), %esp
    popl %edi
    popl %esi
    popl %ebp
    ret

    .globl _velkPlaceOfArguments
_velkPlaceOfArguments:
    leal 4(%esp), %eax
    andl $15, %eax
    ret
)");
