// The stand-in Backend on a project over PostgreSQL, checked as anybody's library.
#include "ideRun.h"
#include "support/folders.h"

#include "devkit/backend/systemFile.h"

namespace velk {
namespace {

class PostgresCheckerTest : public test::IdeRun {
protected:
    PostgresCheckerTest() { test::copyTree(devkit::environmentText(L"VELK_POSTGRES_SAMPLE"), path(L"")); }
    ~PostgresCheckerTest() override { SetEnvironmentVariableW(L"VELK_BACKEND_PUMP", nullptr); }
};

TEST_F(PostgresCheckerTest, standIn_passesLevelTen)
{
    SetEnvironmentVariableW(L"VELK_BACKEND_PUMP", L"1");
    EXPECT_EQ(runProgram(L"\"..\\..\\bin\\velkcheck.exe\" --quiet --level 10 --patience 300 --sessions 25 --steps "
                         L"600 \"" +
                         path(L"velkvsadd.dll") + L"\" \"" + path(L"rz\\orders.rzv") + L"\""),
              0u)
        << output;
}

} // namespace
} // namespace velk
