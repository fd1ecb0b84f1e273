#include "checker/checkedCall.h"

#include "base/win32.h"

#include <array>
#include <gmock/gmock.h>

// Functions that leave the processor otherwise than they found it.
__asm__(R"(
    .text
    .globl _testKeepsAll
_testKeepsAll:
    movl 4(%esp), %eax
    addl 8(%esp), %eax
    ret $8
    .globl _testLeavesArguments
_testLeavesArguments:
    movl $7, %eax
    ret
    .globl _testTakesTooMuch
_testTakesTooMuch:
    movl $7, %eax
    ret $16
    .globl _testChangesRegisters
_testChangesRegisters:
    movl $1, %ebx
    movl $2, %esi
    movl $3, %edi
    movl $4, %ebp
    ret $8
    .globl _testSetsDirection
_testSetsDirection:
    std
    ret $8
    .globl _testLeavesNumber
_testLeavesNumber:
    fld1
    ret $8
    .globl _testChangesControlWord
_testChangesControlWord:
    pushl $0x0372
    fldcw (%esp)
    addl $4, %esp
    ret $8
)");

extern "C" {
void testKeepsAll();
void testLeavesArguments();
void testTakesTooMuch();
void testChangesRegisters();
void testSetsDirection();
void testLeavesNumber();
void testChangesControlWord();
}

namespace velk::check {
namespace {

CallState called(void (*function)())
{
    return checkedCall(reinterpret_cast<void*>(function), std::array<uint32_t, 2>{40, 2});
}

TEST(CheckedCall, functionThatKeepsTheRules_givesItsResult)
{
    const CallState state = called(testKeepsAll);
    EXPECT_EQ(state.result, 42);
    EXPECT_EQ(state.stackOff, 0);
    EXPECT_TRUE(state.keepsRegisters() && state.keepsFloatStack() && state.keepsControlWords());
    EXPECT_FALSE(state.isDirectionDown());
}

TEST(CheckedCall, argumentsLeftOnTheStack_areCounted)
{
    const CallState state = called(testLeavesArguments);
    EXPECT_EQ(state.stackOff, -8);
    EXPECT_EQ(state.result, 7);
}

TEST(CheckedCall, argumentsTakenTooMany_areCounted)
{
    EXPECT_EQ(called(testTakesTooMuch).stackOff, 8);
}

TEST(CheckedCall, registersChanged_areSeen)
{
    const CallState state = called(testChangesRegisters);
    EXPECT_FALSE(state.keepsRegisters());
    EXPECT_EQ(state.ebx, 1u);
    EXPECT_EQ(state.esi, 2u);
    EXPECT_EQ(state.edi, 3u);
    EXPECT_NE(state.ebpOff, 0);
}

TEST(CheckedCall, directionFlagSet_isSeenAndCleared)
{
    EXPECT_TRUE(called(testSetsDirection).isDirectionDown());
    EXPECT_FALSE(called(testKeepsAll).isDirectionDown());
}

TEST(CheckedCall, numberOnTheFloatStack_isSeenAndTakenAway)
{
    EXPECT_FALSE(called(testLeavesNumber).keepsFloatStack());
    EXPECT_TRUE(called(testKeepsAll).keepsFloatStack());
}

TEST(CheckedCall, controlWordChanged_isSeenAndPutBack)
{
    EXPECT_FALSE(called(testChangesControlWord).keepsControlWords());
    EXPECT_TRUE(called(testKeepsAll).keepsControlWords());
}

int32_t __stdcall callsAgain(int32_t depth, int32_t)
{
    if (depth == 0)
        return 1;
    const CallState state =
        checkedCall(reinterpret_cast<void*>(callsAgain), std::array<uint32_t, 2>{static_cast<uint32_t>(depth - 1), 0});
    return state.stackOff == 0 ? state.result + 1 : -1;
}

TEST(CheckedCall, callInsideACall_comesBackToTheOuterOne)
{
    const CallState state = checkedCall(reinterpret_cast<void*>(callsAgain), std::array<uint32_t, 2>{3, 0});
    EXPECT_EQ(state.result, 4);
    EXPECT_EQ(state.stackOff, 0);
    EXPECT_TRUE(state.keepsRegisters());
}

} // namespace
} // namespace velk::check
