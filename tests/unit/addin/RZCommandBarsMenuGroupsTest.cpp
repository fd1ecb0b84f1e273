// The menu that the groups of entries extend.
#include "addin/RZCommandBars.h"
#include "fakeBars.h"
#include "support/fakeBackend.h"

#include <gmock/gmock.h>

namespace velk {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class MenuGroupsTest : public testing::Test {
protected:
    MenuGroupsTest() { backend.numbersAsTexts = true; }

    test::FakeBackend backend;
    test::FakeIde ide;
    test::FakeBars bars{ide, L"&rOZEL"};
    RZCommandBars own{ide.dte.get()};
};

TEST_F(MenuGroupsTest, menuWithOtherMarksAndInOtherLetters_isTheOne)
{
    backend.texts[201] = L"Ro&zel";
    own.addHelp();
    EXPECT_THAT(bars.menu.made, SizeIs(3));
    EXPECT_THAT(bars.menus.made, SizeIs(1));
}

TEST_F(MenuGroupsTest, menuThatOnlyBeginsLikeIt_isNotTheOne)
{
    backend.texts[201] = L"Roze";
    own.addHelp();
    EXPECT_THAT(bars.menu.made, IsEmpty());
}

TEST_F(MenuGroupsTest, missingMenu_isAddedForThisSessionWithItsCaption)
{
    backend.texts[201] = L"&Database";
    own.addHelp();
    EXPECT_THAT(bars.menus.captions(), ElementsAre(L"&rOZEL", L"&Database"));
    EXPECT_THAT(bars.menus.journal, Contains(L"Controls.Add(Type:=10, temporary:=True)"));
    EXPECT_THAT(bars.views.captions(), ElementsAre(L"#212", L"#211", L"#213"));
}

TEST_F(MenuGroupsTest, menuThatOneGroupAdded_isFoundByTheNext)
{
    backend.texts[201] = L"&Database";
    own.addTools();
    own.addHelp();
    EXPECT_THAT(bars.menus.made, SizeIs(2));
}

TEST_F(MenuGroupsTest, eachGroup_asksForTheNameAnew)
{
    backend.texts[201] = L"Rozel";
    own.addTools();
    backend.texts[201] = L"Database";
    own.addHelp();
    EXPECT_THAT(bars.menu.made, SizeIs(6));
    EXPECT_THAT(bars.menus.captions(), ElementsAre(L"&rOZEL", L"Database"));
}

TEST_F(MenuGroupsTest, viewsGroup_asksForTheNameAsWell)
{
    backend.texts[201] = L"Database";
    own.addViews();
    EXPECT_THAT(bars.menu.made, IsEmpty());
    EXPECT_THAT(bars.menus.captions(), ElementsAre(L"&rOZEL", L"Database"));
}

TEST_F(MenuGroupsTest, removal_takesTheAddedMenuAway)
{
    backend.texts[201] = L"Database";
    own.addHelp();
    own.remove();
    EXPECT_THAT(bars.menus.captions(), ElementsAre(L"&rOZEL"));
    EXPECT_THAT(bars.views.made, IsEmpty());
}

} // namespace
} // namespace velk
