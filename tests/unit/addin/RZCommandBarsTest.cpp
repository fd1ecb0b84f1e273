#include "addin/RZCommandBars.h"
#include "addin/IMgrVI.h"
#include "fakeBars.h"
#include "serverview/serverViewDoc.h"
#include "support/fakeBackend.h"
#include "ui/splashscrnFrm.h"

#include <gmock/gmock.h>

namespace velk {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

// Everything is built by the integration manager, as at the end of a start.
class RZCommandBarsTest : public testing::Test {
protected:
    RZCommandBarsTest()
    {
        backend.numbersAsTexts = true;
        manager->setupIM(ide.dte.get(), ide.addin.get());
    }
    ~RZCommandBarsTest() override
    {
        manager->deleteRZUI();
        serverViewWindow() = {};
    }
    bool isToolbarVisible() { return bars.toolbar->read(L"Visible").asBool(); }

    test::FakeBackend backend;
    test::FakeIde ide;
    test::FakeBars bars{ide, L"#201"};
    com_ptr<IMgrVI> manager = makeObject<IMgrVI>();
};

TEST_F(RZCommandBarsTest, nothingRefused_everyEntryIsMade)
{
    EXPECT_EQ(manager->createRZUI(), S_OK);
    EXPECT_THAT(bars.buttons.captions(), ElementsAre(L"#301", L"#303", L"#304", L"#305", L"#302", L"#314", L"#306"));
    EXPECT_THAT(bars.menu.captions(),
                ElementsAre(L"#202", L"#206", L"#208", L"#209", L"#210", L"#207", L"#219", L"#212", L"#211", L"#213"));
    EXPECT_THAT(bars.views.captions(), ElementsAre(L"#203", L"#204"));
}

TEST_F(RZCommandBarsTest, building_asksTheIdeOnceForWhatStaysTheSame)
{
    ide.journal.clear();
    bars.menus.journal.clear();
    EXPECT_EQ(manager->createRZUI(), S_OK);
    EXPECT_THAT(ide.journal, testing::Contains(L"DTE.Events").Times(1));
    EXPECT_THAT(ide.journal, testing::Contains(L"DTE.CommandBars").Times(1));
    EXPECT_THAT(ide.journal, testing::Contains(L"CommandBars.ActiveMenuBar").Times(1));
    EXPECT_THAT(bars.buttons.journal, testing::Contains(L"Toolbar.Controls").Times(1));
    EXPECT_THAT(bars.menus.journal, testing::Contains(L"Control.Controls").Times(3)); // views, tools and help extend it
}

TEST_F(RZCommandBarsTest, shownView_enablesAndShowsTheThreeEntriesOfTheViews)
{
    manager->createRZUI();
    const std::vector<com_ptr<test::FakeObject>> views{bars.menu.made.at(0), bars.views.made.at(0),
                                                       bars.views.made.at(1)};
    for (const com_ptr<test::FakeObject>& view : views)
        view->value(L"Enabled", variant(false))->value(L"Visible", variant(false));
    manager->showDevView();
    for (const com_ptr<test::FakeObject>& view : views) {
        EXPECT_TRUE(view->read(L"Enabled").asBool());
        EXPECT_TRUE(view->read(L"Visible").asBool());
    }
}

TEST_F(RZCommandBarsTest, viewsThatCannotBeAdded_leaveToolsAndHelp)
{
    bars.menu.refused = 1;
    EXPECT_EQ(manager->createRZUI(), S_OK);
    EXPECT_THAT(bars.menu.captions(),
                ElementsAre(L"#206", L"#208", L"#209", L"#210", L"#207", L"#219", L"#212", L"#211", L"#213"));
}

TEST_F(RZCommandBarsTest, toolThatCannotBeAdded_leavesViewsAndHelp)
{
    bars.menu.refused = 4;
    EXPECT_EQ(manager->createRZUI(), S_OK);
    EXPECT_THAT(bars.menu.captions(), ElementsAre(L"#202", L"#206", L"#208", L"#212", L"#211", L"#213"));
    EXPECT_THAT(bars.views.captions(), ElementsAre(L"#203", L"#204"));
}

TEST_F(RZCommandBarsTest, helpThatCannotBeAdded_leavesViewsAndTools)
{
    bars.menu.refused = 8;
    EXPECT_EQ(manager->createRZUI(), S_OK);
    EXPECT_THAT(bars.menu.captions(), ElementsAre(L"#202", L"#206", L"#208", L"#209", L"#210", L"#207", L"#219"));
    EXPECT_THAT(bars.views.captions(), ElementsAre(L"#203", L"#204"));
}

TEST_F(RZCommandBarsTest, toolbarButtonThatCannotBeAdded_leavesTheToolbarVisibleAndTheMenuWhole)
{
    bars.buttons.refused = 3;
    EXPECT_EQ(manager->createRZUI(), S_OK);
    EXPECT_THAT(bars.buttons.captions(), ElementsAre(L"#301", L"#303"));
    EXPECT_TRUE(isToolbarVisible());
    EXPECT_THAT(bars.menu.captions(), SizeIs(10));
}

} // namespace
} // namespace velk
