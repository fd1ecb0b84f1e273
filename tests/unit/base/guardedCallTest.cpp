#include "base/guarded_call.h"

#include "base/module.h"
#include "base/win32.h"
#include "support/badManners.h"
#include "support/stackOff.h"

#include <array>
#include <gtest/gtest.h>

namespace velk {
namespace {

template <class... Words>
CallOutcome call(int32_t(__stdcall* function)(Words...), Words... words)
{
    const std::array<uint32_t, sizeof...(Words)> arguments{static_cast<uint32_t>(words)...};
    return guardedCall(reinterpret_cast<void*>(function), arguments);
}

int32_t __stdcall inOrder(int32_t a, int32_t b, int32_t c, int32_t d, int32_t e)
{
    return a * 10000 + b * 1000 + c * 100 + d * 10 + e;
}
int32_t __stdcall leftFor(int32_t code)
{
    RaiseException(static_cast<DWORD>(code), 0, 0, nullptr);
    return 5;
}
// The last one asked: everything else goes on as if nothing had been raised.
LONG CALLBACK goOn(EXCEPTION_POINTERS*) noexcept
{
    return EXCEPTION_CONTINUE_EXECUTION;
}

// The head of the chain of handlers.
void* handlers()
{
    void* head = nullptr;
    __asm__ volatile("movl %%fs:0, %0" : "=r"(head));
    return head;
}

TEST(guardedCall, function_getsItsArgumentsInOrderAndGivesItsResult)
{
    const CallOutcome outcome = call(inOrder, 1, 2, 3, 4, 5);
    EXPECT_EQ(outcome.result, 12345);
    EXPECT_EQ(outcome.exception, 0u);
    EXPECT_EQ(outcome.stackError, 0);
}

TEST(guardedCall, functionWithoutArguments_isCalled)
{
    const auto four = +[]() __stdcall->int32_t
    {
        return 4;
    };
    EXPECT_EQ(call(four).result, 4);
}

TEST(guardedCall, arguments_standAtAMultipleOf16HoweverManyThereAre)
{
    void* const place = reinterpret_cast<void*>(velkPlaceOfArguments);
    const std::array<uint32_t, 3> arguments{1, 2, 3};
    EXPECT_EQ(guardedCall(place, std::span(arguments).first(1)).result, 0);
    EXPECT_EQ(guardedCall(place, std::span(arguments).first(2)).result, 0);
    EXPECT_EQ(guardedCall(place, std::span(arguments).first(3)).result, 0);
}

TEST(guardedCall, accessViolation_endsTheCallAndTellsCodeAndPlace)
{
    const auto faulty = +[]() __stdcall->int32_t
    {
        test::accessViolation();
    };
    const CallOutcome outcome = call(faulty);
    EXPECT_EQ(outcome.exception, EXCEPTION_ACCESS_VIOLATION);
    HMODULE raiser = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       static_cast<const wchar_t*>(outcome.place), &raiser);
    EXPECT_EQ(raiser, GetModuleHandleW(nullptr));
}

TEST(guardedCall, divisionByZero_endsTheCall)
{
    const auto faulty = +[]() __stdcall->int32_t
    {
        test::divideByZero();
    };
    EXPECT_EQ(call(faulty).exception, EXCEPTION_INT_DIVIDE_BY_ZERO);
}

TEST(guardedCall, anotherCompilersException_endsTheCall)
{
    const auto faulty = +[]() __stdcall->int32_t
    {
        test::throwAsAnotherCompiler();
    };
    EXPECT_EQ(call(faulty).exception, 0xE06D7363u);
}

TEST(guardedCall, exceptionThatItsRaiserDoesNotGoOnAfter_endsTheCallWhateverItsNumber)
{
    const auto faulty = +[]() __stdcall->int32_t
    {
        RaiseException(0x0EEDFADE, EXCEPTION_NONCONTINUABLE, 0, nullptr);
        return 5;
    };
    EXPECT_EQ(call(faulty).exception, 0x0EEDFADEu);
}

TEST(guardedCall, whatIsOnlyTold_passesBy)
{
    const auto before = SetUnhandledExceptionFilter(goOn);
    const CallOutcome outcome = call(leftFor, 0x40010005);
    SetUnhandledExceptionFilter(before);
    EXPECT_EQ(outcome.result, 5);
    EXPECT_EQ(outcome.exception, 0u);
}

TEST(guardedCall, nullFunction_endsTheCall)
{
    ++test::expectedFaults();
    EXPECT_EQ(guardedCall(nullptr, {}).exception, EXCEPTION_ACCESS_VIOLATION);
}

TEST(guardedCall, stackThatRunsFull_endsTheCallEachTime)
{
    if (!test::isFullStackTold())
        GTEST_SKIP() << "this system ends the process";
    const auto faulty = +[]() __stdcall->int32_t
    {
        test::overflowStack();
    };
    EXPECT_EQ(call(faulty).exception, EXCEPTION_STACK_OVERFLOW);
    EXPECT_EQ(call(faulty).exception, EXCEPTION_STACK_OVERFLOW);
    EXPECT_EQ(call(inOrder, 1, 2, 3, 4, 5).result, 12345);
}

TEST(guardedCall, faultInACallWithinACall_endsTheInnerOneOnly)
{
    const auto outer = +[](int32_t given) __stdcall->int32_t
    {
        const auto faulty = +[]() __stdcall->int32_t
        {
            test::divideByZero();
        };
        return call(faulty).exception == EXCEPTION_INT_DIVIDE_BY_ZERO ? given : 0;
    };
    const CallOutcome outcome = call(outer, 7);
    EXPECT_EQ(outcome.result, 7);
    EXPECT_EQ(outcome.exception, 0u);
}

TEST(guardedCall, whateverHappens_leavesTheChainOfHandlersAsItWas)
{
    void* const before = handlers();
    const auto faulty = +[]() __stdcall->int32_t
    {
        test::divideByZero();
    };
    call(faulty);
    EXPECT_EQ(handlers(), before);
    call(inOrder, 1, 2, 3, 4, 5);
    EXPECT_EQ(handlers(), before);
}

TEST(guardedCall, functionThatTakesMoreArguments_isToldByTheBytes)
{
    const std::array<uint32_t, 3> arguments{1, 2, 3};
    EXPECT_EQ(guardedCall(reinterpret_cast<void*>(inOrder), arguments).stackError, 8);
}

TEST(guardedCall, functionThatLeavesItsArguments_isToldByTheBytes)
{
    const auto ofC = +[](int32_t a, int32_t b) -> int32_t { return a + b; };
    const std::array<uint32_t, 2> arguments{1, 2};
    const CallOutcome outcome = guardedCall(reinterpret_cast<void*>(ofC), arguments);
    EXPECT_EQ(outcome.stackError, -8);
    EXPECT_EQ(outcome.result, 3);
}

TEST(guardedCall, floatControlWord_isPutBack)
{
    const uint16_t before = test::floatControlWord();
    const auto changing = +[](int32_t word) __stdcall->int32_t
    {
        test::setFloatControlWord(static_cast<uint16_t>(word));
        return 1;
    };
    call(changing, int32_t{test::unusualControlWord});
    EXPECT_EQ(test::floatControlWord(), before);
}

TEST(guardedCall, floatControlWordOfACallThatFaults_isPutBack)
{
    constexpr uint16_t hosts = 0x027F; // that of a host whose run-time computes in double precision
    const auto changing = +[](int32_t word) __stdcall->int32_t
    {
        test::setFloatControlWord(static_cast<uint16_t>(word));
        test::divideByZero();
    };
    const uint16_t before = test::floatControlWord();
    test::setFloatControlWord(hosts);
    call(changing, int32_t{test::unusualControlWord});
    EXPECT_EQ(test::floatControlWord(), hosts);
    test::setFloatControlWord(before);
}

TEST(guardedCall, floatExceptionLeftPending_isForgottenWithTheControlWord)
{
    const auto changing = +[](int32_t word) __stdcall->int32_t
    {
        __asm__ volatile("fldz\n\tfld1\n\tfdivp\n\tfstp %%st(0)"
                         :
                         :
                         : "st"); // raised by the next instruction if unmasked
        test::setFloatControlWord(static_cast<uint16_t>(word));
        return 1;
    };
    EXPECT_EQ(call(changing, int32_t{test::unusualControlWord}).exception, 0u);
    volatile double one = 1;
    EXPECT_EQ(one + one, 2.0);
}

TEST(guardedCall, floatExceptionOfTheHostsKind_isForgotten)
{
    constexpr uint16_t hosts = 0x0373; // that of a host that wants to hear of divisions by zero
    const auto dividing = +[]() __stdcall->int32_t
    {
        __asm__ volatile("fldz\n\tfld1\n\tfdivp" : : : "st");
        return 1;
    };
    const uint16_t before = test::floatControlWord();
    test::setFloatControlWord(hosts);
    EXPECT_EQ(call(dividing).exception, 0u);
    EXPECT_EQ(test::floatControlWord(), hosts);
    volatile double one = 1;
    EXPECT_EQ(one + one, 2.0);
    test::setFloatControlWord(before);
}

TEST(guardedCall, numbersLeftOnTheFloatStack_areTakenAway)
{
    const auto leaving = +[](int32_t count) __stdcall->int32_t
    {
        for (int32_t number = 0; number < count; ++number)
            __asm__ volatile("fld1");
        return count;
    };
    for (int32_t count = 1; count <= 8; ++count) {
        EXPECT_EQ(call(leaving, count).result, count);
        EXPECT_EQ(test::numbersOnTheFloatStack(), 0) << count;
    }
}

TEST(guardedCall, floatUnitLeftToIntegers_isPutBack)
{
    const auto packing = +[]() __stdcall->int32_t
    {
        __asm__ volatile("movd %esp, %mm0");
        return 1;
    };
    call(packing);
    EXPECT_EQ(test::numbersOnTheFloatStack(), 0);
}

TEST(guardedCall, callThatLeavesTheFloatUnit_keepsWhatTheHostHasNoted)
{
    const auto idle = +[]() __stdcall->int32_t
    {
        return 1;
    };
    volatile double third = 1;
    third = third / 3; // inexact
    const uint16_t before = test::floatStatusWord();
    call(idle);
    EXPECT_EQ(test::floatStatusWord(), before);
    EXPECT_NE(before & 0x20, 0);
}

TEST(guardedCall, vectorControlWord_isPutBack)
{
    uint32_t before = 0;
    __asm__ volatile("stmxcsr %0" : "=m"(before));
    const auto changing = +[]() __stdcall->int32_t
    {
        const uint32_t unmasked = 0x1D80;
        __asm__ volatile("ldmxcsr %0" : : "m"(unmasked));
        return 1;
    };
    call(changing);
    uint32_t after = 0;
    __asm__ volatile("stmxcsr %0" : "=m"(after));
    EXPECT_EQ(after, before);
}

TEST(guardedCall, directionFlag_isPutBack)
{
    const auto changing = +[]() __stdcall->int32_t
    {
        __asm__ volatile("std");
        return 1;
    };
    call(changing);
    uint32_t flags = 0;
    __asm__ volatile("pushfl\n\tpopl %0\n\tcld" : "=r"(flags));
    EXPECT_EQ(flags & 0x400, 0u);
}

} // namespace
} // namespace velk
