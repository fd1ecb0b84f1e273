#include "rowsFixture.h"

#include "support/errorNumber.h"

#include <random>

namespace velk {
namespace {

using test::addRows;
using test::Handles;
using test::handlesOf;
using test::row;
using test::Texts;

const Texts headers = {L"Name", L"Number"};

RowFilter filterOf(const std::wstring& text)
{
    return RowFilter(text, headers);
}

class FilteredRowsTest : public testing::Test {
protected:
    FilteredRowsTest()
    {
        int32_t handle = 0;
        for (const wchar_t* name : {L"delta", L"Alpha", L"charlie", L"bravo", L"beta"}) {
            ++handle;
            rows.add(row(handle, {name, std::to_wstring(10 - handle)})); // 9 to 5
        }
        rows.placeAddedLast();
    }
    std::optional<size_t> placeOf(int32_t handle) const { return rows.placeOf(*rows.find(handle)); }
    int32_t neighbourOf(int32_t handle) const
    {
        const Row* neighbour = rows.neighbourOf(*rows.find(handle));
        return neighbour ? neighbour->handle() : 0;
    }
    void rename(int32_t handle, const wchar_t* name) { rows.change(handle, {name, {}, {}}); }

    RowModel rows;
};

TEST_F(FilteredRowsTest, filter_leavesTheRowsThatItMatchesInTheirOrder)
{
    rows.setFilter(filterOf(L"ta"));
    EXPECT_EQ(handlesOf(rows), (Handles{1, 5}));
    EXPECT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows.sizeUnfiltered(), 5u);
    EXPECT_EQ(placeOf(5), 1u);
    EXPECT_EQ(placeOf(2), std::nullopt);
}

TEST_F(FilteredRowsTest, noFilter_bringsAllRowsBackInTheirOrder)
{
    rows.setFilter(filterOf(L"ta"));
    rows.setFilter({});
    EXPECT_EQ(handlesOf(rows), (Handles{1, 2, 3, 4, 5}));
    EXPECT_FALSE(rows.find(2)->isHidden());
}

TEST_F(FilteredRowsTest, narrowerAndWiderFilters_leaveWhatEachMatches)
{
    rows.setFilter(filterOf(L"a"));
    rows.setFilter(filterOf(L"a -l"));
    EXPECT_EQ(handlesOf(rows), (Handles{4, 5}));
    rows.setFilter(filterOf(L"a -lp"));
    EXPECT_EQ(handlesOf(rows), (Handles{1, 3, 4, 5}));
    rows.setFilter(filterOf(L"a -lp number:9"));
    EXPECT_EQ(handlesOf(rows), (Handles{1}));
    rows.setFilter(filterOf(L"zulu"));
    EXPECT_EQ(handlesOf(rows), (Handles{}));
}

TEST_F(FilteredRowsTest, addedRows_obeyTheFilterThatIsThereWhenTheyAreLookedAt)
{
    rows.setFilter(filterOf(L"e"));
    rows.add(row(6, {L"echo"}));
    rows.add(row(7, {L"kilo"}));
    EXPECT_EQ(handlesOf(rows), (Handles{1, 3, 5}));
    EXPECT_EQ(placeOf(6), std::nullopt);
    rows.placeAddedLast();
    EXPECT_EQ(handlesOf(rows), (Handles{1, 3, 5, 6}));
    EXPECT_EQ(rows.sizeUnfiltered(), 7u);
    rows.add(row(8, {L"edge"}));
    rows.add(row(9, {L"eel"}));
    rows.setFilter(filterOf(L"ee")); // narrower, before they have a place
    rows.placeAddedLast();
    EXPECT_EQ(handlesOf(rows), (Handles{9}));
}

TEST_F(FilteredRowsTest, addedRow_goesWhereTheOrderWantsItAmongTheShown)
{
    rows.sort({0, false});
    rows.setFilter(filterOf(L"a"));
    rows.add(row(6, {L"bar"}));
    rows.placeAdded({0, false});
    EXPECT_EQ(handlesOf(rows), (Handles{2, 6, 5, 4, 3, 1}));
    EXPECT_EQ(placeOf(5), 2u);
    EXPECT_EQ(placeOf(6), 1u);
}

TEST_F(FilteredRowsTest, removedRows_shownOrHidden_areGone)
{
    rows.setFilter(filterOf(L"a -lp"));
    rows.remove(2);
    EXPECT_EQ(handlesOf(rows), (Handles{1, 3, 4, 5}));
    rows.remove(3);
    EXPECT_EQ(placeOf(4), 1u);
    EXPECT_EQ(handlesOf(rows), (Handles{1, 4, 5}));
    rows.setFilter({});
    EXPECT_EQ(handlesOf(rows), (Handles{1, 4, 5}));
}

TEST_F(FilteredRowsTest, changedRow_staysComesOrGoesWithItsNewTexts)
{
    rows.setFilter(filterOf(L"ta"));
    EXPECT_EQ(rows.size(), 2u);
    rename(5, L"tango");
    EXPECT_EQ(handlesOf(rows), (Handles{1, 5}));
    EXPECT_EQ(rows.at(1).name(), L"tango");
    rename(5, L"beta");
    rename(1, L"echo");
    EXPECT_EQ(handlesOf(rows), (Handles{5}));
    rename(2, L"tap");
    EXPECT_EQ(handlesOf(rows), (Handles{2, 5}));
    rename(4, L"kilo");
    EXPECT_EQ(handlesOf(rows), (Handles{2, 5}));
}

TEST_F(FilteredRowsTest, rowsChangedAfterHiddenOnesWent_areShownAsTheyAre)
{
    rows.setFilter(filterOf(L"ta"));
    EXPECT_EQ(rows.size(), 2u);
    rows.remove(2);
    rename(5, L"tango");
    rows.remove(3);
    rename(1, L"tap");
    rename(5, L"delta");
    EXPECT_EQ(handlesOf(rows), (Handles{1, 5}));
    EXPECT_EQ(rows.at(0).name(), L"tap");
    EXPECT_EQ(rows.at(1).name(), L"delta");
}

TEST_F(FilteredRowsTest, changeThatHidesOrShows_isKnownBefore)
{
    const auto hidesOrShows = [this](int32_t handle, const wchar_t* name) {
        return rows.hidesOrShows(handle, {name, {}, {}});
    };
    EXPECT_FALSE(hidesOrShows(1, L"zulu"));
    rows.setFilter(filterOf(L"ta number:9"));
    EXPECT_TRUE(hidesOrShows(1, L"zulu"));
    EXPECT_FALSE(hidesOrShows(1, L"delta"));
    EXPECT_FALSE(hidesOrShows(1, L"beta"));
    EXPECT_FALSE(hidesOrShows(2, L"beta")); // 8
    EXPECT_FALSE(hidesOrShows(7, L"beta"));
    rows.setFilter(filterOf(L"ta number:8"));
    EXPECT_TRUE(hidesOrShows(2, L"beta"));
}

TEST_F(FilteredRowsTest, changeOfLooks_keepsTheRowShown)
{
    rows.setFilter(filterOf(L"ta"));
    rows.change(5, {L"beta", {}, {3, true}});
    EXPECT_EQ(handlesOf(rows), (Handles{1, 5}));
    EXPECT_TRUE(rows.at(1).looks().bold);
}

TEST_F(FilteredRowsTest, neighbour_isAShownRow)
{
    rows.setFilter(filterOf(L"ta"));
    EXPECT_EQ(neighbourOf(1), 5);
    EXPECT_EQ(neighbourOf(5), 1);
    EXPECT_EQ(neighbourOf(3), 5); // hidden: from where it would stand
    rows.setFilter(filterOf(L"delta"));
    EXPECT_EQ(neighbourOf(1), 0);
    EXPECT_EQ(neighbourOf(3), 1);
}

TEST_F(FilteredRowsTest, name_isFoundAmongTheShownRows)
{
    rows.setFilter(filterOf(L"a -alpha"));
    EXPECT_EQ(rows.findName(L"B", 0), 2u); // bravo
    EXPECT_EQ(rows.findName(L"b", 3), 3u); // beta
    EXPECT_EQ(rows.findName(L"alpha", 0), std::nullopt);
}

TEST_F(FilteredRowsTest, sorted_putsTheShownRowsIntoOrderAndTheHiddenWithThem)
{
    rows.setFilter(filterOf(L"a -lp"));
    rows.sort({0, false});
    EXPECT_EQ(handlesOf(rows), (Handles{5, 4, 3, 1}));
    EXPECT_EQ(placeOf(1), 3u);
    rows.sort({0, true});
    EXPECT_EQ(handlesOf(rows), (Handles{1, 3, 4, 5}));
    EXPECT_EQ(placeOf(1), 0u);
    rows.setFilter({});
    EXPECT_EQ(handlesOf(rows), (Handles{1, 3, 4, 5, 2}));
}

TEST_F(FilteredRowsTest, clearedRows_leaveTheFilterForThoseThatCome)
{
    rows.setFilter(filterOf(L"ta"));
    rows.clear();
    EXPECT_EQ(rows.size(), 0u);
    addRows(rows, {1, 2});
    EXPECT_EQ(rows.size(), 0u);
    rows.add(row(3, {L"beta"}));
    rows.placeAddedLast();
    EXPECT_EQ(handlesOf(rows), (Handles{3}));
}

TEST_F(FilteredRowsTest, hiddenHandle_isTaken)
{
    rows.setFilter(filterOf(L"zulu"));
    EXPECT_EQ(test::errorNumberOf([this] { rows.add(row(2, {L"zulu"})); }), errorKeyNotUnique);
}

// The same steps done to a model without a filter, whose rows are then looked through one by one.
class FilterWalk {
public:
    explicit FilterWalk(uint32_t seed) : m_random(seed) {}

