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

TEST_F(LogLinesTest, fileThatIsNotThere_hasNone)
{
    EXPECT_THAT(logLines(path, 100), IsEmpty());
    EXPECT_THAT(lastReportOfHost(path), IsEmpty());
}

TEST_F(LogLinesTest, reportOfTheLastConnection_isTheOneThatCounts)
{
    write("logLines.log",
          "t host members: DTE has Events; lacks Solution\r\nt host bars: none; the entry goes to 13\r\n"
          "t host: Count\r\nt host members: DTE has Events Solution; lacks none\r\n"
          "t host members: Solution has Count; lacks FullName\r\n");
    EXPECT_THAT(lastReportOfHost(path), ElementsAre(L"host members: DTE has Events Solution; lacks none",
                                                    L"host members: Solution has Count; lacks FullName"));
}

TEST_F(LogLinesTest, logThatWasBegunAnew_isReadOnFromTheOneBefore)
{
    write("logLines.log.old", "t host members: DTE has Events; lacks none\r\n");
    write("logLines.log", "t host members: Solution has Count; lacks none\r\n");
    EXPECT_THAT(lastReportOfHost(path), ElementsAre(L"host members: DTE has Events; lacks none",
                                                    L"host members: Solution has Count; lacks none"));
}

} // namespace
} // namespace velk::doctor
