#include "rowsFixture.h"

#include "base/win32.h"

#include <algorithm>
#include <random>

namespace velk {
namespace {

using test::Handles;
using test::handlesOf;
using test::row;
using test::Texts;

class RowOrderTest : public testing::Test {
protected:
    // One-cell rows of these names, handles from 1 on.
    void addNames(const Texts& names)
    {
        for (const std::wstring& name : names)
            rows.add(row(++last, {name}));
    }
    Texts names() const
    {
        Texts found;
        for (size_t place = 0; place < rows.size(); ++place)
            found.emplace_back(rows.at(place).name());
        return found;
    }
    Texts sorted(const Texts& texts, bool isDescending = false)
    {
        rows.clear();
        addNames(texts);
        rows.sort({0, isDescending});
        return names();
    }

    RowModel rows;
    int32_t last = 0;
};

TEST_F(RowOrderTest, texts_areOrderedWithoutRegardToCase)
{
    EXPECT_EQ(sorted({L"b", L"A", L"a1", L"B2", L""}), (Texts{L"", L"A", L"a1", L"b", L"B2"}));
}

TEST_F(RowOrderTest, wholeNumbers_areOrderedByTheirValues)
{
    EXPECT_EQ(sorted({L"10", L"9", L"-3", L"0", L"-20", L"9999999999", L"-9999999999"}),
              (Texts{L"-9999999999", L"-20", L"-3", L"0", L"9", L"10", L"9999999999"}));
}

TEST_F(RowOrderTest, numbersAmongTexts_areTexts)
{
    EXPECT_EQ(sorted({L"10", L"9", L"x"}), (Texts{L"10", L"9", L"x"}));
    EXPECT_EQ(sorted({L"10", L"9", L""}), (Texts{L"", L"10", L"9"}));
    EXPECT_EQ(sorted({L"10", L"9", L"-"}).back(), L"9");
    EXPECT_EQ(sorted({L"10", L"9", L"12345678901"}), (Texts{L"10", L"12345678901", L"9"}));
}

TEST_F(RowOrderTest, equalRows_keepTheBackendsOrderInBothDirections)
{
    addNames({L"b", L"a", L"B", L"A", L"c"});
    rows.sort({0, false});
    EXPECT_EQ(names(), (Texts{L"a", L"A", L"b", L"B", L"c"}));
    rows.sort({0, true});
    EXPECT_EQ(names(), (Texts{L"c", L"b", L"B", L"a", L"A"}));
    rows.sort({0, false});
    EXPECT_EQ(names(), (Texts{L"a", L"A", L"b", L"B", L"c"}));
    rows.sort({});
    EXPECT_EQ(names(), (Texts{L"b", L"a", L"B", L"A", L"c"}));
}

TEST_F(RowOrderTest, reversedAfterAChange_isOrderedByWhatTheRowsSayNow)
{
    addNames({L"a", L"b", L"c"});
    rows.sort({0, false});
    rows.change(1, {L"z", {}, {}});
    EXPECT_EQ(names(), (Texts{L"z", L"b", L"c"})); // it keeps its place until somebody orders
    rows.sort({0, true});
    EXPECT_EQ(names(), (Texts{L"z", L"c", L"b"}));
}

TEST_F(RowOrderTest, addedRows_goWhereTheOrderWantsThem)
{
    addNames({L"b", L"d", L"f"});
    rows.sort({0, true});
    addNames({L"g", L"a", L"d", L"c"});
    rows.placeAdded({0, true});
    EXPECT_EQ(names(), (Texts{L"g", L"f", L"d", L"d", L"c", L"b", L"a"}));
    EXPECT_EQ(rows.placeOf(*rows.find(2)), 2u);
    EXPECT_EQ(rows.placeOf(*rows.find(6)), 3u); // behind its like
}

TEST_F(RowOrderTest, textAddedToNumbers_bringsAllIntoTheOrderOfTexts)
{
    addNames({L"10", L"9"});
    rows.sort({0, false});
    addNames({L"x"});
    rows.placeAdded({0, false});
    EXPECT_EQ(names(), (Texts{L"10", L"9", L"x"}));
    rows.remove(3);
    addNames({L"2"});
    rows.placeAdded({0, false});
    EXPECT_EQ(names(), (Texts{L"2", L"9", L"10"}));
}

// The literal way: a list of rows, each step done one after the other by comparing texts.
struct Reference {
    struct Line {
        int32_t handle;
        Texts cells;
        int arrival;
    };
    static bool isNumber(const std::wstring& text)
    {
        const std::wstring digits = text.substr(text.starts_with(L"-") ? 1 : 0);
        return !digits.empty() && digits.size() <= 10 && digits.find_first_not_of(L"0123456789") == std::wstring::npos;
    }
    static int compare(const std::wstring& left, const std::wstring& right, bool asNumbers)
    {
        if (asNumbers)
            return std::stoll(left) < std::stoll(right) ? -1 : std::stoll(left) > std::stoll(right) ? 1 : 0;
        return CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORECASE, left.c_str(), -1, right.c_str(), -1) - CSTR_EQUAL;
    }
    void sort(const RowOrder& order)
    {
        const size_t column = order.column.value_or(0);
        const bool asNumbers =
            std::all_of(lines.begin(), lines.end(), [&](const Line& line) { return isNumber(line.cells[column]); });
        std::stable_sort(lines.begin(), lines.end(),
                         [](const Line& left, const Line& right) { return left.arrival < right.arrival; });
        if (order.column)
            std::stable_sort(lines.begin(), lines.end(), [&](const Line& left, const Line& right) {
                const int compared = compare(left.cells[column], right.cells[column], asNumbers);
                return order.isDescending ? compared > 0 : compared < 0;
            });
    }
    std::vector<Line> lines;
};

// Random steps on both; the seed is told when they differ.
class OrderWalk {
public:
    explicit OrderWalk(uint32_t seed) : m_random(seed) {}

