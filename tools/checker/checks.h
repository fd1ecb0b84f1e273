#pragma once

#include "checker/rules.h"

#include <optional>
#include <span>

namespace velk::check {

class Bench;

// How a rule is checked. Whatever a call does that holds for every call is found in passing (F5 to F10, R1 to R7).
struct CheckRow {
    Rule rule;
    void (*check)(Bench& bench);
    std::optional<Rule> blamed{}; // for faults, hangs and what is written over, in place of F7 to F9, R1, R2 and R5
};

// Every rule that binds the library, in the order in which they are checked: the levels one after the other.
std::span<const CheckRow> checkRows() noexcept;

// By level.
// clang-format off
void checkFile(Bench& bench);
void checkLoading(Bench& bench);
void checkExports(Bench& bench);
void checkPlainNames(Bench& bench);
void checkCallsWithoutProject(Bench& bench);

void checkBeginning(Bench& bench);
void checkSecondSession(Bench& bench);
void checkTextsWithoutSession(Bench& bench);
void checkLoadingAgain(Bench& bench);

void checkTextIsThere(Bench& bench);
void checkTextLength(Bench& bench);
void checkTextAnswer(Bench& bench);
void checkTextCodePage(Bench& bench);
void checkParameters(Bench& bench);
void checkUnknownNumbers(Bench& bench);
void checkFontSize(Bench& bench);
void checkParameterVariables(Bench& bench);

void checkAllRecords(Bench& bench);
void checkSameTwice(Bench& bench);

void checkEmptyQueue(Bench& bench);
void checkMoreFlag(Bench& bench);
void checkInitComplete(Bench& bench);
void checkProjectAdded(Bench& bench);
void checkParentsFirst(Bench& bench);
void checkProjectNamed(Bench& bench);
void checkThingsFetched(Bench& bench);
void checkPayloadsFetched(Bench& bench);
void checkContentsTold(Bench& bench);
void checkKindsFit(Bench& bench);
void checkProjectRemoved(Bench& bench);
void checkConnectionTold(Bench& bench);
void checkQueueEnds(Bench& bench);
void checkCleanBeginning(Bench& bench);
void checkButtonFields(Bench& bench);
void checkButtonWords(Bench& bench);

void checkEnumerable(Bench& bench);
void checkEnumerationEnds(Bench& bench);
void checkEndStays(Bench& bench);
void checkStartsOver(Bench& bench);
void checkSideBySide(Bench& bench);
void checkEndedEarly(Bench& bench);
void checkSameFetched(Bench& bench);
void checkNoZeroHandle(Bench& bench);
void checkHandlesDiffer(Bench& bench);
void checkOwnHandle(Bench& bench);

void checkAsksForRoom(Bench& bench);
void checkRoomSuffices(Bench& bench);
void checkRoomBounded(Bench& bench);
void checkSecondAttempt(Bench& bench);

void checkBeforeSession(Bench& bench);
void checkAfterSession(Bench& bench);
void checkSecondBeginning(Bench& bench);
void checkSecondEnd(Bench& bench);
void checkDeadHandles(Bench& bench);
void checkDeadHandleAnswers(Bench& bench);
void checkDeadEnumerations(Bench& bench);
void checkStrings(Bench& bench);
void checkSmallBuffers(Bench& bench);
void checkUnknownCodes(Bench& bench);
void checkUnknownActionAnswers(Bench& bench);
void checkAnswerToNothing(Bench& bench);
void checkBrokenProjects(Bench& bench);
void checkQuestionIgnored(Bench& bench);

void checkHandleGrowth(Bench& bench);
void checkMemoryGrowth(Bench& bench);
void checkThreadGrowth(Bench& bench);
void checkModuleGrowth(Bench& bench);
void checkTimes(Bench& bench);

void checkRandomWalk(Bench& bench);
void checkReentry(Bench& bench);
void checkCutCharacters(Bench& bench);
// clang-format on

} // namespace velk::check
