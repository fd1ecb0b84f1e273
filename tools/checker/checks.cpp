#include "checker/checks.h"

#include "checker/bench.h"

namespace velk::check {
namespace {

// A rule that is looked at in every call: the check that makes these calls has been made. Alone it makes them itself.
template <void (*maker)(Bench& bench)>
void seenInPassing(Bench& bench)
{
    if (bench.isDone(maker))
        return;
    if (bench.asked().ruleCount > 1)
        throw NotChecked{"the calls in which it is looked at were not all made"};
    maker(bench);
}

// clang-format off
constexpr CheckRow rows[] = {
    {Rule::F1,  checkFile},
    {Rule::F3,  checkExports},
    {Rule::F4,  checkPlainNames},
    {Rule::F2,  checkLoading, Rule::F2},
    {Rule::F5,  checkCallsWithoutProject},
    {Rule::F6,  seenInPassing<checkCallsWithoutProject>},
    {Rule::F7,  seenInPassing<checkCallsWithoutProject>},
    {Rule::F8,  seenInPassing<checkCallsWithoutProject>},
    {Rule::F9,  seenInPassing<checkCallsWithoutProject>},

    {Rule::S1,  checkBeginning},
    {Rule::S2,  checkSecondSession},
    {Rule::S3,  checkTextsWithoutSession},
    {Rule::S4,  checkLoadingAgain, Rule::S4},
    {Rule::F10, seenInPassing<checkBeginning>},

    {Rule::T1,  checkTextIsThere},
    {Rule::T2,  checkTextLength},
    {Rule::T3,  checkTextAnswer},
    {Rule::T4,  checkTextCodePage},
    {Rule::T5,  checkParameters},
    {Rule::T6,  checkUnknownNumbers},
    {Rule::T7,  checkFontSize},
    {Rule::T8,  checkParameterVariables},

    {Rule::R1,  checkAllRecords},
    {Rule::R2,  seenInPassing<checkAllRecords>},
    {Rule::R3,  seenInPassing<checkAllRecords>},
    {Rule::R4,  seenInPassing<checkAllRecords>},
    {Rule::R5,  seenInPassing<checkAllRecords>},
    {Rule::R6,  seenInPassing<checkAllRecords>},
    {Rule::R7,  seenInPassing<checkAllRecords>},
    {Rule::R8,  checkSameTwice},

    {Rule::N1,  checkEmptyQueue},
    {Rule::N2,  checkMoreFlag},
    {Rule::N3,  checkInitComplete},
    {Rule::N4,  checkProjectAdded},
    {Rule::N5,  checkParentsFirst},
    {Rule::N6,  checkProjectNamed},
    {Rule::N7,  checkThingsFetched},
    {Rule::N8,  checkPayloadsFetched},
    {Rule::N9,  checkContentsTold},
    {Rule::N10, checkKindsFit},
    {Rule::N11, checkProjectRemoved},
    {Rule::N12, checkConnectionTold},
    {Rule::N13, checkQueueEnds},
    {Rule::P1,  checkButtonFields},
    {Rule::P2,  checkButtonWords},
    {Rule::S5,  checkCleanBeginning},

    {Rule::E4,  checkStartsOver}, // before anything else enumerates
    {Rule::E1,  checkEnumerable},
    {Rule::E2,  checkEnumerationEnds},
    {Rule::E3,  checkEndStays},
    {Rule::E5,  checkSideBySide},
    {Rule::E6,  checkEndedEarly},
    {Rule::E7,  checkSameFetched},
    {Rule::H1,  checkNoZeroHandle},
    {Rule::H2,  checkHandlesDiffer},
    {Rule::H3,  checkOwnHandle},

    {Rule::L1,  checkAsksForRoom},
    {Rule::L2,  checkRoomSuffices},
    {Rule::L3,  checkRoomBounded},
    {Rule::L4,  checkSecondAttempt},

    {Rule::M1,  checkBeforeSession, Rule::M1}, // the first session of its process follows
    {Rule::M4,  checkSecondEnd, Rule::M4},
    {Rule::M2,  checkAfterSession, Rule::M2},
    {Rule::M3,  checkSecondBeginning, Rule::M3},
    {Rule::M5,  checkDeadHandles, Rule::M5},
    {Rule::H4,  checkDeadHandleAnswers, Rule::M5},
    {Rule::M6,  checkDeadEnumerations, Rule::M6},
    {Rule::M7,  checkStrings, Rule::M7},
    {Rule::M8,  checkSmallBuffers, Rule::M8},
    {Rule::M9,  checkUnknownCodes, Rule::M9},
    {Rule::A1,  checkUnknownActionAnswers, Rule::M9},
    {Rule::M10, checkAnswerToNothing, Rule::M10},
    {Rule::M11, checkBrokenProjects, Rule::M11},
    {Rule::P3,  checkQuestionIgnored, Rule::P3},

    {Rule::G1,  checkHandleGrowth},
    {Rule::G2,  checkMemoryGrowth},
    {Rule::G3,  checkThreadGrowth},
    {Rule::G4,  checkModuleGrowth},
    {Rule::G5,  checkTimes},

    {Rule::C1,  checkRandomWalk, Rule::C1},
    {Rule::C2,  checkReentry, Rule::C2},
    {Rule::C3,  checkCutCharacters},
};
// clang-format on

} // namespace

std::span<const CheckRow> checkRows() noexcept
{
    return rows;
}

} // namespace velk::check