    void step()
    {
        const int kind = number(0, 9);
        if (kind < 5)
            add();
        else if (kind < 8)
            remove();
        else
            sort({number(0, 5) == 0 ? std::nullopt : std::optional<size_t>(number(0, 2)), number(0, 1) == 1});
    }
    void place()
    {
        m_rows.placeAdded(m_order);
        if (std::exchange(m_hasAdded, false))
            m_reference.sort(m_order);
    }
    Handles handles() const { return handlesOf(m_rows); }
    Handles expected() const
    {
        Handles handles;
        for (const Reference::Line& line : m_reference.lines)
            handles.push_back(line.handle);
        return handles;
    }
    bool areAllFound() const
    {
        for (size_t place = 0; place < m_rows.size(); ++place)
            if (m_rows.find(m_rows.at(place).handle()) != &m_rows.at(place) ||
                m_rows.placeOf(m_rows.at(place)) != place)
                return false;
        return true;
    }

private:
    int number(int from, int to) { return std::uniform_int_distribution(from, to)(m_random); }
    void add()
    {
        const wchar_t* const words[] = {L"a", L"A", L"b", L"ab", L"", L"straße", L"Zug", L"été", L"a-b", L"10", L"-7"};
        const int32_t handle = number(-60, 60) * 65536;
        const Texts cells = {words[number(0, 10)], std::to_wstring(number(-12, 12)), words[number(0, 1)]};
        if (m_rows.find(handle))
            return;
        m_rows.add(row(handle, cells));
        m_reference.lines.push_back({handle, cells, ++m_arrivals});
        m_hasAdded = true;
    }
    void remove()
    {
        if (m_reference.lines.empty())
            return;
        const auto gone = m_reference.lines.begin() + number(0, static_cast<int>(m_reference.lines.size()) - 1);
        m_rows.remove(gone->handle);
        m_reference.lines.erase(gone);
    }
    void sort(const RowOrder& order)
    {
        m_order = order;
        m_rows.sort(order);
        m_reference.sort(order);
        m_hasAdded = false;
    }

    std::mt19937 m_random;
    RowModel m_rows;
    RowOrder m_order;
    Reference m_reference;
    int m_arrivals = 0;
    bool m_hasAdded = false;
};

class RowWalkTest : public testing::TestWithParam<uint32_t> {};

TEST_P(RowWalkTest, additionsRemovalsAndOrders_leaveWhatTheLiteralWayLeaves)
{
    OrderWalk walk(GetParam());
    for (int round = 0; round < 200; ++round) {
        for (int step = 0; step < 5; ++step)
            walk.step();
        walk.place();
        ASSERT_EQ(walk.handles(), walk.expected()) << "round " << round;
        ASSERT_TRUE(walk.areAllFound()) << "round " << round;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RowWalkTest, testing::Range(1u, 21u));

} // namespace
} // namespace velk
