#include "listFixture.h"

namespace velk {
namespace {

class ListNoticeTest : public test::ListFixture {};

TEST_F(ListNoticeTest, nothingSelected_isToldInGreyByTheListItself)
{
    EXPECT_EQ(painted(), picture(ownTexts::nothingSelected));
    EXPECT_THAT(painted(), testing::Contains(GetSysColor(COLOR_GRAYTEXT)));
    EXPECT_EQ(GetWindow(list().view().hwnd(), GW_CHILD), reinterpret_cast<HWND>(list().view().send(LVM_GETHEADER)));
}

TEST_F(ListNoticeTest, projectAndConnection_tellToSelectAFolder)
{
    tree().select(L"K1");
    EXPECT_EQ(painted(), picture(ownTexts::projectSelected));
    tree().select(L"K10");
    EXPECT_EQ(painted(), picture(ownTexts::connectionSelected));
}

TEST_F(ListNoticeTest, selectedFolder_isLoadingUntilItsContentsCame)
{
    tree().select(L"K24");
    EXPECT_EQ(painted(), picture(ownTexts::loading));
    fillViews();
    EXPECT_EQ(painted(), picture(ownTexts::noObjects));
}

TEST_F(ListNoticeTest, selectedFolder_isToldWithoutARowThatChanged)
{
    paint();
    tree().select(L"K24");
    EXPECT_TRUE(isToBePainted());
    paint();
    fillViews();
    EXPECT_TRUE(isToBePainted());
}

TEST_F(ListNoticeTest, folderWithRows_tellsNothing)
{
    giveViews(1);
    tree().select(L"K24");
    fillViews();
    const auto shown = painted();
    EXPECT_NE(shown, picture(L""));
    EXPECT_THAT(shown, testing::Not(testing::Contains(GetSysColor(COLOR_GRAYTEXT))));
}

TEST_F(ListNoticeTest, filterThatLeavesNoRow_isTheReason)
{
    giveViews(1);
    tree().select(L"K24");
    fillViews();
    list().setFilter(L"nothing of that name");
    EXPECT_EQ(painted(), picture(ownTexts::noMatches));
    list().setFilter(L"");
    EXPECT_EQ(shownRows(), 1);
}

TEST_F(ListNoticeTest, lastRowThatGoes_leavesAFolderWithoutObjects)
{
    giveViews(1);
    tree().select(L"K24");
    fillViews();
    removeListRow(16, 300);
    EXPECT_EQ(painted(), picture(ownTexts::noObjects));
}

TEST_F(ListNoticeTest, folderThatCannotBeEnumerated_isUnreadable)
{
    backend.folders.clear();
    tree().select(L"K24");
    fillViews();
    EXPECT_EQ(painted(), picture(ownTexts::unreadable));
}

TEST_F(ListNoticeTest, refreshOfAnEmptyFolder_isLoadingAgain)
{
    tree().select(L"K24");
    fillViews();
    view.clickMenuItem(MenuItem::dbObjFolderRefreshMnuItem);
    EXPECT_EQ(painted(), picture(ownTexts::loading));
}

TEST_F(ListNoticeTest, otherItemThanRefresh_leavesTheTextAlone)
{
    tree().select(L"K24");
    fillViews();
    view.clickMenuItem(MenuItem::dbObjFolderFilterMnuItem);
    EXPECT_EQ(painted(), picture(ownTexts::noObjects));
}

TEST_F(ListNoticeTest, contentsThatCannotBeAskedFor_areUnreadable)
{
    tree().select(L"K24");
    EXPECT_THROW(askForContents(*publishedView().notice, session, [] { throw Error(errorInvalidCall); }), Error);
    EXPECT_EQ(painted(), picture(ownTexts::unreadable));
}

TEST_F(ListNoticeTest, contentsThatCameWhileTheyWereAskedFor_stayRead)
{
    tree().select(L"K24");
    const auto ask = [this] {
        fillViews();
        throw Error(errorInvalidCall);
    };
    EXPECT_THROW(askForContents(*publishedView().notice, session, ask), Error);
    EXPECT_EQ(painted(), picture(ownTexts::noObjects));
}

TEST_F(ListNoticeTest, contentsAskedOfASessionThatEnded_areNobodys)
{
    tree().select(L"K24");
    const auto ask = [this] {
        session.enter(SessionState::ending);
        throw Error(errorInvalidCall);
    };
    EXPECT_THROW(askForContents(*publishedView().notice, session, ask), Error);
    EXPECT_EQ(painted(), picture(ownTexts::loading));
}

TEST_F(ListNoticeTest, connectionThatGoesOrComes_isToldAtOnce)
{
    tree().select(L"K24");
    paint();
    connection.bConnected = false;
    updateConnectionNode(connection);
    EXPECT_TRUE(isToBePainted());
    EXPECT_EQ(painted(), picture(ownTexts::notConnected));
    connection.bConnected = true;
    updateConnectionNode(connection);
    EXPECT_EQ(painted(), picture(ownTexts::loading));
}

TEST_F(ListNoticeTest, connectionThatIsTheSameAsBefore_paintsNothing)
{
    tree().select(L"K24");
    paint();
    updateConnectionNode(connection);
    EXPECT_FALSE(isToBePainted());
}

TEST_F(ListNoticeTest, selectedNodeThatGoes_leavesNothingSelected)
{
    tree().select(L"K24");
    paint();
    removeNode(L"K1");
    EXPECT_TRUE(isToBePainted());
    EXPECT_EQ(painted(), picture(ownTexts::nothingSelected));
}

TEST_F(ListNoticeTest, narrowerList_wrapsTheTextAnew)
{
    paint();
    view.resize(500, 400);
    EXPECT_TRUE(isToBePainted());
    EXPECT_EQ(painted(), picture(ownTexts::nothingSelected));
}

TEST_F(ListNoticeTest, textInAListThatIsScrolledSideways_staysWhole)
{
    tree().select(L"K24");
    fillViews();
    list().view().setColumnWidth(0, 2000);
    paint();
    ASSERT_EQ(onScreen(), picture(ownTexts::noObjects));
    list().view().send(WM_HSCROLL, SB_PAGERIGHT);
    paint();
    EXPECT_EQ(onScreen(), picture(ownTexts::noObjects));
}

TEST_F(ListNoticeTest, textInAListWhoseColumnIsMadeNarrower_staysWhole)
{
    tree().select(L"K24");
    fillViews();
    list().view().setColumnWidth(0, 400);
    list().view().redraw();
    paint();
    EXPECT_EQ(onScreen() == picture(ownTexts::noObjects), true) << "before";
    list().view().setColumnWidth(0, 150);
    paint();
    EXPECT_EQ(onScreen() == picture(ownTexts::noObjects), true) << "afterwards";
    list().view().redraw();
    paint();
    EXPECT_EQ(onScreen() == picture(ownTexts::noObjects), true) << "drawn anew";
}

} // namespace
} // namespace velk
