#include "pumpFixture.h"

namespace velk {
namespace {

using test::Lines;

class HandleTextTest : public test::PumpFixture {};

// A word that the process's code page has.
std::wstring foreignWord()
{
    return GetACP() == 1252 ? L"Gr\u00F6\u00DFe" : L"\x8868\x793A";
}

TEST_F(HandleTextTest, taskCompleteWithButtons_restoresAndShowsNoPrompt)
{
    backend.prompt(L"RZ_TASK_COMPLETE", 1, L"IDE_QUESTION#67#Title");
    pump->timerThread_Timer();
    EXPECT_EQ(journal, Lines{L"restoreVSAppWinState"});
    EXPECT_EQ(messages, Lines{});
}

TEST_F(HandleTextTest, commandWordInOtherCase_isNoCommand)
{
    backend.prompt(L"rz_task_complete", 1, L"");
    pump->timerThread_Timer();
    EXPECT_EQ(journal, Lines{});
}

TEST_F(HandleTextTest, textThatOnlyBeginsAsACommandWord_isNoCommand)
{
    backend.prompt(L"RZ_TASK_COMPLETE now", 1, L"");
    pump->timerThread_Timer();
    EXPECT_EQ(journal, Lines{});
}

TEST_F(HandleTextTest, unknownTextOfType1WithoutButtons_doesNothing)
{
    backend.prompt(L"hello", 1, L"");
    pump->timerThread_Timer();
    EXPECT_EQ(messages, Lines{});
    EXPECT_EQ(journal, Lines{});
}

TEST_F(HandleTextTest, textOfType2_doesNothing)
{
    backend.prompt(L"hello", 2, L"IDE_QUESTION#67#Title");
    pump->timerThread_Timer();
    EXPECT_EQ(messages, Lines{});
}

TEST_F(HandleTextTest, initComplete_showsText646AndOpensTheProject)
{
    backend.prompt(L"RZ_INIT_COMPLETE", 1, L"");
    pump->timerThread_Timer();
    EXPECT_TRUE(isSplashScreenLoaded());
    EXPECT_EQ(journal, Lines{L"openRZProject"});
}

TEST_F(HandleTextTest, failingManagerInATextHandler_showsNothing)
{
    manager->failWith = E_FAIL;
    backend.prompt(L"MINIMIZE_MSWIN", 1, L"");
    pump->timerThread_Timer();
    EXPECT_EQ(messages, Lines{});
}

TEST_F(HandleTextTest, projectThatCannotBeOpened_takesTheSplashScreenAway)
{
    manager->failWith = E_FAIL;
    backend.prompt(L"RZ_INIT_COMPLETE", 1);
    pump->timerThread_Timer();
    EXPECT_EQ(journal, Lines{L"openRZProject"});
    EXPECT_FALSE(isSplashScreenLoaded());
}

TEST_F(HandleTextTest, unknownTextWithoutButtonsOrOfTypeTwo_doesNothing)
{
    backend.prompt(L"RZ_ELEPHANT", 1);
    backend.prompt(L"RZ_TASK_COMPLETE", 2);
    pump->timerThread_Timer();
    EXPECT_EQ(messages, Lines{});
    EXPECT_EQ(journal, Lines{});
}

TEST_F(HandleTextTest, messageOutsideAscii_arrivesInTheProcessesCodePage)
{
    backend.prompt(foreignWord() + L"\r\n" + foreignWord(), 3);
    pump->timerThread_Timer();
    EXPECT_EQ(messages, Lines{foreignWord() + L"\r\n" + foreignWord() + L"|velkviadd"});
}

TEST_F(HandleTextTest, messageOf64Kilobytes_isShownWhole)
{
    backend.prompt(std::wstring(65536, L'x'), 3);
    pump->timerThread_Timer();
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_EQ(messages[0].size(), 65536u + 10u);
}

TEST_F(HandleTextTest, initComplete_showsItsTextBeforeTheProjectIsOpened)
{
    splashScreen().setProgressBarInterval(6);
    std::wstring shown(64, L'\0');
    manager->onOpenRZProject = [&] { GetWindowTextW(splashScreen().statusLbl(), shown.data(), 64); };
    backend.prompt(L"RZ_INIT_COMPLETE", 1);
    pump->timerThread_Timer();
    EXPECT_STREQ(shown.c_str(), L"Opening");
}

TEST_F(HandleTextTest, messageOfType3_hasNoIconAndOnlyOk)
{
    backend.prompt(L"a message", 3, L"IDE_CRITICAL#67#Title");
    pump->timerThread_Timer();
    EXPECT_EQ(styles, std::vector<uint32_t>{0});
}

} // namespace
} // namespace velk
