#include "backend/fetch.h"

#include "support/failureLog.h"
#include "support/fakeBackend.h"

#include <cstring>
#include <gmock/gmock.h>
#include <limits>

namespace velk {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;
using test::FailureLog;
using test::FakeBackend;
using testing::ElementsAre;
namespace wire = devkit::wire;

constexpr int32_t longest = std::numeric_limits<int32_t>::max();

TEST(fetchText, shortText_isAskedForOnce)
{
    FakeBackend backend;
    backend.prompts[9] = {.strText = L"Built.", .lTextType = 3, .strButtons = L"OK"};
    trzText record;
    EXPECT_EQ(fetchText(9, record), 1);
    EXPECT_EQ(record.strText, L"Built.");
    EXPECT_EQ(record.lTextSz, 6);
    EXPECT_EQ(record.lTextType, 3);
    EXPECT_EQ(record.strButtons, L"OK");
    EXPECT_THAT(backend.calls, ElementsAre("RZGetText(9)"));
}

TEST(fetchText, needs10000_asksAgainWith10001CharactersAndCutsAtTheNul)
{
    FakeBackend backend;
    std::vector<uint32_t> rooms;
    backend.on.RZGetText = [&](int32_t, wire::trzText* record) {
        rooms.push_back(test::roomOf(record->strText));
        test::writeCounted(record->strText, std::wstring(10000, L'x'));
        record->lTextSz = 10000;
        return 1;
    };
    trzText record;
    EXPECT_EQ(fetchText(9, record), 1);
    EXPECT_THAT(rooms, ElementsAre(4096u, 10001u));
    EXPECT_EQ(record.strText, std::wstring(10000, L'x'));
}

TEST(fetchText, secondAttempt_findsItsNewTextBlankAndTheNeededSizeUntouched)
{
    FakeBackend backend;
    std::vector<int32_t> sizes;
    std::string second;
    backend.on.RZGetText = [&](int32_t, wire::trzText* record) {
        sizes.push_back(std::exchange(record->lTextSz, 5000));
        second.assign(record->strText, test::roomOf(record->strText) + 1);
        std::memset(record->strText, 'x', 4096);
        return 1;
    };
    trzText record;
    fetchText(9, record);
    EXPECT_THAT(sizes, ElementsAre(4096, 5000));
    EXPECT_EQ(second, std::string(5002, '\0'));
}

TEST(fetchText, secondAttempt_findsTheOtherFieldsAsTheFirstLeftThem)
{
    FakeBackend backend;
    std::vector<std::string> buttons;
    std::vector<int32_t> types;
    backend.on.RZGetText = [&](int32_t, wire::trzText* record) {
        buttons.emplace_back(record->strButtons, test::roomOf(record->strButtons));
        types.push_back(std::exchange(record->lTextType, 2));
        std::memcpy(record->strButtons, "YesNo\0rest", 10);
        record->lTextSz = 4097;
        return 1;
    };
    trzText record;
    fetchText(9, record);
    EXPECT_EQ(buttons.at(1), "YesNo\0rest"s + std::string(246, '\0'));
    EXPECT_THAT(types, ElementsAre(0, 2));
    EXPECT_EQ(record.strButtons, L"YesNo");
}

TEST(fetchText, secondAttempt_givesItsStatusForTheFirst)
{
    FakeBackend backend;
    int32_t calls = 0;
    backend.on.RZGetText = [&](int32_t, wire::trzText* record) {
        record->lTextSz = 4097;
        return ++calls == 1 ? 5 : 0;
    };
    trzText record;
    EXPECT_EQ(fetchText(9, record), 0);
}

TEST(fetchText, firstFailsButWantsMore_isAskedAgain)
{
    FakeBackend backend;
    int32_t calls = 0;
    backend.on.RZGetText = [&](int32_t, wire::trzText* record) {
        record->lTextSz = 4097;
        return ++calls == 1 ? 0 : 7;
    };
    trzText record;
    EXPECT_EQ(fetchText(9, record), 7);
}

TEST(fetchText, stillTooShortAfterTheSecond_isNotAskedAThirdTime)
{
    FakeBackend backend;
    int32_t calls = 0;
    backend.on.RZGetText = [&](int32_t, wire::trzText* record) {
        record->lTextSz = 5000 * ++calls;
        return 1;
    };
    trzText record;
    fetchText(9, record);
    EXPECT_EQ(calls, 2);
    EXPECT_EQ(record.lTextSz, 10000);
}

TEST(fetchText, needsExactlyTheCapacity_isAskedOnce)
{
    FakeBackend backend;
    int32_t calls = 0;
    backend.on.RZGetText = [&](int32_t, wire::trzText* record) {
        record->lTextSz = 4096;
        return ++calls;
    };
    trzText record;
    EXPECT_EQ(fetchText(9, record), 1);
}

TEST(fetchText, negativeSize_isAskedOnce)
{
    FakeBackend backend;
    int32_t calls = 0;
    backend.on.RZGetText = [&](int32_t, wire::trzText* record) {
        record->lTextSz = -1;
        return ++calls;
    };
    trzText record;
    EXPECT_EQ(fetchText(9, record), 1);
}

TEST(fetchText, sizeThatOverflows_givesTheFirstStatusAndLeavesTheRecord)
{
    FakeBackend backend;
    FailureLog failures;
    backend.on.RZGetText = [&](int32_t, wire::trzText* record) {
        test::writeCounted(record->strText, L"begin");
        test::writeCounted(record->strButtons, L"OK");
        record->lTextSz = longest;
        return 3;
    };
    trzText record;
    EXPECT_EQ(fetchText(9, record), 3);
    EXPECT_EQ(record.strText, L"begin" + std::wstring(4091, L'\0'));
    EXPECT_EQ(record.strButtons, L"OK" + std::wstring(254, L'\0'));
    EXPECT_EQ(record.lTextSz, longest);
    EXPECT_THAT(failures.lines, ElementsAre(L"fetchText: 6"));
}

TEST(fetchText, moreThanMemoryHolds_givesTheFirstStatus)
{
    FakeBackend backend;
    FailureLog failures;
    backend.on.RZGetText = [&](int32_t, wire::trzText* record) {
        record->lTextSz = longest - 1;
        return 3;
    };
    trzText record;
    EXPECT_EQ(fetchText(9, record), 3);
    EXPECT_EQ(failures.lines.size(), 1u);
}

TEST(fetchText, moreThanTheLimit_givesTheFirstStatusAndSaysHowMuch)
{
    FakeBackend backend;
    FailureLog failures;
    backend.on.RZGetText = [](int32_t, wire::trzText* record) {
        record->lTextSz = 16 * 1024 * 1024 + 1;
        return 3;
    };
    trzText record;
    EXPECT_EQ(fetchText(9, record), 3);
    EXPECT_THAT(failures.descriptions, ElementsAre(L"Out of memory: the tool asks for room for 16777217 characters"));
}

TEST(fetchText, asMuchAsTheLimit_isGivenRoom)
{
    FakeBackend backend;
    std::vector<uint32_t> rooms;
    backend.on.RZGetText = [&](int32_t, wire::trzText* record) {
        rooms.push_back(test::roomOf(record->strText));
        record->lTextSz = 16 * 1024 * 1024;
        return 3;
    };
    trzText record;
    fetchText(9, record);
    EXPECT_THAT(rooms, ElementsAre(4096u, 16u * 1024 * 1024 + 1));
}

TEST(fetchText, unknownHandle_gives0AndEmptyTexts)
{
    FakeBackend backend;
    trzText record{.strText = L"old", .lTextSz = 1, .lTextType = 8, .strButtons = L"old"};
    EXPECT_EQ(fetchText(9, record), 0);
    EXPECT_EQ(record.strText, L"");
    EXPECT_EQ(record.strButtons, L"");
    EXPECT_EQ(record.lTextSz, 4096);
    EXPECT_EQ(record.lTextType, 8);
}

TEST(fetchSQLText, allFields_comeBack)
{
    FakeBackend backend;
    backend.sqlTexts[4] = {.strVSFile = L"a.sql",
                           .lSelFromLine = 1,
                           .lSelFromColumn = 2,
                           .lSelToLine = 3,
                           .lSelToColumn = 4,
                           .strText = L"select 1"};
    trzSQLText record;
    EXPECT_EQ(fetchSQLText(4, record), 1);
    EXPECT_EQ(record.strVSFile, L"a.sql");
    EXPECT_EQ(record.lSelFromLine, 1);
    EXPECT_EQ(record.lSelFromColumn, 2);
    EXPECT_EQ(record.lSelToLine, 3);
    EXPECT_EQ(record.lSelToColumn, 4);
    EXPECT_EQ(record.strText, L"select 1");
}

TEST(fetchSQLText, project_goesInAsItStandsAndIsNotCut)
{
    FakeBackend backend;
    std::string project;
    backend.on.RZGetSQLText = [&](int32_t, wire::trzSQLText* record) {
        project.assign(record->strVSProject, test::roomOf(record->strVSProject));
        record->strVSProject[0] = 'W';
        return 1;
    };
    trzSQLText record{.strVSProject = L"web"};
    fetchSQLText(4, record);
    EXPECT_EQ(project, "web");
    EXPECT_EQ(record.strVSProject, L"Web");
}

TEST(fetchSQLText, emptyProject_isAZeroLengthString)
{
    FakeBackend backend;
    uint32_t room = 77;
    char end = 'x';
    backend.on.RZGetSQLText = [&](int32_t, wire::trzSQLText* record) {
        room = test::roomOf(record->strVSProject);
        end = *record->strVSProject;
        return 1;
    };
    trzSQLText record;
    fetchSQLText(4, record);
    EXPECT_EQ(room, 0u);
    EXPECT_EQ(end, '\0');
}

TEST(fetchSQLText, longText_isFetchedWhole)
{
    FakeBackend backend;
    backend.sqlTexts[4] = {.strVSFile = L"a.sql", .strText = std::wstring(9000, L's')};
    trzSQLText record{.strVSProject = L"web"};
    EXPECT_EQ(fetchSQLText(4, record), 1);
    EXPECT_EQ(record.strText, std::wstring(9000, L's'));
    EXPECT_EQ(record.strVSFile, L"a.sql");
    EXPECT_EQ(record.strVSProject, L"web");
    EXPECT_THAT(backend.calls, ElementsAre("RZGetSQLText(4)", "RZGetSQLText(4)"));
}

TEST(fetchADOText, otherTexts_areStillCutAfterTheSecondAttempt)
{
    FakeBackend backend;
    backend.adoTexts[4] = {.strVSProject = L"web", .strVSFile = L"a.asp", .strText = std::wstring(70000, L'a')};
    trzADOText record;
    EXPECT_EQ(fetchADOText(4, record), 1);
    EXPECT_EQ(record.strVSProject, L"web");
    EXPECT_EQ(record.strVSFile, L"a.asp");
    EXPECT_EQ(record.lTextSz, 70000);
}

TEST(fetchADOText, textBelow65536_isAskedForOnce)
{
    FakeBackend backend;
    backend.adoTexts[4] = {.strVSProject = L"web", .strVSFile = L"a.asp", .strText = std::wstring(65535, L'a')};
    trzADOText record;
    EXPECT_EQ(fetchADOText(4, record), 1);
    EXPECT_EQ(record.strText.size(), 65535u);
    EXPECT_EQ(record.strVSProject, L"web");
    EXPECT_EQ(record.strVSFile, L"a.asp");
    EXPECT_EQ(backend.calls.size(), 1u);
}

TEST(fetchADOText, textOf65537_isFetchedWithRoomForItsNul)
{
    FakeBackend backend;
    backend.adoTexts[4] = {.strText = std::wstring(65537, L'a')};
    trzADOText record;
    EXPECT_EQ(fetchADOText(4, record), 1);
    EXPECT_EQ(record.strText.size(), 65537u);
    EXPECT_EQ(backend.calls.size(), 2u);
}

TEST(fetchProcedure, untouchedFields_comeBackEmpty)
{
    FakeBackend backend;
    backend.on.RZProcedureGet = [](int32_t, wire::trzProcedure*) { return 1; };
    trzProcedure record{.strSchema = L"old", .strName = L"old"};
    EXPECT_EQ(fetchProcedure(101, record), 1);
    EXPECT_EQ(record.strSchema, L"");
    EXPECT_EQ(record.strName, L"");
}

TEST(fetchProcedure, nameAsLongAsItsRoomWithoutNul_isEmptyNotCut)
{
    FakeBackend backend;
    backend.procedures[101] = {.strSchema = std::wstring(255, L's'), .strName = std::wstring(1024, L'n')};
    trzProcedure record;
    fetchProcedure(101, record);
    EXPECT_EQ(record.strName, L"");
    EXPECT_EQ(record.strSchema, std::wstring(255, L's'));
}

TEST(fetchProcedure, statusOfTheBackend_isPassedOnUnchanged)
{
    FakeBackend backend;
    backend.procedures[101] = {};
    backend.answers["RZProcedureGet"] = -3;
    trzProcedure record;
    EXPECT_EQ(fetchProcedure(101, record), -3);
}

TEST(fetchProcedure, statusBeyond16Bits_isPassedOnWhole)
{
    FakeBackend backend;
    backend.procedures[101] = {};
    backend.answers["RZProcedureGet"] = 0x10000;
    trzProcedure record;
    EXPECT_EQ(fetchProcedure(101, record), 0x10000);
}

TEST(fetchProcedure, status0_stillBringsBackWhatWasWritten)
{
    FakeBackend backend;
    backend.on.RZProcedureGet = [](int32_t, wire::trzProcedure* record) {
        test::writeCounted(record->strName, L"RAISE");
        return 0;
    };
    trzProcedure record;
    EXPECT_EQ(fetchProcedure(101, record), 0);
    EXPECT_EQ(record.strName, L"RAISE");
}

TEST(nextProcedure, folderOfTwo_givesBothAndThen0)
{
    FakeBackend backend;
    backend.procedures = {{101, {.strName = L"A"}}, {102, {.strName = L"B"}}};
    backend.enumerations[1] = {102, 101};
    trzProcedure record;
    EXPECT_EQ(nextProcedure(1, record), 1);
    EXPECT_EQ(record.strName, L"B");
    EXPECT_EQ(nextProcedure(1, record), 1);
    EXPECT_EQ(record.lHdl, 101);
    EXPECT_EQ(nextProcedure(1, record), 0);
}

} // namespace
} // namespace velk
