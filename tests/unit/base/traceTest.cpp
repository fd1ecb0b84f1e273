#include "base/trace.h"

#include "base/win32.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace velk {
namespace {

// What another host's add-in does with the same log: it keeps the file open, and lets others write and move it.
class OtherHost {
public:
    OtherHost()
        : m_file(CreateFileW(L"trace.log", FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                             nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr))
    {
    }
    OtherHost(const OtherHost&) = delete;
    OtherHost& operator=(const OtherHost&) = delete;
    ~OtherHost() { CloseHandle(m_file); }
    size_t logSize() const { return GetFileSize(m_file, nullptr); }

private:
    HANDLE m_file;
};

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
    static void writeLines(int count)
    {
        const std::wstring line(10000, L'x');
        for (int number = 0; number < count; ++number)
            trace::write(trace::Level::failures, line);
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
    writeLines(400);
    EXPECT_LT(content("trace.log").size(), 1100000u);
    EXPECT_LT(content("trace.log.old").size(), 1100000u);
    EXPECT_GT(content("trace.log.old").size(), 1000000u);
}

TEST_F(TraceTest, logThatAnotherHostHasOpen_isPutAsideAtItsLimit)
{
    const OtherHost other;
    trace::open(L"trace.log", trace::Level::failures, L"first");
    writeLines(150);
    EXPECT_TRUE(trace::isOn(trace::Level::failures));
    EXPECT_GT(content("trace.log.old").size(), 1000000u);
    EXPECT_EQ(other.logSize(), content("trace.log.old").size());
    EXPECT_LT(content("trace.log").size(), 600000u);
}

TEST_F(TraceTest, limitReachedTwiceUnderAnotherHost_staysBounded)
{
    const OtherHost other;
    trace::open(L"trace.log", trace::Level::failures, L"first");
    writeLines(400);
    EXPECT_GT(content("trace.log.old").size(), 1000000u);
    EXPECT_LT(content("trace.log.old").size(), 1100000u);
    EXPECT_LT(content("trace.log").size(), 1100000u);
}

TEST_F(TraceTest, logThatAnotherHostPutAside_isGivenUpForTheNewOneAtItsLimit)
{
    trace::open(L"trace.log", trace::Level::failures, L"first");
    ASSERT_TRUE(MoveFileExW(L"trace.log", L"trace.log.old", MOVEFILE_REPLACE_EXISTING));
    const OtherHost other;
    writeLines(150);
    EXPECT_TRUE(trace::isOn(trace::Level::failures));
    EXPECT_LT(content("trace.log.old").size(), 1100000u);
    EXPECT_NE(content("trace.log").find("xxx"), std::string::npos);
    EXPECT_LT(content("trace.log").size(), 600000u);
}

TEST_F(TraceTest, fileThatCannotBeWritten_turnsTheLogOff)
{
    trace::open(L"no such folder\\trace.log", trace::Level::calls, L"first");
    EXPECT_FALSE(trace::isOn(trace::Level::failures));
}

} // namespace
} // namespace velk
