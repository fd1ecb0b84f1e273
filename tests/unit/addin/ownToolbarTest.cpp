#include "addin/ownToolbar.h"

#include "addin/RZCommandBars.h"
#include "fakeBars.h"
#include "support/fakeBackend.h"

#include <gmock/gmock.h>

namespace velk {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Key;
using testing::Not;
using testing::SizeIs;

// Text 300 names the toolbar "#300".
class OwnToolbarTest : public testing::Test {
protected:
    OwnToolbarTest() { backend.numbersAsTexts = true; }
    void takeNames(std::initializer_list<const wchar_t*> names)
    {
        for (const wchar_t* name : names)
            bars.putBar(name, old, {L"mine"});
    }
    // Whether the toolbar that can be added has the buttons.
    bool isBesideIt() const { return bars.buttons.made.size() == 7; }

    test::FakeBackend backend;
    test::FakeIde ide;
    test::FakeControls old;
    test::FakeControls older;
    test::FakeBars bars{ide, L"#201"};
    RZCommandBars own{ide.dte.get()};
};

TEST_F(OwnToolbarTest, noBarOfItsName_isAddedAtTheTopForThisSession)
{
    own.addToolbar();
    EXPECT_THAT(ide.journal, Contains(L"CommandBars.Add(\"#300\", 1, False, True)"));
    EXPECT_TRUE(isBesideIt());
}

TEST_F(OwnToolbarTest, buttons_bearItsTag)
{
    own.addToolbar();
    EXPECT_EQ(bars.buttons.made.front()->read(L"Tag").asText(), L"velkviadd");
    EXPECT_EQ(bars.buttons.made.back()->read(L"Tag").asText(), L"velkviadd");
}

TEST_F(OwnToolbarTest, buttonThatTakesNoTag_isMadeAllTheSame)
{
    bars.controlsFail = L"Tag";
    own.addToolbar();
    EXPECT_THAT(bars.buttons.made, SizeIs(7));
}

TEST_F(OwnToolbarTest, barThatACrashLeft_isEmptiedAndUsedAgain)
{
    bars.putBar(L"#300", old, {ownControlTag, ownControlTag});
    own.addToolbar();
    EXPECT_THAT(old.captions(), ElementsAre(L"#301", L"#303", L"#304", L"#305", L"#302", L"#314", L"#306"));
    EXPECT_THAT(old.journal, Contains(L"Control.Delete(True)").Times(2));
    EXPECT_THAT(bars.named, ElementsAre(Key(L"#300")));
}

TEST_F(OwnToolbarTest, barThatACrashLeft_isMadeVisible)
{
    const auto bar = bars.putBar(L"#300", old, {ownControlTag});
    own.addToolbar();
    EXPECT_TRUE(bar->read(L"Visible").asBool());
}

TEST_F(OwnToolbarTest, builtInBar_isLeftAlone)
{
    bars.putBar(L"#300", old, {ownControlTag})->value(L"BuiltIn", variant(true));
    own.addToolbar();
    EXPECT_THAT(old.made, SizeIs(1));
    EXPECT_THAT(ide.journal, Contains(L"CommandBars.Add(\"#300 (2)\", 1, False, True)"));
    EXPECT_TRUE(isBesideIt());
}

TEST_F(OwnToolbarTest, barOfTheUsersOwn_isLeftAlone)
{
    bars.putBar(L"#300", old, {L"", L"mine"});
    own.addToolbar();
    EXPECT_THAT(old.made, SizeIs(2));
    EXPECT_TRUE(isBesideIt());
}

class UsersBar : public OwnToolbarTest, public testing::WithParamInterface<std::vector<const wchar_t*>> {};

TEST_P(UsersBar, withACopyOfOneOfItsButtons_isLeftAlone)
{
    bars.putBar(L"#300", old, GetParam());
    own.addToolbar();
    EXPECT_THAT(old.made, SizeIs(2));
    EXPECT_TRUE(isBesideIt());
}

INSTANTIATE_TEST_SUITE_P(eachPlace, UsersBar,
                         testing::Values(std::vector<const wchar_t*>{L"", ownControlTag},
                                         std::vector<const wchar_t*>{ownControlTag, L""}));

TEST_F(OwnToolbarTest, emptyBar_isNotTakenForItsOwn)
{
    bars.putBar(L"#300", old, {});
    own.addToolbar();
    EXPECT_THAT(old.made, IsEmpty());
    EXPECT_TRUE(isBesideIt());
}

TEST_F(OwnToolbarTest, barThatDoesNotTell_isLeftAlone)
{
    bars.putBar(L"#300", old, {ownControlTag})->failing(L"BuiltIn", Error(errorPermissionDenied));
    own.addToolbar();
    EXPECT_THAT(old.made, SizeIs(1));
    EXPECT_TRUE(isBesideIt());
}

TEST_F(OwnToolbarTest, numberedBarThatACrashLeft_isUsedAgainToo)
{
    bars.putBar(L"#300", old, {L"mine"});
    bars.putBar(L"#300 (2)", older, {ownControlTag});
    own.addToolbar();
    EXPECT_THAT(old.made, SizeIs(1));
    EXPECT_THAT(older.made, SizeIs(7));
    EXPECT_THAT(bars.buttons.made, IsEmpty());
}

TEST_F(OwnToolbarTest, allNumbersTaken_failsAndChangesNothing)
{
    takeNames({L"#300", L"#300 (2)", L"#300 (3)", L"#300 (4)", L"#300 (5)", L"#300 (6)", L"#300 (7)", L"#300 (8)",
               L"#300 (9)"});
    EXPECT_THROW(own.addToolbar(), Error);
    EXPECT_THAT(old.made, SizeIs(9));
    EXPECT_THAT(ide.journal, Not(Contains(testing::StartsWith(L"CommandBars.Add("))));
}

TEST_F(OwnToolbarTest, sessionThatEndsWhileTheBarIsLookedFor_makesNone)
{
    const Session session;
    ide.bars->function(L"Item", [session](const auto&) -> variant {
        session.enter(SessionState::ending);
        throw Error(errorInvalidCall);
    });
    EXPECT_THROW(ownToolbar(ide.bars.get(), L"#300", session), Error);
    EXPECT_THAT(ide.journal, Not(Contains(testing::StartsWith(L"CommandBars.Add("))));
}

TEST_F(OwnToolbarTest, sessionThatEndsWhileTheBarTellsWhoseItIs_leavesItsButtons)
{
    const Session session;
    bars.putBar(L"#300", old, {ownControlTag, ownControlTag})->function(L"BuiltIn", [session](const auto&) {
        session.enter(SessionState::ending);
        return variant(false);
    });
    EXPECT_THROW(ownToolbar(ide.bars.get(), L"#300", session), Error);
    EXPECT_THAT(old.made, SizeIs(2));
}

TEST_F(OwnToolbarTest, removal_deletesEachEntryForThisSessionAndTheToolbar)
{
    own.addToolbar();
    own.addHelp();
    own.remove();
    EXPECT_THAT(bars.buttons.journal, Contains(L"Control.Delete(True)").Times(7));
    EXPECT_THAT(bars.menu.journal, Contains(L"Control.Delete(True)").Times(3));
    EXPECT_THAT(bars.deleted, ElementsAre(L"#300"));
}

TEST_F(OwnToolbarTest, removal_leavesTheUsersBarOfItsName)
{
    bars.putBar(L"#300", old, {L"mine"});
    own.addToolbar();
    own.remove();
    EXPECT_THAT(bars.deleted, ElementsAre(L"#300 (2)"));
    EXPECT_THAT(old.made, SizeIs(1));
}

TEST_F(OwnToolbarTest, entryThatCannotBeDeleted_doesNotKeepTheOthers)
{
    own.addToolbar();
    bars.buttons.made.at(3)->failing(L"Delete", Error(errorPermissionDenied));
    own.remove();
    EXPECT_THAT(bars.buttons.made, SizeIs(1));
    EXPECT_THAT(bars.deleted, ElementsAre(L"#300"));
}

} // namespace
} // namespace velk
