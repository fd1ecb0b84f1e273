// A Backend that writes past the end of what it was given, and texts that stand at the very end of readable memory.
#include "backend/calls.h"
#include "backend/fetch.h"
#include "backend/texts.h"
#include "support/badManners.h"
#include "support/failureLog.h"
#include "support/fakeBackend.h"
#include "support/guardedMemory.h"

#include <algorithm>
#include <cstring>
#include <gmock/gmock.h>

namespace velk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
namespace wire = devkit::wire;

class OverrunTest : public testing::Test {
protected:
    OverrunTest() { RZInitialize(3, L"a.rzv", L""); }
    // So many bytes more than there is room for, the last of them a NUL.
    static void overrun(char* counted, size_t excess)
    {
        const size_t room = test::roomOf(counted);
        std::memset(counted, 'x', room + excess);
        counted[room + excess] = '\0';
    }
    std::wstring reported(const wchar_t* what) { return L"Internal error: " + std::wstring(what); }

    test::FakeBackend backend;
    test::FailureLog failures;
};

TEST_F(OverrunTest, oneByteBehindAText_isReportedWithFunctionAndField)
{
    backend.on.RZProcedureGet = [](int32_t, wire::trzProcedure* record) {
        overrun(record->strName, 1);
        return 1;
    };
    trzProcedure record;
    EXPECT_EQ(fetchProcedure(101, record), 1);
    EXPECT_EQ(record.strName, L"");
    EXPECT_THAT(failures.descriptions,
                ElementsAre(reported(L"RZProcedureGet in velkvsadd.dll wrote past the end of strName")));
}

TEST_F(OverrunTest, fullTextWithItsNulBehindIt_isNone)
{
    backend.on.RZProcedureGet = [](int32_t, wire::trzProcedure* record) {
        overrun(record->strName, 0);
        return 1;
    };
    trzProcedure record;
    EXPECT_EQ(fetchProcedure(101, record), 1);
    EXPECT_THAT(failures.descriptions, IsEmpty());
}

TEST_F(OverrunTest, textThatHasNoRoomAtAll_isReported)
{
    backend.on.RZGetSQLText = [](int32_t, wire::trzSQLText* record) {
        record->strVSProject[0] = 'x';
        return 1;
    };
    trzSQLText record;
    fetchSQLText(9, record);
    EXPECT_THAT(failures.descriptions,
                ElementsAre(reported(L"RZGetSQLText in velkvsadd.dll wrote past the end of strVSProject")));
}

TEST_F(OverrunTest, secondAttemptOfALongText_isWatchedToo)
{
    int calls = 0;
    backend.on.RZGetText = [&](int32_t, wire::trzText* record) {
        record->lTextSz = 5000;
        if (++calls == 2)
            overrun(record->strText, 1);
        return 1;
    };
    trzText record;
    fetchText(9, record);
    EXPECT_THAT(failures.descriptions,
                ElementsAre(reported(L"RZGetText in velkvsadd.dll wrote past the end of strText")));
}

TEST_F(OverrunTest, twoHundredBytesBehindTheLastText_spoilNothing)
{
    backend.on.RZProcedureGet = [](int32_t, wire::trzProcedure* record) {
        overrun(record->strFileName, 200);
        return 1;
    };
    trzProcedure record;
    fetchProcedure(101, record);
    EXPECT_TRUE(HeapValidate(GetProcessHeap(), 0, nullptr));
    EXPECT_EQ(failures.descriptions.size(), 1u);
}

TEST_F(OverrunTest, twoHundredBytesBehindALongText_spoilNothing)
{
    backend.on.RZGetADOText = [](int32_t, wire::trzADOText* record) {
        overrun(std::max({record->strVSProject, record->strVSFile, record->strText}), 200);
        return 1;
    };
    trzADOText record;
    fetchADOText(9, record);
    EXPECT_TRUE(HeapValidate(GetProcessHeap(), 0, nullptr));
    EXPECT_EQ(failures.descriptions.size(), 1u);
}

TEST_F(OverrunTest, messageText_isReported)
{
    backend.on.RZGetString = [](int32_t, char* buffer, int32_t) {
        overrun(buffer, 1);
        return 1024;
    };
    EXPECT_EQ(getRZString(657), std::wstring(1024, L'x'));
    EXPECT_THAT(failures.descriptions,
                ElementsAre(reported(L"RZGetString in velkvsadd.dll wrote past the end of the text")));
}

TEST_F(OverrunTest, argument_isReported)
{
    backend.on.RZProjectDoAccess = [](char* first, char*, int32_t) {
        overrun(first, 1);
        return 1;
    };
    EXPECT_EQ(RZProjectDoAccess(L"C:\\rz", L"a.rzv", 2), 1);
    EXPECT_THAT(failures.descriptions,
                ElementsAre(reported(L"RZProjectDoAccess in velkvsadd.dll wrote past the end of a text")));
}

TEST_F(OverrunTest, countOfAMessageText_mayBeAnything)
{
    int32_t count = 0;
    backend.on.RZGetString = [&](int32_t, char* buffer, int32_t) {
        std::memset(buffer, 'x', 1024); // no NUL anywhere
        return count;
    };
    EXPECT_EQ(getRZString(1), L"");
    count = INT32_MIN;
    EXPECT_EQ(getRZString(1), L"");
    count = 1025;
    EXPECT_EQ(getRZString(1), std::wstring(1024, L'x'));
    count = INT32_MAX;
    EXPECT_EQ(getRZString(1), std::wstring(1024, L'x'));
}

// --- memory that ends where the text does ---

TEST(guardedText, withoutNul_isReadToItsEndAndNoFurther)
{
    const test::GuardedMemory memory("abcdefg");
    std::wstring text = L"before";
    EXPECT_FALSE(ansi::readBeforeNul(text, memory.bytes()));
    EXPECT_EQ(ansi::wideOf(memory.bytes()), L"abcdefg");
}

TEST(guardedText, nulAsItsLastByte_isFound)
{
    const test::GuardedMemory memory(std::string_view("abcdefghijk\0", 12));
    std::wstring text;
    EXPECT_TRUE(ansi::readBeforeNul(text, memory.bytes()));
    EXPECT_EQ(text, L"abcdefghijk");
}

TEST(guardedText, characterBeyondAsciiAtItsEnd_isReadAndNoFurther)
{
    const test::GuardedMemory memory("abcde\x81");
    std::wstring text;
    EXPECT_FALSE(ansi::readBeforeNul(text, memory.bytes()));
    EXPECT_EQ(ansi::wideOf(memory.bytes()).substr(0, 5), L"abcde");
}

TEST(guardedText, room_isFilledAndNoFurther)
{
    const test::GuardedMemory memory("       ");
    ansi::write(L"abcdefg", memory.bytes(), ansi::processCodePage);
    EXPECT_EQ(std::string(memory.bytes().data(), 7), "abcdefg");
}

} // namespace
} // namespace velk
