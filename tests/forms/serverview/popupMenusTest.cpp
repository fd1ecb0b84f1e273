#include "serverview/popupMenus.h"
#include "support/fakeBackend.h"
#include "window/menu.h"

#include <gmock/gmock.h>

namespace velk {
namespace {

using enum MenuItem;
using testing::ElementsAre;

class MenusTest : public testing::Test {
protected:
    MenusTest()
    {
        backend.numbersAsTexts = true;
        setMenuPresenter([this](const std::vector<MenuLine>& lines, POINT) {
            shown = lines;
            return answer;
        });
    }
    ~MenusTest() override { setMenuPresenter({}); }
    std::vector<std::wstring> captionsOf(const std::vector<MenuLine>& lines) const
    {
        std::vector<std::wstring> captions;
        for (const MenuLine& line : lines)
            captions.push_back(line.caption);
        return captions;
    }
    std::vector<std::wstring> show(PopupMenu menu)
    {
        menus.show(menu, nullptr, {0, 0});
        return captionsOf(shown);
    }

    test::FakeBackend backend;
    PopupMenus menus;
    std::vector<MenuLine> shown;
    int answer = 0;
};

TEST_F(MenusTest, captionsWithoutANumber_stayAsTheyAre)
{
    menus.setUp(false, 3);
    EXPECT_THAT(show(PopupMenu::dbObjFolderMnu), ElementsAre(L"Refresh", L"Filter"));
    EXPECT_THAT(show(PopupMenu::trigObjMnu), ElementsAre(L"Properties"));
    EXPECT_THAT(show(PopupMenu::dbTableObjMnu), ElementsAre(L"Properties", L"#424"));
}

TEST_F(MenusTest, projectMenu_hasItsItemsInOrder)
{
    menus.setUp(false, 3);
    EXPECT_THAT(show(PopupMenu::conFolderMnu),
                ElementsAre(L"#438", L"#439", L"#440", L"#431", L"-", L"#401", L"Properties"));
}

TEST_F(MenusTest, connectionMenu_hidesTheObjectOutsideIdeTypeOne)
{
    menus.setUp(false, 3);
    EXPECT_THAT(show(PopupMenu::dbConMnu), ElementsAre(L"#408", L"#409", L"#410", L"Properties", L"-", L"#412"));
    menus.setUp(false, 1);
    EXPECT_THAT(show(PopupMenu::dbConMnu),
                ElementsAre(L"#408", L"#409", L"#410", L"Properties", L"-", L"#412", L"#413"));
}

TEST_F(MenusTest, ideTypeTwo_hidesTheAdoCodeAndItsSeparators)
{
    menus.setUp(false, 2);
    EXPECT_THAT(show(PopupMenu::dbConMnu), ElementsAre(L"#408", L"#409", L"#410", L"Properties"));
}

TEST_F(MenusTest, routineMenu_hasItsItemsAndTheSubmenu)
{
    menus.setUp(true, 3);
    menus.menuOfRow(7, L"SQL", L"False#a.sql");
    EXPECT_THAT(show(PopupMenu::devObjMnu), ElementsAre(L"#414", L"#444", L"-", L"#415", L"#416", L"Run", L"#418",
                                                        L"Run Settings", L"#445", L"Drop From Database", L"#421",
                                                        L"Properties", L"-", L"#432", L"-", L"Add ADO Command Code"));
    EXPECT_THAT(captionsOf(shown[13].submenu), ElementsAre(L"#443", L"#434", L"#433"));
}

TEST_F(MenusTest, tags_carryTheActionCodes)
{
    menus.setUp(false, 3);
    EXPECT_EQ(menus[projPropsMnuItem].tag, 13);
    EXPECT_EQ(menus[conPropsMnuItem].tag, 13);
    EXPECT_EQ(menus[conRemoveMnuItem].tag, 21);
    EXPECT_EQ(menus[devObjRmMnuItem].tag, 21);
    EXPECT_EQ(menus[addConMnuItem].tag, 9);
    EXPECT_EQ(menus[devObjFolderNewMnuItem].tag, 9);
    EXPECT_EQ(menus[projSaveAsMnuItem].tag, 4);
    EXPECT_EQ(menus[scmPropsMnuItem].tag, noCode);
}

TEST_F(MenusTest, withoutSourceSafe_itsItemsAreDisabled)
{
    menus.setUp(false, 3);
    for (const MenuItem item :
         {scmPropsMnuItem, devObjScmMnuItem, devObjChkInMnuItem, devObjChkOutMnuItem, devObjAddFileMnuItem})
        EXPECT_FALSE(menus[item].enabled);
    menus.setUp(true, 3);
    EXPECT_TRUE(menus[devObjScmMnuItem].enabled);
}

TEST_F(MenusTest, withoutSourceSafe_theSubmenusItemsKeepTheirStates)
{
    menus.setUp(false, 3);
    menus[devObjChkInMnuItem].enabled = true;
    menus.menuOfRow(7, L"SQL", L"");
    EXPECT_TRUE(menus[devObjChkInMnuItem].enabled);
    EXPECT_FALSE(menus[devObjChkOutMnuItem].enabled);
}

TEST_F(MenusTest, functionFolder_hidesTheDebugItemsThatTheProcedureFolderShows)
{
    menus.setUp(false, 3);
    menus.menuOfRow(9, L"SQL", L"");
    EXPECT_FALSE(menus[devObjBuildWDebugMnuItem].visible);
    EXPECT_FALSE(menus[devObjRunWDebugMnuItem].visible);
    menus.menuOfRow(7, L"SQL", L"");
    EXPECT_TRUE(menus[devObjBuildWDebugMnuItem].visible);
    EXPECT_TRUE(menus[devObjRunWDebugMnuItem].visible);
}

TEST_F(MenusTest, everyLanguage_enablesTheItems)
{
    menus.setUp(false, 3);
    for (const wchar_t* language : {L"COMPJAVA", L"java", L"SQL", L"C", L""}) {
        menus[devObjBuildMnuItem].enabled = false;
        menus.menuOfRow(7, language, L"False#a.sql");
        EXPECT_TRUE(menus[devObjBuildMnuItem].enabled) << language;
        EXPECT_TRUE(menus[devObjDropMnuItem].enabled) << language;
    }
}

TEST_F(MenusTest, runWithDebug_isOfferedWhateverTheTagSays)
{
    menus.setUp(false, 3);
    for (const wchar_t* tag : {L"False#a.sql", L"True#a.sql", L"False", L""}) {
        menus[devObjRunWDebugMnuItem].enabled = false;
        menus.menuOfRow(7, L"SQL", tag);
        EXPECT_TRUE(menus[devObjRunWDebugMnuItem].enabled) << tag;
    }
}

// What a row's menu sets: each item is switched off before and must be on after it.
class RowItemTest : public MenusTest, public testing::WithParamInterface<MenuItem> {};

TEST_P(RowItemTest, rowsMenu_enablesTheItem)
{
    menus.setUp(true, 3);
    menus[GetParam()].enabled = false;
    menus.menuOfRow(7, L"SQL", L"True#a.sql");
    EXPECT_TRUE(menus[GetParam()].enabled);
    menus[GetParam()].enabled = false;
    menus.menuOfRow(11, L"SQL", L"");
    EXPECT_FALSE(menus[GetParam()].enabled); // a trigger's menu sets nothing
}
INSTANTIATE_TEST_SUITE_P(Items, RowItemTest,
                         testing::Values(devObjViewSrcMnuItem, devObjEditSrcMnuItem, devObjBuildMnuItem,
                                         devObjBuildWDebugMnuItem, devObjRunWDebugMnuItem, devObjDropMnuItem,
                                         devObjCopyMnuItem, devObjScmMnuItem, devObjChkInMnuItem, devObjChkOutMnuItem,
                                         devObjAddFileMnuItem));

class SourceSafeItemTest : public MenusTest, public testing::WithParamInterface<MenuItem> {};

TEST_P(SourceSafeItemTest, start_enablesTheItemWithSourceSafeOnly)
{
    menus.setUp(false, 3);
    EXPECT_FALSE(menus[GetParam()].enabled);
    menus.setUp(true, 3);
    EXPECT_TRUE(menus[GetParam()].enabled);
}
INSTANTIATE_TEST_SUITE_P(Items, SourceSafeItemTest,
                         testing::Values(scmPropsMnuItem, devObjScmMnuItem, devObjChkInMnuItem, devObjChkOutMnuItem,
                                         devObjAddFileMnuItem));

TEST_F(MenusTest, nodeKinds_haveTheirMenus)
{
    EXPECT_EQ(PopupMenus::menuOfNode(5), PopupMenu::conFolderMnu);
    EXPECT_EQ(PopupMenus::menuOfNode(6), PopupMenu::dbConMnu);
    EXPECT_EQ(PopupMenus::menuOfNode(7), PopupMenu::devObjFolderMnu);
    EXPECT_EQ(PopupMenus::menuOfNode(9), PopupMenu::devObjFolderMnu);
    EXPECT_EQ(PopupMenus::menuOfNode(11), PopupMenu::dbObjFolderMnu);
    EXPECT_EQ(PopupMenus::menuOfNode(99), PopupMenu::dbObjFolderMnu);
}

TEST_F(MenusTest, rowMenus_followTheFoldersKind)
{
    EXPECT_EQ(menus.menuOfRow(11, L"", L""), PopupMenu::trigObjMnu);
    EXPECT_EQ(menus.menuOfRow(13, L"", L""), PopupMenu::dbTableObjMnu);
    EXPECT_EQ(menus.menuOfRow(15, L"", L""), PopupMenu::dbTableObjMnu);
    EXPECT_EQ(menus.menuOfRow(9, L"", L""), PopupMenu::devObjMnu);
    EXPECT_EQ(menus.menuOfRow(6, L"", L""), std::nullopt);
}

TEST_F(MenusTest, choice_isTheItem)
{
    menus.setUp(false, 3);
    answer = static_cast<int>(conDisconnectmnuItem) + 1;
    EXPECT_EQ(menus.show(PopupMenu::dbConMnu, nullptr, {0, 0}), conDisconnectmnuItem);
    answer = 0;
    EXPECT_EQ(menus.show(PopupMenu::dbConMnu, nullptr, {0, 0}), std::nullopt);
}

TEST_F(MenusTest, missingText_givesAnEmptyCaption)
{
    backend.numbersAsTexts = false;
    menus.setUp(false, 3);
    EXPECT_EQ(menus[projOpenMnuItem].caption, L"");
}

} // namespace
} // namespace velk
