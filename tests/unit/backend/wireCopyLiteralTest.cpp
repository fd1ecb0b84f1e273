// The quick way over the boundary gives what the literal one gives, in every code page and for every content.
#include "backend/wire_copy.h"

#include "devkit/contract/wire.h"
#include "literalBoundary.h"
#include "support/fakeBackend.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <gmock/gmock.h>
#include <random>

namespace velk {
namespace {

using namespace std::string_literals;
namespace wire = devkit::wire;
namespace literal = test::literal;

constexpr unsigned seed = 20240229;
constexpr int rounds = 400;

// What a Backend might write into a text of some room, as bytes (fewer than the room leave the rest alone).
class Contents {
public:
    explicit Contents(unsigned number) : m_random(number) {}

    std::string next(size_t room)
    {
        switch (below(8)) {
        case 0:
            return {};
        case 1:
            return some(below(12), 'a', 'z') + '\0' + some(below(5), 'A', 'Z');
        case 2:
            return some(room, 1, 255);
        case 3:
            return some(room, 0, 255);
        case 4:
            return some(room, 0x81, 0x9f);
        case 5:
            return some(below(room), 0x81, 0xfc) + '\0' + some(1, 0x40, 0x7e) + '\0';
        case 6:
            return some(room - 1, 0x20, 0x7e) + '\x83';
        default:
            return leadBeforeNul(room);
        }
    }
    std::wstring nextWide()
    {
        std::wstring text(below(40), L'\0');
        std::generate(text.begin(), text.end(), [this] {
            static constexpr wchar_t some[] = L"aZ \x00e9\x20ac\x65e5\x672c\xff71\x0416";
            return some[below(std::size(some))]; // its NUL among them
        });
        return text;
    }
    size_t below(size_t limit) { return std::uniform_int_distribution<size_t>(0, limit - 1)(m_random); }

private:
    std::string some(size_t length, int lowest, int highest)
    {
        std::uniform_int_distribution<int> bytes(lowest, highest);
        std::string text(length, '\0');
        std::generate(text.begin(), text.end(), [&] { return static_cast<char>(bytes(m_random)); });
        return text;
    }
    std::string leadBeforeNul(size_t room)
    {
        std::string text;
        while (text.size() + 8 < room && below(6))
            text += "ab\x83\0"s + some(1, 0x20, 0xff);
        return text + (below(2) ? "\0"s : ""s);
    }

