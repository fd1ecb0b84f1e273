#include "rowsFixture.h"

#include "base/text.h"
#include "base/win32.h"

#include <random>

namespace velk {
namespace {

using test::Handles;
using test::row;
using test::Texts;

const Texts columnHeaders = {L"Name", L"Schema", L"SQL Package", L"Comment"};

struct Written {
    const wchar_t* filter;
    Handles matches;
};
class RowFilterTest : public testing::TestWithParam<Written> {
protected:
    Handles matchesOf(const std::wstring& text)
    {
        const RowFilter filter(text, columnHeaders);
        Handles handles;
        for (const Row::Owner& each : rows)
            if (filter.matches(*each))
                handles.push_back(each->handle());
        return handles;
    }
    static Row::Owner made(int32_t handle, const Texts& cells) { return row(handle, cells, L"True#hidden.sql"); }

    const Row::Owner rows[4] = {
        made(1, {L"GetOrders", L"sales", L"PKG1", L"of the orders"}), made(2, {L"PutOrder", L"Sales", L"", L"draft"}),
        made(3, {L"a:b", L"hr", L"pkg2", L"-draft"}), made(4, {L"schema", L"x", L"", L"of  the"})};
};

TEST_P(RowFilterTest, text_isTakenAsWritten)
{
    EXPECT_EQ(matchesOf(GetParam().filter), GetParam().matches);
}

// clang-format off
const Handles all = {1, 2, 3, 4};
INSTANTIATE_TEST_SUITE_P(Words, RowFilterTest, testing::Values(
    Written{L"", all}, Written{L"  \t\u3000", all},
    Written{L"order", {1, 2}},                          // a part of a word is enough
    Written{L"ORDER", {1, 2}}, Written{L"pKg", {1, 3}},
    Written{L"order draft", {2}},                       // each in any cell
    Written{L"draft order", {2}}, Written{L"  draft\u00a0 order\t", {2}},
    Written{L"order order", {1, 2}},
    Written{L"orderssales", {}}, Written{L"ssal", {}},  // not over the end of a cell
    Written{L"hidden", {}}, Written{L"True", {}}));     // the tag is no cell
INSTANTIATE_TEST_SUITE_P(Phrases, RowFilterTest, testing::Values(
    Written{L"of the", {1, 4}}, Written{L"\"of the\"", {1}}, Written{L"\"OF The\" order", {1}},
    Written{L"\"f the", {1}}, Written{L"\"f the ", {1}}, // the end may be missing
    Written{L"of\" the\"", {1}}, Written{L"\"of the\"x", {}},
    Written{L"\"\"", all}, Written{L"\"", all}, Written{L"-\"\"", all}, Written{L"\"\"order", {1, 2}}));
INSTANTIATE_TEST_SUITE_P(Columns, RowFilterTest, testing::Values(
    Written{L"schema:sales", {1, 2}}, Written{L"SCHEMA:Sal", {1, 2}}, Written{L"name:sales", {}},
    Written{L"schema:sales comment:draft", {2}},
    Written{L"\"sql package\":pkg1", {1}}, Written{L"sql package:pkg1", {}},
    Written{L"comment:\"of the\"", {1}},
    Written{L"name:a:b", {3}},                          // only the first one parts
    Written{L"a:b", {3}}, Written{L"schem:sales", {}},  // no column's header: a character like others
    Written{L"\"schema:sales\"", {}}, Written{L":b", {3}}, Written{L"\"name:a\"", {}},
    Written{L"name:-d", {}}, Written{L"comment:-d", {3}}, // a minus only at the beginning
    Written{L"schema:", all}, Written{L"schema:\"", all}, Written{L"schema: order", {1, 2}},
    Written{L"schema", {4}}));
INSTANTIATE_TEST_SUITE_P(Exclusions, RowFilterTest, testing::Values(
    Written{L"-order", {3, 4}}, Written{L"-order -draft", {4}}, Written{L"order -draft", {1}},
    Written{L"-schema:sales", {3, 4}}, Written{L"-\"of the\"", {2, 3, 4}}, Written{L"-comment:\"of the\"", {2, 3, 4}},
    Written{L"-", all}, Written{L"- order", {1, 2}}, Written{L"-schema:", all},
    Written{L"--draft", {1, 2, 4}}, Written{L"\"-draft\"", {3}}, Written{L"\"-\"draft", {3}},
    Written{L"a-b", {}}, Written{L"order -order", {}}));
// clang-format on

TEST_F(RowFilterTest, capitalsOfAllLanguages_areAlike)
{
    const Row::Owner greek = row(1, {L"\u039f\u0394\u039f\u03a3 \u00c4\u0416"}); // in capitals
    for (const wchar_t* text : {L"\u03bf\u03b4\u03bf\u03c3", L"\u0394\u03bf", L"\u00e4\u0436", L"\u00c4\u0436"})
        EXPECT_TRUE(RowFilter(text, {}).matches(*greek)) << toAnsi(text);
    EXPECT_FALSE(RowFilter(L"a", {}).matches(*greek));
}

TEST_F(RowFilterTest, columnThatARowHasNoCellFor_isEmpty)
{
    const Row::Owner lonely = row(1, {L"name"});
    EXPECT_FALSE(RowFilter(L"comment:n", columnHeaders).matches(*lonely));
    EXPECT_TRUE(RowFilter(L"-comment:n", columnHeaders).matches(*lonely));
    EXPECT_FALSE(RowFilter(L"n", columnHeaders).matches(*row(2, {})));
}

TEST_F(RowFilterTest, textsWithNulsAndOfAnyLength_areLookedThrough)
{
    const Row::Owner odd = row(1, {std::wstring(70000, L'x'), std::wstring(L"a\0end", 5)});
    EXPECT_TRUE(RowFilter(L"xx end", {}).matches(*odd));
    EXPECT_FALSE(RowFilter(L"xa", {}).matches(*odd));
}

TEST_F(RowFilterTest, emptyHeader_isNoColumns)
{
    const Row::Owner odd = row(1, {L"x", L"a"});
    EXPECT_FALSE(RowFilter(L":a", Texts{L"", L""}).matches(*odd));
}

bool isWithin(const wchar_t* text, const wchar_t* other)
{
    return RowFilter(text, columnHeaders).isWithin(RowFilter(other, columnHeaders));
}

TEST(RowFilterWithinTest, writingOn_looksForLess)
{
    EXPECT_TRUE(isWithin(L"ord", L"or"));
    EXPECT_TRUE(isWithin(L"ord x", L"ord"));
    EXPECT_TRUE(isWithin(L"ord -x", L"ord"));
    EXPECT_TRUE(isWithin(L"Ord", L"oRD"));
    EXPECT_TRUE(isWithin(L"schema:ord", L"ord"));
    EXPECT_TRUE(isWithin(L"ord", L""));
    EXPECT_TRUE(isWithin(L"-o", L"-ord"));
    EXPECT_TRUE(isWithin(L"-o", L"-schema:ord"));
}

TEST(RowFilterWithinTest, takingBack_looksForMore)
{
    EXPECT_FALSE(isWithin(L"or", L"ord"));
    EXPECT_FALSE(isWithin(L"", L"o"));
    EXPECT_FALSE(isWithin(L"ord", L"ord x"));
    EXPECT_FALSE(isWithin(L"ord", L"schema:ord"));
    EXPECT_FALSE(isWithin(L"name:ord", L"schema:ord"));
    EXPECT_FALSE(isWithin(L"-ord", L"-o"));
    EXPECT_FALSE(isWithin(L"-schema:o", L"-o"));
    EXPECT_FALSE(isWithin(L"-ord", L"ord"));
    EXPECT_FALSE(isWithin(L"ord", L"-ord"));
}

// A filter as a list of what it wants, looked for in the slowest way.
struct Reference {
    struct Want {
        std::wstring word;
        int column; // -1: any
        bool isExcluded;
    };
    static wchar_t small(wchar_t character)
    {
        const auto one = [](auto function, wchar_t of) {
            return static_cast<wchar_t>(
                reinterpret_cast<uintptr_t>(function(reinterpret_cast<wchar_t*>(uintptr_t{of}))));
        };
        return one(CharLowerW, one(CharUpperW, character));
    }
    static std::wstring small(std::wstring text)
    {
        for (wchar_t& character : text)
            character = small(character);
        return text;
    }
    static bool has(const std::wstring& cell, const std::wstring& word)
    {
        return small(cell).find(small(word)) != std::wstring::npos;
    }
    bool matches(const Texts& cells) const
    {
        for (const Want& want : wants) {
            bool isThere = false;
            for (size_t column = 0; column < cells.size(); ++column)
                if ((want.column < 0 || static_cast<size_t>(want.column) == column) && has(cells[column], want.word))
                    isThere = true;
            if (isThere == want.isExcluded)
                return false;
        }
        return true;
    }
    std::wstring written() const
    {
        std::wstring text;
        for (const Want& want : wants)
            text += std::wstring(want.isExcluded ? L" -" : L" ") +
                    (want.column < 0 ? L"" : L"\"" + columnHeaders[static_cast<size_t>(want.column)] + L"\":") + L"\"" +
                    want.word + L"\"";
        return text;
    }
    std::vector<Want> wants;
};

class RandomFilters {
public:
    explicit RandomFilters(uint32_t seed) : m_random(seed) {}
    int number(int from, int to) { return std::uniform_int_distribution(from, to)(m_random); }
    std::wstring text(int shortest, int longest)
    {
        constexpr wchar_t letters[] = L"aAbB :-\u00e4\u00c4\u03c3\u03c2\u03a3\u00df\u0130";
        std::wstring made;
        for (int length = number(shortest, longest); length > 0; --length)
            made += letters[number(0, static_cast<int>(std::size(letters)) - 2)];
        return made;
    }
    Texts cells()
    {
        Texts made;
        for (int count = number(1, 4); count > 0; --count)
            made.push_back(text(0, 6));
        return made;
    }
    Reference filter()
    {
        Reference made;
        for (int count = number(0, 3); count > 0; --count)
            made.wants.push_back({text(1, 3), number(-2, 3), number(0, 2) == 0});
        return made;
    }

private:
    std::mt19937 m_random;
};

class RowFilterRandomTest : public testing::TestWithParam<uint32_t> {};

TEST_P(RowFilterRandomTest, randomFilters_matchWhatTheSlowestWayMatches)
{
    RandomFilters random(GetParam());
    for (int round = 0; round < 300; ++round) {
        const Reference reference = random.filter();
        const RowFilter filter(reference.written(), columnHeaders);
        const Texts cells = random.cells();
        ASSERT_EQ(filter.matches(*row(1, cells)), reference.matches(cells)) << round;
    }
}

TEST_P(RowFilterRandomTest, whatIsWithinAnother_letsNothingMoreThrough)
{
    RandomFilters random(GetParam());
    int within = 0;
    for (int round = 0; round < 300; ++round) {
        const RowFilter one(random.filter().written(), columnHeaders);
        const RowFilter other(random.filter().written(), columnHeaders);
        const Row::Owner any = row(1, random.cells());
        within += one.isWithin(other);
        ASSERT_TRUE(!one.isWithin(other) || !one.matches(*any) || other.matches(*any)) << round;
    }
    EXPECT_GT(within, 50);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RowFilterRandomTest, testing::Range(1u, 5u));

} // namespace
} // namespace velk
