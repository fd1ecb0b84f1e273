#include "addin/RZCommandBars.h"
#include "support/failureLog.h"
#include "support/fakeBackend.h"

#include <gmock/gmock.h>

namespace velk {
namespace {

using Calls = std::vector<std::string>;
using testing::ElementsAre;

class LaunchActionTest : public testing::Test {
protected:
    Calls callsOf(const std::wstring& action)
    {
        backend.calls.clear();
        launchAction(action);
        return backend.calls;
    }

    test::FakeBackend backend;
};

TEST_F(LaunchActionTest, numbersOfTheTools_launchTheToolOfThatNumber)
{
    for (const char* number : {"1", "3", "4", "5", "6", "7", "8", "10", "12"})
        EXPECT_THAT(callsOf(std::wstring(number, number + strlen(number))),
                    ElementsAre(std::string("RZLaunchVelkTool(") + number + ")"));
}

TEST_F(LaunchActionTest, number2_launchesTheApplicationWithItsArgumentText)
{
    EXPECT_EQ(callsOf(L"2"), Calls{"RZLaunchApp(2, \"-ccf\")"});
}

TEST_F(LaunchActionTest, textThatIsNoNumber_endsWithoutACallOfTheBackend)
{
    test::FailureLog failures;
    EXPECT_EQ(callsOf(L"velkviadd.Connect"), Calls{});
    EXPECT_EQ(callsOf(L""), Calls{});
    EXPECT_THAT(failures.lines, ElementsAre(L"launchAction: 13", L"launchAction: 13"));
}

TEST_F(LaunchActionTest, number30_showsTheAboutBoxWithoutACallOfTheBackend)
{
    static bool wasShown;
    wasShown = false;
    backend.texts[600] = L"About Rozel";
    struct Close {
        static void CALLBACK fire(HWND, UINT, UINT_PTR id, DWORD)
        {
            if (const HWND box = FindWindowW(L"#32770", L"About Rozel")) {
                KillTimer(nullptr, id);
                wasShown = IsWindowVisible(box) != FALSE;
                PostMessageW(box, WM_CLOSE, 0, 0);
            }
        }
    };
    SetTimer(nullptr, 0, 20, Close::fire);
    EXPECT_EQ(callsOf(L"30"), Calls{});
    EXPECT_TRUE(wasShown);
}

} // namespace
} // namespace velk
