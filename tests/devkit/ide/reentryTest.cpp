#include "devkit/ide/reentry.h"
#include "devkit/ide/reentryActions.h"
#include "ideFixture.h"

namespace velk::devkit {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Pair;

constexpr UINT wakeUp = WM_APP + 77;

class ReentryTest : public IdeFixture {
protected:
    ReentryTest() { reentry().count(); }
    ~ReentryTest() override
    {
        reentry().count();
        reentry().setPumping(false);
        reentry().setObserver(nullptr);
    }

    // How often the action ran when a member is used twice.
    int runsAt(const wchar_t* place)
    {
        int runs = 0;
        reentry().plan(*callPlace(place), [&] { ++runs; });
        automation::get(root, L"Solution");
        automation::get(root, L"Solution");
        return runs;
    }
    static bool isWaiting()
    {
        MSG message{};
        return PeekMessageW(&message, nullptr, wakeUp, wakeUp, PM_NOREMOVE) != FALSE;
    }
};

TEST_F(ReentryTest, placeAsText_isReadAndWritten)
{
    EXPECT_EQ(*callPlace(L"RZInitialize#2"), (CallPlace{L"RZInitialize", 2, CallMoment::begins}));
    EXPECT_EQ(*callPlace(L"Window.Visible=#1.end"), (CallPlace{L"Window.Visible=", 1, CallMoment::ends}));
    EXPECT_EQ(placeText({L"Window.Visible=", 1, CallMoment::ends}), L"Window.Visible=#1.end");
}

TEST_F(ReentryTest, textThatIsNoPlace_isRefused)
{
    EXPECT_FALSE(callPlace(L"RZInitialize"));
    EXPECT_FALSE(callPlace(L"RZInitialize#0"));
    EXPECT_FALSE(callPlace(L"#1"));
}

TEST_F(ReentryTest, members_areCountedByClassAndNameAndWhetherTheyAreSet)
{
    const auto button = addButton();
    automation::put(button, L"Caption", variant(L"Go"));
    automation::get(button, L"Caption");
    EXPECT_THAT(reentry().counts(), Contains(Pair(L"CommandBarControl.Caption=", 1)));
    EXPECT_THAT(reentry().counts(), Contains(Pair(L"CommandBarControl.Caption", 1)));
}

TEST_F(ReentryTest, action_runsOnceAtTheUseThatWasChosen)
{
    EXPECT_EQ(runsAt(L"DTE.Solution#2"), 1);
    EXPECT_TRUE(reentry().wasReached());
    EXPECT_EQ(runsAt(L"DTE.Solution#1.end"), 1);
}

TEST_F(ReentryTest, placeThatIsNotComeTo_isNotReached)
{
    EXPECT_EQ(runsAt(L"DTE.Solution#3"), 0);
    EXPECT_FALSE(reentry().wasReached());
}

TEST_F(ReentryTest, momentOfAnAssignment_isBeforeOrAfterItsWork)
{
    const auto button = addButton();
    std::vector<std::wstring> seen;
    const auto look = [&] { seen.push_back(automation::get(button, L"Caption").asText()); };
    reentry().plan(*callPlace(L"CommandBarControl.Caption=#1"), look);
    automation::put(button, L"Caption", variant(L"Go"));
    reentry().plan(*callPlace(L"CommandBarControl.Caption=#1.end"), look);
    automation::put(button, L"Caption", variant(L"Stop"));
    EXPECT_THAT(seen, ElementsAre(L"", L"Stop"));
}

TEST_F(ReentryTest, actionThatThrows_leavesTheCallAsItIs)
{
    reentry().plan(*callPlace(L"Solution.Count#1"), [] { throw Error(errorInvalidCall); });
    EXPECT_EQ(automation::get(automation::getObject(root, L"Solution"), L"Count").asLong(), 0);
}

TEST_F(ReentryTest, pumping_worksOffTheThreadsMessagesInsideAMember)
{
    PostThreadMessageW(GetCurrentThreadId(), wakeUp, 0, 0);
    automation::get(root, L"Solution");
    EXPECT_TRUE(isWaiting());
    reentry().setPumping(true);
    automation::get(root, L"Solution");
    EXPECT_FALSE(isWaiting());
}

TEST_F(ReentryTest, requestToEndTheProgram_staysForItsOwnLoop)
{
    PostQuitMessage(7);
    pumpMessages();
    MSG message{};
    EXPECT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
    EXPECT_EQ(message.wParam, 7u);
}

class ReentryActionTest : public IdeFixture {
protected:
    void run(const wchar_t* action) { reentryAction(action)->run(shell); }
    CommandBarControl& addEntry(const std::wstring& caption, const wchar_t* action)
    {
        CommandBar& bar = *shell.dte().bars->find(L"Add-Ins");
        bar.addCommand(caption, [this, caption] { clicked.push_back(caption); });
        bar.findCaption(caption)->onAction = action;
        return *bar.findCaption(caption);
    }

    std::vector<std::wstring> clicked;
    Shell shell{true};
};

TEST_F(ReentryActionTest, unknownName_isNone)
{
    EXPECT_EQ(reentryAction(L"elephant"), nullptr);
}

TEST_F(ReentryActionTest, click_reachesEnabledEntriesWithAnActionOnly)
{
    addEntry(L"plain", L"");
    addEntry(L"with an action", L"x");
    addEntry(L"disabled", L"x").enabled = false;
    run(L"click");
    EXPECT_THAT(clicked, ElementsAre(L"with an action"));
}

TEST_F(ReentryActionTest, closeWindow_leavesTheIdesOwnWindows)
{
    const size_t own = shell.dte().windows->open().size();
    const auto pane = std::make_shared<ToolPane>(nullptr, L"Tool");
    const auto window = shell.dte().windows->add(windowTool, pane->hwnd(), L"Tool");
    window->pane = pane;
    window->owner = &shell.dte();
    run(L"close-window");
    EXPECT_FALSE(window->isOpen());
    EXPECT_EQ(shell.dte().windows->open().size(), own);
}

TEST_F(ReentryActionTest, closeIde_endsItsLoop)
{
    run(L"close-ide");
    MSG message{};
    EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
}

} // namespace
} // namespace velk::devkit
