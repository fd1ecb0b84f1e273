#include "ideFixture.h"

namespace velk::devkit {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class AutomatedTest : public IdeFixture {};

TEST_F(AutomatedTest, read_isWrittenDownWithItsValue)
{
    automation::get(automation::getObject(root, L"Solution"), L"Count");
    EXPECT_THAT(recorder().lines(), ElementsAre(L"DTE.Solution -> Solution", L"Solution.Count -> 0"));
}

TEST_F(AutomatedTest, assignment_isWrittenDown)
{
    const auto button = addButton();
    recorder().clear();
    automation::put(button, L"Caption", variant(L"Go"));
    EXPECT_THAT(recorder().lines(), ElementsAre(L"CommandBarButton \"\".Caption = \"Go\""));
}

TEST_F(AutomatedTest, failure_isWrittenDownAndRaised)
{
    EXPECT_EQ(failureOf([&] { bar(99); }), 5);
    EXPECT_THAT(recorder().lines(), Contains(L"CommandBars.Item(99) failed: Invalid procedure call or argument"));
}

TEST_F(AutomatedTest, useByTheIdeItself_leavesNoLine)
{
    dte->solution->open(L"C:\\a.sln");
    EXPECT_THAT(recorder().lines(), IsEmpty());
}

TEST_F(AutomatedTest, unknownMember_isErrorFourHundredThirtyEight)
{
    EXPECT_EQ(failureOf([&] { automation::get(root, L"Elephant"); }), errorNoSuchMember);
}

TEST_F(AutomatedTest, readOnlyMember_cannotBeAssigned)
{
    EXPECT_EQ(failureOf([&] { automation::put(automation::getObject(root, L"Solution"), L"Count", variant(2)); }),
              errorNoSuchMember);
}

TEST_F(AutomatedTest, memberToldToBeMissing_isUnknown)
{
    recorder().setMissing(L"DTE.Solution,Window.SetFocus");
    EXPECT_FALSE(automation::hasMember(root.get(), L"Solution"));
}

TEST_F(AutomatedTest, memberToldToFail_isKnownAndFails)
{
    recorder().setFailing(L"DTE.Solution");
    EXPECT_TRUE(automation::hasMember(root.get(), L"Solution"));
    EXPECT_EQ(failureOf([&] { automation::get(root, L"Solution"); }), errorUnsupportedAction);
}

TEST_F(AutomatedTest, collection_isEnumerated)
{
    const variant all = automation::get(bars(), L"_NewEnum");
    const auto items = com_ptr<IUnknown>(all.get().punkVal).tryAs<IEnumVARIANT>();
    ASSERT_TRUE(items);
    variant first;
    ULONG fetched = 0;
    EXPECT_EQ(items->Next(1, first.put(), &fetched), S_OK);
    EXPECT_EQ(first.asObject(), bar(1));
}

TEST_F(AutomatedTest, argumentOfAWrongKind_isATypeMismatch)
{
    EXPECT_EQ(failureOf([&] { automation::put(bar(13), L"Visible", variant(L"perhaps")); }), errorTypeMismatch);
}

} // namespace
} // namespace velk::devkit
