#include "platform/trace.h"

#include "platform/win32.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace velk {
namespace {

class TraceTest : public testing::Test {
protected:
    TraceTest() { removeFiles(); }
    ~TraceTest() override
    {
        trace::close();
        removeFiles();
    }
    static void removeFiles()
    {
        DeleteFileW(L"trace.log");
        DeleteFileW(L"trace.log.old");
    }
    static std::string content(const char* file)
    {
        std::ostringstream text;
        text << std::ifstream(file, std::ios::binary).rdbuf();
        return text.str();
    }
};

TEST_F(TraceTest, withoutBeingOpened_nothingIsWritten)
{
    trace::write(trace::Level::failures, L"x");
    EXPECT_EQ(GetFileAttributesW(L"trace.log"), INVALID_FILE_ATTRIBUTES);
}

TEST_F(TraceTest, firstLine_isWrittenWithItsTime)
{
    trace::open(L"trace.log", trace::Level::failures, L"version 1");
    EXPECT_NE(content("trace.log").find(" version 1\r\n"), std::string::npos);
}

TEST_F(TraceTest, finerLines_needTheFinerLevel)
{
    trace::open(L"trace.log", trace::Level::failures, L"first");
    trace::write(trace::Level::calls, L"a call");
    EXPECT_EQ(content("trace.log").find("a call"), std::string::npos);
    trace::open(L"trace.log", trace::Level::calls, L"first");
    trace::write(trace::Level::calls, L"a call");
    EXPECT_NE(content("trace.log").find("a call"), std::string::npos);
}

TEST_F(TraceTest, fileThatGrows_isRotatedAndBounded)
{
    trace::open(L"trace.log", trace::Level::failures, L"first");
    const std::wstring line(10000, L'x');
    for (int number = 0; number < 400; ++number)
        trace::write(trace::Level::failures, line);
    EXPECT_LT(content("trace.log").size(), 1100000u);
    EXPECT_LT(content("trace.log.old").size(), 1100000u);
    EXPECT_GT(content("trace.log.old").size(), 1000000u);
}

TEST_F(TraceTest, fileThatCannotBeWritten_turnsTheLogOff)
{
    trace::open(L"no such folder\\trace.log", trace::Level::calls, L"first");
    EXPECT_FALSE(trace::isOn(trace::Level::failures));
}

} // namespace
} // namespace velk
