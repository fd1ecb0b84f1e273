#include "com/host_report.h"

#include "base/trace.h"
#include "support/fakeObject.h"
#include "support/folders.h"

#include <fstream>
#include <gmock/gmock.h>

namespace velk {
namespace {

using test::asVariant;
using test::fakeObject;
using testing::ElementsAre;
using testing::IsEmpty;

class HostReportTest : public testing::Test {
protected:
    HostReportTest()
    {
        DeleteFileW(file);
        openAt(trace::Level::calls);
    }
    ~HostReportTest() override
    {
        trace::close();
        DeleteFileW(file);
    }
    static void openAt(trace::Level level)
    {
        trace::open(file, level, L"begins");
        beginHostReports();
    }
    // Without the times.
    static std::vector<std::string> lines(const std::string& beginning = "host members: ")
    {
        std::ifstream log{"hostReport.log"};
        std::vector<std::string> found;
        for (std::string line; std::getline(log, line);)
            if (const size_t at = line.find(beginning); at != std::string::npos)
                found.push_back(line.substr(at + beginning.size(), line.find('\r') - at - beginning.size()));
        return found;
    }

    static constexpr wchar_t file[] = L"hostReport.log";
    test::FakeObject::Journal journal;
};

TEST_F(HostReportTest, members_areToldByTheirNamesAndNoneIsUsed)
{
    const auto windows = fakeObject(L"Windows", &journal);
    windows->value(L"Count", variant(int32_t{0}))->function(L"Item", [](const auto&) { return variant(); });
    reportHost(HostObject::Windows, windows.get());
    EXPECT_THAT(lines(), ElementsAre("Windows has Count Item; lacks CreateToolWindow"));
    EXPECT_THAT(journal, IsEmpty());
}

TEST_F(HostReportTest, objectWithAllOrNothing_isToldSo)
{
    const auto all = fakeObject(L"Events");
    all->value(L"CommandBarEvents", variant());
    reportHost(HostObject::Events, all.get());
    reportHost(HostObject::LinkedWindows, fakeObject(L"LinkedWindows").get());
    EXPECT_THAT(lines(),
                ElementsAre("Events has CommandBarEvents; lacks none", "LinkedWindows has none; lacks Remove"));
}

TEST_F(HostReportTest, kindOfObject_isToldOnceUntilTheReportsBeginAnew)
{
    const auto events = fakeObject(L"Events");
    reportHost(HostObject::Events, events.get());
    reportHost(HostObject::Events, events.get());
    EXPECT_EQ(lines().size(), 1u);
    beginHostReports();
    reportHost(HostObject::Events, events.get());
    EXPECT_EQ(lines().size(), 2u);
}

TEST_F(HostReportTest, objectThatIsNotThere_isToldWhenItComes)
{
    reportHost(HostObject::Solution, nullptr);
    EXPECT_THAT(lines(), IsEmpty());
    reportHost(HostObject::Solution, fakeObject(L"Solution").get());
    EXPECT_THAT(lines(), ElementsAre("Solution has none; lacks Count FullName"));
}

TEST_F(HostReportTest, bars_areToldByNumberAndNameWithThatOfTheEntry)
{
    const auto first = fakeObject(L"Bar");
    first->value(L"Name", variant(L"Menu Bar"));
    const auto bars = fakeObject(L"Bars");
    bars->value(L"Count", variant(int32_t{2}))->function(L"Item", [&](const std::vector<variant>& arguments) {
        if (arguments.at(0).asLong() == 2)
            throw Error(errorInvalidCall);
        return asVariant(first);
    });
    reportBars(bars.get(), 13);
    ASSERT_EQ(lines("host bars: ").size(), 1u);
    EXPECT_TRUE(lines("host bars: ").front().starts_with("1 \"Menu Bar\", 2 ("));
    EXPECT_TRUE(lines("host bars: ").front().ends_with("); the entry goes to 13"));
}

TEST_F(HostReportTest, wordsOfTheHost_endWhereTheirQuotesDo)
{
    const auto odd = fakeObject(L"Bar");
    odd->value(L"Name", variant(L"a\", 13 \"b\r\nc"));
    const auto bars = fakeObject(L"Bars");
    bars->value(L"Count", variant(int32_t{2}))->function(L"Item", [&](const std::vector<variant>& arguments) {
        if (arguments.at(0).asLong() == 2)
            throw Error(errorInvalidCall);
        return asVariant(odd);
    });
    reportBars(bars.get(), 13);
    EXPECT_THAT(
        lines("host bars: "),
        ElementsAre("1 \"a\"\", 13 \"\"b??c\", 2 (\"Invalid procedure call or argument\"); the entry goes to 13"));
}

TEST_F(HostReportTest, hostWithoutBars_isToldSo)
{
    const auto bars = fakeObject(L"Bars");
    bars->value(L"Count", variant(int32_t{0}));
    reportBars(bars.get(), 13);
    EXPECT_THAT(lines("host bars: "), ElementsAre("none; the entry goes to 13"));
}

TEST_F(HostReportTest, coarserLog_asksNothing)
{
    openAt(trace::Level::failures);
    const auto bars = fakeObject(L"Bars", &journal);
    bars->value(L"Count", variant(int32_t{0}));
    reportHost(HostObject::CommandBars, bars.get());
    reportBars(bars.get(), 13);
    EXPECT_THAT(lines(), IsEmpty());
    EXPECT_THAT(lines("host bars: "), IsEmpty());
    EXPECT_EQ(bars->namesAsked(), 0);
}

} // namespace
} // namespace velk
