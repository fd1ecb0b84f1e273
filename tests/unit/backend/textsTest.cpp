#include "backend/texts.h"

#include "support/failureLog.h"
#include "support/fakeBackend.h"

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>

namespace velk {
namespace {

using namespace std::string_view_literals;
using test::FakeBackend;

// A Backend that writes these bytes and gives that count, whatever is asked for.
void answerWith(FakeBackend& backend, int32_t count, std::string bytes)
{
    backend.on.RZGetString = [count, bytes](int32_t, char* buffer, int32_t) {
        std::memcpy(buffer, bytes.data(), bytes.size());
        return count;
    };
}

// Frees the string of a by-reference argument and puts another one there, as a Backend may.
void replaceString(char** variable, std::string_view bytes)
{
    SysFreeString(reinterpret_cast<BSTR>(*variable));
    *variable = reinterpret_cast<char*>(SysAllocStringByteLen(bytes.data(), static_cast<UINT>(bytes.size())));
}

TEST(getRZString, knownNumber_givesItsText)
{
    FakeBackend backend;
    backend.texts[426] = L"Stored Procedures";
    EXPECT_EQ(getRZString(426), L"Stored Procedures");
}

TEST(getRZString, anyNumber_handsOver1024NulsAndTheirCount)
{
    FakeBackend backend;
    int32_t number = 0;
    int32_t capacity = 0;
    uint32_t room = 0;
    bool blank = false;
    backend.on.RZGetString = [&](int32_t asked, char* buffer, int32_t given) {
        number = asked;
        capacity = given;
        room = test::roomOf(buffer);
        blank = std::all_of(buffer, buffer + room + 1, [](char byte) { return byte == '\0'; });
        return 0;
    };
    getRZString(-7);
    EXPECT_EQ(number, -7);
    EXPECT_EQ(capacity, 1024);
    EXPECT_EQ(room, 1024u);
    EXPECT_TRUE(blank);
}

TEST(getRZString, count5AndTwoCharacters_givesTheTwo)
{
    FakeBackend backend;
    answerWith(backend, 5, "ab");
    EXPECT_EQ(getRZString(1), L"ab");
}

TEST(getRZString, count5AndFiveCharacters_givesTheFive)
{
    FakeBackend backend;
    answerWith(backend, 5, "abcde");
    EXPECT_EQ(getRZString(1), L"abcde");
}

TEST(getRZString, count5AndNineCharacters_givesTheFirstFive)
{
    FakeBackend backend;
    answerWith(backend, 5, "abcdefghi");
    EXPECT_EQ(getRZString(1), L"abcde");
}

TEST(getRZString, nulExactlyAtTheCount_staysInTheText)
{
    FakeBackend backend;
    answerWith(backend, 5, "abcd");
    EXPECT_EQ(getRZString(1), L"abcd\0"sv);
}

TEST(getRZString, count1AndNothingWritten_isOneNul)
{
    FakeBackend backend;
    answerWith(backend, 1, "");
    EXPECT_EQ(getRZString(1), L"\0"sv);
}

TEST(getRZString, count0_isEmptyWhateverTheBufferHolds)
{
    FakeBackend backend;
    answerWith(backend, 0, "abc");
    EXPECT_EQ(getRZString(1), L"");
}

TEST(getRZString, negativeCount_isEmpty)
{
    FakeBackend backend;
    answerWith(backend, -1, "abc");
    EXPECT_EQ(getRZString(1), L"");
}

TEST(getRZString, fullBufferWithoutNul_givesAsManyAsCounted)
{
    FakeBackend backend;
    answerWith(backend, 1000, std::string(1024, 'x'));
    EXPECT_EQ(getRZString(1), std::wstring(1000, L'x'));
}

TEST(getRZString, countBeyondAFullBuffer_givesTheWholeBuffer)
{
    FakeBackend backend;
    answerWith(backend, 5000, std::string(1024, 'x'));
    EXPECT_EQ(getRZString(1), std::wstring(1024, L'x'));
}

TEST(getRZString, countBeyondTheBuffer_stillEndsAtANul)
{
    FakeBackend backend;
    answerWith(backend, 5000, "abc");
    EXPECT_EQ(getRZString(1), L"abc");
}

TEST(getRZString, sameNumberTwice_asksTwice)
{
    FakeBackend backend;
    getRZString(3);
    getRZString(3);
    EXPECT_EQ(backend.counts["RZGetString"], 2);
}

TEST(getRZStringP1, parameter_goesInAndIsPutIntoTheText)
{
    FakeBackend backend;
    backend.texts[652] = L"Drop %1?";
    std::wstring name = L"RAISE";
    EXPECT_EQ(getRZStringP1(652, name), L"Drop RAISE?");
    EXPECT_EQ(name, L"RAISE");
}

TEST(getRZStringP1, parameterReplacedByTheBackend_comesBackByItsByteLength)
{
    FakeBackend backend;
    backend.on.RZGetStringP1 = [](int32_t, char* buffer, int32_t, char** parameter) {
        replaceString(parameter, "longer\0tail"sv);
        buffer[0] = 'x';
        return 5;
    };
    std::wstring name = L"a";
    EXPECT_EQ(getRZStringP1(1, name), L"x");
    EXPECT_EQ(name, L"longer\0tail"sv);
}

TEST(getRZStringP1, parameterTakenAway_comesBackEmpty)
{
    FakeBackend backend;
    backend.on.RZGetStringP1 = [](int32_t, char*, int32_t, char** parameter) {
        SysFreeString(reinterpret_cast<BSTR>(std::exchange(*parameter, nullptr)));
        return 0;
    };
    std::wstring name = L"a";
    getRZStringP1(1, name);
    EXPECT_EQ(name, L"");
}

TEST(getRZStringP1, emptyParameter_isAZeroLengthStringNotNull)
{
    FakeBackend backend;
    uint32_t room = 77;
    backend.on.RZGetStringP1 = [&](int32_t, char*, int32_t, char** parameter) {
        room = test::roomOf(*parameter);
        return 0;
    };
    std::wstring name;
    getRZStringP1(1, name);
    EXPECT_EQ(room, 0u);
}

TEST(getRZStringP1, noText_stillBringsTheParameterBack)
{
    FakeBackend backend;
    backend.on.RZGetStringP1 = [](int32_t, char*, int32_t, char** parameter) {
        (*parameter)[0] = 'B';
        return 0;
    };
    std::wstring name = L"abc";
    EXPECT_EQ(getRZStringP1(1, name), L"");
    EXPECT_EQ(name, L"Bbc");
}

TEST(getRZStringP1, anyNumber_handsOverNumberRoomAndCapacity)
{
    FakeBackend backend;
    std::vector<int64_t> given;
    backend.on.RZGetStringP1 = [&](int32_t number, char* buffer, int32_t capacity, char**) {
        given = {number, test::roomOf(buffer), capacity};
        return 0;
    };
    std::wstring name = L"a";
    getRZStringP1(652, name);
    EXPECT_EQ(given, (std::vector<int64_t>{652, 1024, 1024}));
}

TEST(getRZStringP2, anyNumber_handsOverNumberRoomAndCapacity)
{
    FakeBackend backend;
    std::vector<int64_t> given;
    backend.on.RZGetStringP2 = [&](int32_t number, char* buffer, int32_t capacity, char**, char**) {
        given = {number, test::roomOf(buffer), capacity};
        return 0;
    };
    std::wstring name = L"a";
    getRZStringP2(669, name, name);
    EXPECT_EQ(given, (std::vector<int64_t>{669, 1024, 1024}));
}

TEST(getRZStringP2, countBelowWhatIsWritten_endsThere)
{
    FakeBackend backend;
    backend.on.RZGetStringP2 = [](int32_t, char* buffer, int32_t, char**, char**) {
        std::memcpy(buffer, "abcdef", 6);
        return 4;
    };
    std::wstring name;
    EXPECT_EQ(getRZStringP2(1, name, name), L"abcd");
}

TEST(getRZStringP2, twoParameters_goIntoTheirPlaces)
{
    FakeBackend backend;
    backend.texts[669] = L"%2 of %1";
    std::wstring whole = L"Orders";
    std::wstring part = L"Table";
    EXPECT_EQ(getRZStringP2(669, whole, part), L"Table of Orders");
}

TEST(getRZStringP2, bothParametersChanged_bothComeBack)
{
    FakeBackend backend;
    backend.on.RZGetStringP2 = [](int32_t, char*, int32_t, char** first, char** second) {
        replaceString(first, "one"sv);
        replaceString(second, "two"sv);
        return 0;
    };
    std::wstring first;
    std::wstring second = L"second";
    getRZStringP2(1, first, second);
    EXPECT_EQ(first, L"one");
    EXPECT_EQ(second, L"two");
}

} // namespace
} // namespace velk