    void step()
    {
        switch (number(0, 11)) {
        case 0:
            return filter();
        case 1:
            return sort();
        case 2:
        case 3:
        case 4:
            return remove();
        case 5:
        case 6:
            return change();
        default:
            return add();
        }
    }
    void place()
    {
        m_rows.placeAdded(m_order);
        m_plain.placeAdded(m_order);
    }
    Handles expected() const
    {
        Handles handles;
        for (size_t place = 0; place < m_plain.size(); ++place)
            if (isWanted(m_plain.at(place)))
                handles.push_back(m_plain.at(place).handle());
        return handles;
    }
    Handles handles() const { return handlesOf(m_rows); }
    bool areAllSizesRight() const { return m_rows.sizeUnfiltered() == m_plain.size(); }
    bool areAllFound() const
    {
        const Handles shown = expected();
        for (size_t place = 0; place < m_plain.size(); ++place) {
            const Row& row = *m_rows.find(m_plain.at(place).handle());
            const auto found = std::find(shown.begin(), shown.end(), row.handle());
            const std::optional<size_t> wanted =
                found == shown.end() ? std::nullopt : std::optional(static_cast<size_t>(found - shown.begin()));
            if (m_rows.placeOf(row) != wanted || row.isHidden() != !wanted || row.name() != m_plain.at(place).name())
                return false;
        }
        return true;
    }
    bool areNeighboursRight() const
    {
        for (size_t place = 0; place < m_plain.size(); ++place) {
            const Row* neighbour = m_rows.neighbourOf(*m_rows.find(m_plain.at(place).handle()));
            const Row* wanted = neighbourInThePlain(place);
            if ((neighbour ? neighbour->handle() : -1) != (wanted ? wanted->handle() : -1))
                return false;
        }
        return true;
    }

private:
    int number(int from, int to) { return std::uniform_int_distribution(from, to)(m_random); }
    std::wstring word()
    {
        const wchar_t* const words[] = {L"a", L"A", L"b", L"ab", L"", L"aba", L"bab", L"10", L"-7"};
        return words[number(0, 8)];
    }
    bool isWanted(const Row& row) const { return m_filter.matches(row); }
    const Row* neighbourInThePlain(size_t place) const
    {
        for (size_t next = place + 1; next < m_plain.size(); ++next)
            if (isWanted(m_plain.at(next)))
                return &m_plain.at(next);
        for (size_t next = place; next-- > 0;)
            if (isWanted(m_plain.at(next)))
                return &m_plain.at(next);
        return nullptr;
    }
    int32_t anyHandle()
    {
        const size_t count = m_plain.size();
        return count == 0 ? 1 : m_plain.at(static_cast<size_t>(number(0, static_cast<int>(count) - 1))).handle();
    }
    void add()
    {
        const int32_t handle = ++m_last;
        const Texts cells = {word(), std::to_wstring(number(-12, 12))};
        m_rows.add(row(handle, cells));
        m_plain.add(row(handle, cells));
    }
    void remove()
    {
        const int32_t handle = anyHandle();
        if (!m_plain.find(handle))
            return;
        m_rows.remove(handle);
        m_plain.remove(handle);
    }
    void change()
    {
        const int32_t handle = anyHandle();
        const std::wstring name = word();
        const RowModel::Dress dress{name, {}, {number(0, 3), false}};
        const bool wasHidden = m_rows.find(handle) && m_rows.find(handle)->isHidden();
        const bool isToldBefore = m_rows.hidesOrShows(handle, dress);
        m_rows.change(handle, dress);
        m_plain.change(handle, dress);
        ASSERT_EQ(isToldBefore, m_rows.find(handle) && m_rows.find(handle)->isHidden() != wasHidden);
    }
    void sort()
    {
        m_order = {number(0, 4) == 0 ? std::nullopt : std::optional<size_t>(number(0, 1)), number(0, 1) == 1};
        m_rows.sort(m_order);
        m_plain.sort(m_order);
    }
    void filter()
    {
        std::wstring text;
        for (int count = number(0, 2); count > 0; --count)
            text += std::wstring(number(0, 2) == 0 ? L" -" : L" ") + (number(0, 3) == 0 ? L"number:1" : word());
        m_filter = filterOf(text);
        m_rows.setFilter(filterOf(text));
    }

    std::mt19937 m_random;
    RowModel m_rows;
    RowModel m_plain;
    RowFilter m_filter;
    RowOrder m_order;
    int32_t m_last = 0;
};

class FilterWalkTest : public testing::TestWithParam<uint32_t> {};

TEST_P(FilterWalkTest, stepsOfAllKinds_leaveWhatTheLiteralWayLeaves)
{
    FilterWalk walk(GetParam());
    for (int round = 0; round < 150; ++round) {
        for (int step = 0; step < 5; ++step)
            walk.step();
        walk.place();
        ASSERT_EQ(walk.handles(), walk.expected()) << "round " << round;
        ASSERT_TRUE(walk.areAllSizesRight()) << "round " << round;
        ASSERT_TRUE(walk.areAllFound()) << "round " << round;
        ASSERT_TRUE(walk.areNeighboursRight()) << "round " << round;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, FilterWalkTest, testing::Range(1u, 21u));

} // namespace
} // namespace velk