    std::mt19937 m_random;
};

auto writing(const std::string& bytes)
{
    return [bytes](char* target) { std::memcpy(target, bytes.data(), bytes.size()); };
}

class boundary : public testing::TestWithParam<UINT> {};

TEST_P(boundary, randomProcedures_areReadAsTheLiteralWayReadsThem)
{
    using Text = std::pair<char * wire::trzProcedure::*, std::wstring trzProcedure::*>;
    const std::pair<Text, size_t> texts[] = {
        {{&wire::trzProcedure::strSchema, &trzProcedure::strSchema}, 256},
        {{&wire::trzProcedure::strName, &trzProcedure::strName}, 1024},
        {{&wire::trzProcedure::strSpecific, &trzProcedure::strSpecific}, 1024},
        {{&wire::trzProcedure::strParameters, &trzProcedure::strParameters}, 1024},
        {{&wire::trzProcedure::strLanguage, &trzProcedure::strLanguage}, 256},
        {{&wire::trzProcedure::strSQLPackage, &trzProcedure::strSQLPackage}, 256},
        {{&wire::trzProcedure::strComment, &trzProcedure::strComment}, 256},
        {{&wire::trzProcedure::strFileName, &trzProcedure::strFileName}, 1024},
    };
    Contents contents(seed);
    for (int round = 0; round < rounds; ++round) {
        SCOPED_TRACE("seed " + std::to_string(seed) + ", round " + std::to_string(round));
        trzProcedure record{.strSchema = contents.nextWide(), .strComment = contents.nextWide()};
        WireCopy<trzProcedure> copy(record, Fill::preset, GetParam());
        std::vector<std::wstring> expected;
        for (const auto& [text, room] : texts) {
            const auto write = writing(contents.next(room));
            write(static_cast<wire::trzProcedure*>(copy.address())->*text.first);
            expected.push_back(literal::output(room, GetParam(), write));
        }
        copy.readBack(record);
        for (size_t index = 0; index < std::size(texts); ++index)
            ASSERT_EQ(record.*texts[index].first.second, expected[index]) << "text " << index;
    }
}

TEST_P(boundary, randomSqlTexts_takeTheirProjectBothWaysAsTheLiteralWayDoes)
{
    Contents contents(seed + 1);
    for (int round = 0; round < rounds; ++round) {
        SCOPED_TRACE("seed " + std::to_string(seed + 1) + ", round " + std::to_string(round));
        trzSQLText record{.strVSProject = contents.nextWide()};
        const std::wstring expected = literal::thereAndBack(record.strVSProject, GetParam(), [](char*) {});
        const auto write = writing(contents.next(4096));
        WireCopy<trzSQLText> copy(record, Fill::preset, GetParam());
        write(static_cast<wire::trzSQLText*>(copy.address())->strText);
        copy.readBack(record);
        ASSERT_EQ(record.strVSProject, expected);
        ASSERT_EQ(record.strText, literal::output(4096, GetParam(), write));
        ASSERT_EQ(record.strVSFile, L"");
    }
}

TEST_P(boundary, randomTexts_goInAsTheyStandAndComeBackWhole)
{
    Contents contents(seed + 2);
    for (int round = 0; round < rounds; ++round) {
        SCOPED_TRACE("seed " + std::to_string(seed + 2) + ", round " + std::to_string(round));
        trzText record{.strText = contents.nextWide(), .lTextSz = round, .strButtons = contents.nextWide()};
        const trzText before = record;
        WireCopy<trzText> copy(record, Fill::asItStands, GetParam());
        copy.readBack(record, Texts::whole);
        ASSERT_EQ(record.strText, literal::thereAndBack(before.strText, GetParam(), [](char*) {}));
        ASSERT_EQ(record.strButtons, literal::thereAndBack(before.strButtons, GetParam(), [](char*) {}));
        ASSERT_EQ(record.lTextSz, round);
    }
}

std::string nameOfCodePage(const testing::TestParamInfo<UINT>& info)
{
    return info.param == CP_ACP ? "processCodePage" : "codePage" + std::to_string(info.param);
}

TEST_P(boundary, plainCharacters_areThemselvesInEveryCodePage)
{
    std::string bytes;
    for (char byte = 1; byte > 0; byte = static_cast<char>(byte + 1))
        bytes += byte;
    wchar_t wide[128] = L"";
    ASSERT_EQ(MultiByteToWideChar(GetParam(), 0, bytes.data(), 127, wide, 128), 127);
    EXPECT_EQ(std::wstring(wide, 127), std::wstring(bytes.begin(), bytes.end()));
}

INSTANTIATE_TEST_SUITE_P(codePages, boundary,
                         testing::Values(CP_ACP, 1252, 874, 932, 936, 949, 950, 1250, 1251, 1253, 1254, 1255, 1256,
                                         1257, 1258, CP_UTF8),
                         nameOfCodePage);

// The wide text before the NUL of these bytes, "-" when there is none; checked against the literal conversion.
std::wstring beforeNul(const std::string& bytes, UINT codePage)
{
    std::wstring text = L"what stood there before";
    const bool found = ansi::readBeforeNul(text, bytes, codePage);
    EXPECT_EQ(text, literal::output(bytes.size(), codePage, writing(bytes)));
    return found ? text : L"-";
}

TEST(readBeforeNul, emptyBytes_haveNone)
{
    EXPECT_EQ(beforeNul({}, 1252), L"-");
}

TEST(readBeforeNul, fullWithoutNul_hasNone)
{
    EXPECT_EQ(beforeNul("abcd", 1252), L"-");
}

TEST(readBeforeNul, doubleByteCharacters_areOneEach)
{
    EXPECT_EQ(beforeNul("\x93\xfa\x96\x7b\0rest"s, 932), L"\x65e5\x672c");
}

TEST(readBeforeNul, leadByteAtTheEnd_hasNone)
{
    EXPECT_EQ(beforeNul("abc\x83", 932), L"-");
}

TEST(readBeforeNul, leadByteBeforeTheOnlyNul_readsAsTheWholeConversionDoes)
{
    beforeNul("ab\x83\0"s, 932);
    beforeNul("ab\x83\0"s + "cd\0ef"s, 932);
    beforeNul("\x83\0\0"s, 932);
}

TEST(readBeforeNul, sameBytesInASingleByteCodePage_endAtTheNul)
{
    EXPECT_EQ(beforeNul("ab\x83\0"s + "cd", 1252), L"ab\x0192");
}

TEST(readBeforeNul, nulAfterEachNumberOfPlainBytes_isFound)
{
    const std::string plain = "abcdefghi";
    for (size_t length = 0; length < plain.size(); ++length)
        EXPECT_EQ(beforeNul(plain.substr(0, length) + '\0' + "rest", 932),
                  std::wstring(plain.begin(), plain.end()).substr(0, length));
}

TEST(readBeforeNul, otherByteBehindEachNumberOfPlainBytes_isConverted)
{
    const std::string plain = "abcdefghi";
    for (size_t length = 0; length < plain.size(); ++length)
        EXPECT_EQ(beforeNul(plain.substr(0, length) + "\x80z\0"s, 1252),
                  std::wstring(plain.begin(), plain.end()).substr(0, length) + L"\x20acz");
}

TEST(readBeforeNul, textWithRoom_keepsItsMemory)
{
    std::wstring text(20, L'x');
    const wchar_t* const memory = text.data();
    ansi::readBeforeNul(text, "a name of some size"s);
    ansi::readBeforeNul(text, "another name\0"s);
    EXPECT_EQ(text, L"another name");
    EXPECT_EQ(text.data(), memory);
}

TEST(asksForMore, onlyAGreaterSize_does)
{
    trzText record;
    WireCopy<trzText> copy(record);
    auto& size = static_cast<wire::trzText*>(copy.address())->lTextSz;
    EXPECT_FALSE(copy.asksForMore());
    size = 4097;
    EXPECT_TRUE(copy.asksForMore());
    size = -1;
    EXPECT_FALSE(copy.asksForMore());
}

} // namespace
} // namespace velk
