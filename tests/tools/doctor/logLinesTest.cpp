#include "doctor/logLines.h"

#include "base/win32.h"

#include <fstream>
#include <gmock/gmock.h>

namespace velk::doctor {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class LogLinesTest : public testing::Test {
protected:
    ~LogLinesTest() override
    {
        DeleteFileW(path);
        DeleteFileW(L"logLines.log.old");
    }
    static void write(const char* file, const std::string& text) { std::ofstream(file, std::ios::binary) << text; }

    static constexpr wchar_t path[] = L"logLines.log";
};

TEST_F(LogLinesTest, lines_comeWithoutTheirEnds)
{
    write("logLines.log", "one\r\ntwo\n\xC3\xA9");
    EXPECT_THAT(logLines(path, 100), ElementsAre(L"one", L"two", L"\u00e9"));
}

TEST_F(LogLinesTest, endOfALongLog_beginsWithAWholeLine)
{
    write("logLines.log", "one\r\ntwo\nsix");
    EXPECT_THAT(logLines(path, 12), ElementsAre(L"one", L"two", L"six"));
    EXPECT_THAT(logLines(path, 11), ElementsAre(L"two", L"six"));
    EXPECT_THAT(logLines(path, 7), ElementsAre(L"two", L"six"));
    EXPECT_THAT(logLines(path, 6), ElementsAre(L"six"));
    EXPECT_THAT(logLines(path, 2), IsEmpty());
}

TEST_F(LogLinesTest, fileThatIsNotThere_hasNone)
{
    EXPECT_THAT(logLines(path, 100), IsEmpty());
    EXPECT_THAT(lastReportOfHost(path), IsEmpty());
}

TEST_F(LogLinesTest, reportOfTheLastConnection_isTheOneThatCounts)
{
    write("logLines.log", "2026-11-22 08:00:00.000 host members: DTE has Events; lacks Solution\r\n2026-11-22 "
                          "08:00:00.000 host bars: none; the entry goes to 13\r\n"
                          "2026-11-22 08:00:00.000 host: Count\r\n2026-11-22 08:00:00.000 host members: DTE has Events "
                          "Solution; lacks none\r\n"
                          "2026-11-22 08:00:00.000 host members: Solution has Count; lacks FullName\r\n");
    EXPECT_THAT(lastReportOfHost(path), ElementsAre(L"host members: DTE has Events Solution; lacks none",
                                                    L"host members: Solution has Count; lacks FullName"));
}

TEST_F(LogLinesTest, failureWithTheWordsOfAReport_isNone)
{
    write("logLines.log", "2026-11-22 08:00:00.000 start: 5 (0x800A0005) host bars: none; the entry goes to 13\r\n"
                          "host members: DTE has none; lacks Events\r\n");
    EXPECT_THAT(lastReportOfHost(path), IsEmpty());
}

TEST_F(LogLinesTest, logThatWasBegunAnew_isReadOnFromTheOneBefore)
{
    write("logLines.log.old", "2026-11-22 08:00:00.000 host members: DTE has Events; lacks none\r\n");
    write("logLines.log", "2026-11-22 08:00:00.000 host members: Solution has Count; lacks none\r\n");
    EXPECT_THAT(lastReportOfHost(path), ElementsAre(L"host members: DTE has Events; lacks none",
                                                    L"host members: Solution has Count; lacks none"));
}

} // namespace
} // namespace velk::doctor
