#include "commandsFixture.h"

#include <algorithm>

namespace velk {
namespace {

using enum MenuItem;
using PopupMenu::conFolderMnu, PopupMenu::devObjFolderMnu, PopupMenu::dbObjFolderMnu, PopupMenu::dbConMnu,
    PopupMenu::devObjMnu, PopupMenu::dbTableObjMnu, PopupMenu::trigObjMnu;
constexpr PopupMenu sourceSafe = PopupMenu::devObjScmMnuItem;
using Captions = std::vector<std::wstring>;

// The menus as they were agreed upon, item by item and in order; nothing of it is taken from the product's own table.
// A text of 0 keeps the caption, a code of 0 is none. The third column says on which side the object is.
enum Side { node, row, own, none };
struct Item {
    PopupMenu menu;
    MenuItem item;
    Side side;
    const wchar_t* caption;
    int text;
    int code;
};
// clang-format off
const Item items[] = {
    {conFolderMnu,     projOpenMnuItem,            own,  L"Open",                             438, 2},
    {conFolderMnu,     projSaveMnuItem,            node, L"Save",                             439, 3},
    {conFolderMnu,     projSaveAsMnuItem,          own,  L"Save As",                          440, 4},
    {conFolderMnu,     scmPropsMnuItem,            own,  L"Add Project to Visual SourceSafe", 431, 0},
    {conFolderMnu,     projSep,                    none, L"-",                                0,   0},
    {conFolderMnu,     addConMnuItem,              node, L"Add Connection",                   401, 9},
    {conFolderMnu,     projPropsMnuItem,           node, L"Properties",                       0,   13},
    {devObjFolderMnu,  devObjFolderNewMnuItem,     node, L"New",                              406, 9},
    {devObjFolderMnu,  devObjFolderImportMnuItem,  node, L"Import",                           407, 12},
    {devObjFolderMnu,  devObjFolderPasteMnuItem,   node, L"Paste",                            405, 23},
    {devObjFolderMnu,  devObjFolderRefreshMnuItem, node, L"Refresh",                          0,   10},
    {devObjFolderMnu,  devObjFolderFilterMnuItem,  node, L"Filter",                           0,   11},
    {dbObjFolderMnu,   dbObjFolderRefreshMnuItem,  node, L"Refresh",                          0,   10},
    {dbObjFolderMnu,   dbObjFolderFilterMnuItem,   node, L"Filter",                           0,   11},
    {dbConMnu,         conConnectMnuItem,          node, L"Connect",                          408, 7},
    {dbConMnu,         conDisconnectmnuItem,       node, L"Disconnect",                       409, 8},
    {dbConMnu,         conRemoveMnuItem,           node, L"Remove",                           410, 21},
    {dbConMnu,         conPropsMnuItem,            node, L"Properties",                       0,   13},
    {dbConMnu,         dbConSep,                   none, L"-",                                0,   0},
    {dbConMnu,         adoConCodeMnuItem,          own,  L"Add ADO Connection Code",          412, 26},
    {dbConMnu,         adoConObjMnuItem,           own,  L"Add ADO Connection Object",        413, 27},
    {devObjMnu,        devObjViewSrcMnuItem,       row,  L"View Source",                      414, 25},
    {devObjMnu,        devObjEditSrcMnuItem,       row,  L"Edit Source",                      444, 14},
    {devObjMnu,        devObjSep2,                 none, L"-",                                0,   0},
    {devObjMnu,        devObjBuildMnuItem,         row,  L"Build",                            415, 18},
    {devObjMnu,        devObjBuildWDebugMnuItem,   row,  L"Build With Debug",                 416, 19},
    {devObjMnu,        devObjRunMnuItem,           row,  L"Run",                              0,   16},
    {devObjMnu,        devObjRunWDebugMnuItem,     row,  L"Run With Debug",                   418, 17},
    {devObjMnu,        devObjRunSetMnuItem,        row,  L"Run Settings",                     0,   15},
    {devObjMnu,        devObjRmMnuItem,            row,  L"Remove From Project",              445, 21},
    {devObjMnu,        devObjDropMnuItem,          row,  L"Drop From Database",               0,   22},
    {devObjMnu,        devObjCopyMnuItem,          row,  L"Copy",                             421, 24},
    {devObjMnu,        devObjPropsMnuItem,         row,  L"Properties",                       0,   13},
    {devObjMnu,        devObjSep1,                 none, L"-",                                0,   0},
    {devObjMnu,        devObjScmMnuItem,           none, L"Visual SourceSafe",                432, 0},
    {sourceSafe,       devObjAddFileMnuItem,       own,  L"Add &File",                        443, 0},
    {sourceSafe,       devObjChkOutMnuItem,        own,  L"Check Out",                        434, 0},
    {sourceSafe,       devObjChkInMnuItem,         own,  L"Check In",                         433, 0},
    {devObjMnu,        devObjSep,                  none, L"-",                                0,   0},
    {devObjMnu,        addCmdCodeMnuItem,          own,  L"Add ADO Command Code",             0,   28},
    {devObjMnu,        addCmdObjMnuItem,           own,  L"Add ADO Command Object",           0,   29},
    {dbTableObjMnu,    dbTblPropsMnuItem,          row,  L"Properties",                       0,   13},
    {dbTableObjMnu,    dbTblSmplContMnuItem,       row,  L"Sample Contents",                  424, 20},
    {trigObjMnu,       trigObjPropsMnuItem,        row,  L"Properties",                       0,   13},
};
// clang-format on
static_assert(std::size(items) == static_cast<size_t>(MenuItem::count));

std::wstring captionAfterTheStart(const Item& item)
{
    return item.text ? L"#" + std::to_wstring(item.text) : item.caption;
}

class MenuTableTest : public test::CommandsFixture {
protected:
    Captions captionsOf(const std::vector<MenuLine>& lines)
    {
        Captions captions;
        std::transform(lines.begin(), lines.end(), std::back_inserter(captions),
                       [](const MenuLine& line) { return line.caption; });
        return captions;
    }
    Captions shown(const PopupMenus& menus, PopupMenu which)
    {
        menus.show(which, host, {});
        return captionsOf(menu);
    }
    static std::vector<MenuItem> hiddenItems(const PopupMenus& menus)
    {
        std::vector<MenuItem> hidden;
        for (const Item& item : items)
            if (!menus[item.item].visible)
                hidden.push_back(item.item);
        return hidden;
    }
    static Captions agreed(PopupMenu which, std::wstring (*captionOf)(const Item&))
    {
        Captions captions;
        for (const Item& item : items)
            if (item.menu == which)
                captions.push_back(captionOf(item));
        return captions;
    }
};

class WholeMenuTest : public MenuTableTest, public testing::WithParamInterface<PopupMenu> {};

TEST_P(WholeMenuTest, menu_hasTheAgreedItemsInTheirOrder)
{
    const PopupMenus asDesigned;
    EXPECT_EQ(shown(asDesigned, GetParam()),
              agreed(GetParam(), [](const Item& item) { return std::wstring(item.caption); }));
    PopupMenus started;
    started.setUp(true, 1); // every item is visible in this kind of IDE
    EXPECT_EQ(shown(started, GetParam()), agreed(GetParam(), captionAfterTheStart));
}
INSTANTIATE_TEST_SUITE_P(Menus, WholeMenuTest,
                         testing::Values(conFolderMnu, devObjFolderMnu, dbObjFolderMnu, dbConMnu, devObjMnu,
                                         dbTableObjMnu, trigObjMnu, sourceSafe));

class MenuItemTest : public MenuTableTest, public testing::WithParamInterface<Item> {};

TEST_P(MenuItemTest, item_hasItsTextAndItsCodeAfterTheStart)
{
    PopupMenus menus;
    EXPECT_EQ(menus[GetParam().item].caption, GetParam().caption);
    menus.setUp(true, 1);
    EXPECT_EQ(menus[GetParam().item].caption, captionAfterTheStart(GetParam()));
    EXPECT_EQ(menus[GetParam().item].tag, GetParam().code);
}
INSTANTIATE_TEST_SUITE_P(Items, MenuItemTest, testing::ValuesIn(items));

// The items that do nothing but pass their code.
class PlainItemTest : public MenuTableTest, public testing::WithParamInterface<Item> {
public:
    static std::vector<Item> plainItems()
    {
        std::vector<Item> plain;
        std::copy_if(std::begin(items), std::end(items), std::back_inserter(plain),
                     [](const Item& item) { return item.side == node || item.side == row; });
        return plain;
    }
};

TEST_P(PlainItemTest, clickedItem_passesItsCodeForTheObjectOfItsSide)
{
    showProcedure(); // row 100 in folder 20
    view.clickMenuItem(GetParam().item);
    const std::string handle = GetParam().side == node ? "20" : "100";
    EXPECT_EQ(backend.calls, test::Calls{"RZObjectDoAction(" + handle + ", " + std::to_string(GetParam().code) + ")"});
    EXPECT_EQ(messages, test::Lines{});
}
INSTANTIATE_TEST_SUITE_P(Items, PlainItemTest, testing::ValuesIn(PlainItemTest::plainItems()));

TEST_F(MenuTableTest, clickedItem_isReadFromItsTag)
{
    showProcedure();
    view.menus()[devObjRunMnuItem].tag = 77;
    view.clickMenuItem(devObjRunMnuItem);
    EXPECT_EQ(backend.calls, test::Calls{"RZObjectDoAction(100, 77)"});
}

struct IdeType {
    int type;
    std::vector<MenuItem> hidden;
};
class IdeTypeTest : public MenuTableTest, public testing::WithParamInterface<IdeType> {};

TEST_P(IdeTypeTest, itemsThatAreHidden_areThoseOfTheKindOfIde)
{
    PopupMenus menus;
    menus.setUp(true, 2);
    menus.setUp(true, GetParam().type);
    EXPECT_EQ(hiddenItems(menus), GetParam().hidden);
}
INSTANTIATE_TEST_SUITE_P(Types, IdeTypeTest,
                         testing::Values(IdeType{1, {}},
                                         IdeType{2,
                                                 {dbConSep, adoConCodeMnuItem, adoConObjMnuItem, devObjSep,
                                                  addCmdCodeMnuItem, addCmdObjMnuItem}},
                                         IdeType{3, {adoConObjMnuItem, addCmdObjMnuItem}},
                                         IdeType{0, {adoConObjMnuItem, addCmdObjMnuItem}}));

} // namespace
} // namespace velk
