#include "columnsFixture.h"

#include "base/registry.h"
#include "serverview/keptNodes.h"
#include "serverview/ViewKeeper.h"
#include "serverview/viewStore.h"
#include "support/keptView.h"
#include "support/outOfMemory.h"

#include <memory>

namespace velk {
namespace {

using Calls = std::vector<std::string>;

constexpr wchar_t path[] = L"C:\\work\\rz\\Orders.rzv";
constexpr wchar_t name[] = L"c:\\work\\rz\\orders.rzv";

// A view beside that of the fixture: the life that is looked at. It begins with what the registry holds.
class ViewKeeperTest : public test::ColumnsFixture {
protected:
    ~ViewKeeperTest() override { life.reset(); }

    void begin()
    {
        life = std::make_shared<svrViewCtl>();
        life->create(host, {0, 0, 1000, 400});
        life->setupGUI();
    }
    void end() { life.reset(); }
    // As the tool's notifications bring it.
    void bringProject(bool isConnected = true)
    {
        addFolderNode(L"", L"5", L"K1", L"orders", L"True");
        projectHasCome({.lHdl = 1, .strName = L"orders", .strPath = path});
        bringConnection(10, L"ORDERS", isConnected);
    }
    void bringConnection(int32_t handle, const std::wstring& database, bool isConnected)
    {
        trzConnection brought = connection;
        brought.lHdl = handle;
        brought.bConnected = isConnected;
        brought.strDatabase = database;
        const std::wstring key = makeKey(handle);
        addConnectionNode(L"K1", brought);
        addFolderNode(key, L"13", makeKey(handle + 13), L"Tables", L"False");
        addFolderNode(key, L"15", makeKey(handle + 14), L"Views", L"False");
        expandSelected();
        connectionHasCome(brought);
    }
    void connect(int32_t handle)
    {
        connection.lHdl = handle;
        connection.bConnected = true;
        updateConnectionNode(connection);
        connectionHasChanged(connection);
    }
    TreeView& livingTree() { return life->serverTreeView(); }
    DetailsList& livingList() { return life->serverDetailsView(); }
    std::wstring selectedKey() { return livingTree().selected() ? livingTree().selected()->key : std::wstring(); }
    // A click on a node's button.
    void toggle(const std::wstring& key)
    {
        NMTREEVIEWW notification{};
        const HTREEITEM item = test::itemOf(livingTree(), key);
        const bool isExpanded = test::isExpanded(livingTree(), key);
        notification.hdr.hwndFrom = livingTree().hwnd();
        notification.hdr.code = TVN_ITEMEXPANDEDW;
        notification.action = isExpanded ? TVE_COLLAPSE : TVE_EXPAND;
        notification.itemNew.hItem = item;
        notification.itemNew.lParam = reinterpret_cast<LPARAM>(&livingTree().node(key));
        livingTree().expand(key, !isExpanded);
        SendMessageW(life->hwnd(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification));
    }
    void dragSplitter(int to)
    {
        SendMessageW(life->hwnd(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(treeWidth(), 50));
        SendMessageW(life->hwnd(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(to, 50));
        SendMessageW(life->hwnd(), WM_LBUTTONUP, 0, MAKELPARAM(to, 50));
    }
    int treeWidth()
    {
        RECT place{};
        GetWindowRect(livingTree().hwnd(), &place);
        return static_cast<int>(place.right - place.left);
    }
    void fireTimer() { SendMessageW(life->hwnd(), WM_TIMER, 0x4B50, 0); }
    static bool isAnythingKept()
    {
        unique_key key;
        return RegOpenKeyExW(HKEY_CURRENT_USER, test::keptViewKey, 0, KEY_READ, key.put()) == ERROR_SUCCESS;
    }

    std::shared_ptr<svrViewCtl> life;
};

TEST_F(ViewKeeperTest, lifeWithoutAGesture_keepsNothing)
{
    begin();
    bringProject();
    fireTimer();
    end();
    EXPECT_FALSE(isAnythingKept());
}

TEST_F(ViewKeeperTest, splitter_standsWhereItWasLeft)
{
    begin();
    dragSplitter(400);
    end();
    begin();
    EXPECT_EQ(treeWidth(), 400);
}

TEST_F(ViewKeeperTest, columns_areAsTheyWereLeft)
{
    begin();
    bringProject();
    livingTree().select(L"K24");
    setColumnShown(livingList(), 1, false);
    livingList().sortBy(2);
    setColumnsFromLeft(livingList().view(), {1, 0});
    end();
    begin();
    bringProject();
    livingTree().select(L"K24");
    EXPECT_EQ(livingList().view().columnCount(), 2);
    EXPECT_EQ(livingList().order().column, 2u);
    EXPECT_EQ(columnsFromLeft(livingList().view()), (std::vector<int>{1, 0}));
}

TEST_F(ViewKeeperTest, columnsThatWereReset_areNotKeptAnyMore)
{
    viewStore::setValue(L"Columns15", L"1;3000,,;;;");
    begin();
    bringProject();
    livingTree().select(L"K24");
    resetColumns(livingList());
    end();
    EXPECT_EQ(viewStore::value(L"Columns15"), L"");
}

TEST_F(ViewKeeperTest, change_isWrittenByTheTimerOnce)
{
    begin();
    dragSplitter(400);
    dragSplitter(410);
    EXPECT_FALSE(isAnythingKept());
    fireTimer();
    EXPECT_EQ(viewStore::value(L"Splitter"), L"1;6150");
    EXPECT_FALSE(KillTimer(life->hwnd(), 0x4B50)); // it is asked for again by the next change only
    test::forgetKeptView();
    end();
    EXPECT_FALSE(isAnythingKept());
}

TEST_F(ViewKeeperTest, timerOfSomebodyElse_writesNothing)
{
    begin();
    dragSplitter(400);
    SendMessageW(life->hwnd(), WM_TIMER, 1, 0);
    EXPECT_FALSE(isAnythingKept());
}

TEST_F(ViewKeeperTest, selectedFolder_isSelectedAgainByOneCall)
{
    begin();
    bringProject();
    livingTree().select(L"K24");
    end();
    begin();
    backend.calls.clear();
    bringProject();
    EXPECT_EQ(selectedKey(), L"K24");
    EXPECT_EQ(backend.calls, Calls{"RZSetCurrentFolder(24, 15)"});
}

TEST_F(ViewKeeperTest, folderOfAConnectionThatIsNotConnected_waitsUntilItIs)
{
    begin();
    bringProject();
    livingTree().select(L"K23");
    end();
    begin();
    backend.calls.clear();
    bringProject(false);
    EXPECT_EQ(backend.calls, Calls{});
    connect(10);
    connect(10);
    EXPECT_EQ(backend.calls, Calls{"RZSetCurrentFolder(23, 13)"});
}

TEST_F(ViewKeeperTest, userWhoSelectedSomethingHimself_isLeftThere)
{
    begin();
    bringProject();
    livingTree().select(L"K24");
    end();
    begin();
    bringProject(false);
    livingTree().select(L"K10");
    connect(10);
    EXPECT_EQ(selectedKey(), L"K10");
}

TEST_F(ViewKeeperTest, otherConnection_isNotTakenForTheOneThatWasLeft)
{
    begin();
    bringProject();
    livingTree().select(L"K24");
    end();
    begin();
    addFolderNode(L"", L"5", L"K1", L"orders", L"True");
    projectHasCome({.lHdl = 1, .strName = L"orders", .strPath = path});
    bringConnection(50, L"STOCK", true);
    EXPECT_NE(selectedKey(), L"K64");
    bringConnection(70, L"ORDERS", true);
    EXPECT_EQ(selectedKey(), L"K84");
}

TEST_F(ViewKeeperTest, expandedAndCollapsedNodes_areAsTheUserLeftThem)
{
    begin();
    bringProject();
    toggle(L"K1");
    toggle(L"K10");
    end();
    begin();
    bringProject();
    EXPECT_TRUE(test::isExpanded(livingTree(), L"K1"));
    EXPECT_TRUE(test::isExpanded(livingTree(), L"K10"));
    toggle(L"K10");
    end();
    begin();
    bringProject();
    EXPECT_TRUE(test::isExpanded(livingTree(), L"K1"));
    EXPECT_FALSE(test::isExpanded(livingTree(), L"K10"));
}

TEST_F(ViewKeeperTest, whatTheViewExpandsByItself_isNotKept)
{
    begin();
    bringProject();
    livingTree().expand(L"K1");
    end();
    EXPECT_FALSE(isAnythingKept());
}

TEST_F(ViewKeeperTest, folderInACollapsedConnection_isNotBroughtToLight)
{
    viewStore::setProject(name, L"1;1;15:6:ORDERS;-6:ORDERS");
    begin();
    bringProject();
    EXPECT_NE(selectedKey(), L"K24");
    EXPECT_FALSE(test::isExpanded(livingTree(), L"K10"));
}

TEST_F(ViewKeeperTest, connectionThatTheUserCollapses_takesTheSelectionUp)
{
    begin();
    bringProject();
    livingTree().select(L"K24");
    toggle(L"K10");
    end();
    EXPECT_EQ(projectViewOf(viewStore::project(name))->selected, (KeptNode{6, L"ORDERS"}));
}

TEST_F(ViewKeeperTest, projectThatIsSavedElsewhere_isAnotherProjectWithTheSameTree)
{
    begin();
    bringProject();
    livingTree().select(L"K24");
    projectHasChanged({.lHdl = 1, .strName = L"copy", .strPath = L"C:\\work\\rz\\copy.rzv"});
    livingTree().select(L"K23");
    end();
    EXPECT_EQ(projectViewOf(viewStore::project(name))->selected, (KeptNode{15, L"ORDERS"}));
    EXPECT_EQ(projectViewOf(viewStore::project(L"c:\\work\\rz\\copy.rzv"))->selected, (KeptNode{13, L"ORDERS"}));
}

TEST_F(ViewKeeperTest, projectWithoutAPath_isNotKept)
{
    begin();
    addFolderNode(L"", L"5", L"K1", L"orders", L"True");
    projectHasCome({.lHdl = 1, .strName = L"orders", .strPath = L""});
    bringConnection(10, L"ORDERS", true);
    livingTree().select(L"K24");
    end();
    EXPECT_FALSE(isAnythingKept());
}

TEST_F(ViewKeeperTest, projectThatComes_isTheOneUsedLast)
{
    viewStore::setProject(name, L"1;1;;");
    begin();
    bringProject();
    end();
    EXPECT_GT(projectViewOf(viewStore::project(name))->lastUsed, 1u);
}

TEST_F(ViewKeeperTest, brokenValues_areAsIfNothingHadBeenKept)
{
    viewStore::setValue(L"Splitter", L"1;99999999");
    viewStore::setValue(L"Columns15", L"1;1,1,1;9;9;+9");
    viewStore::setValue(L"FilterStrip", L"open");
    viewStore::setProject(name, L"1;1;99:6:ORDERS;+0:+0:+");
    begin();
    bringProject();
    livingTree().select(L"K24");
    EXPECT_EQ(treeWidth(), 240);
    EXPECT_EQ(livingList().view().columnCount(), 3);
}

TEST_F(ViewKeeperTest, filterStrip_isKept)
{
    viewStore::setValue(L"FilterStrip", L"1;1");
    begin();
    EXPECT_TRUE(life->filterStrip().isOpen());
    EXPECT_FALSE(life->filterStrip().hasFocus());
    life->filterStrip().close();
    end();
    EXPECT_EQ(viewStore::value(L"FilterStrip"), L"1;0");
    begin();
    EXPECT_FALSE(life->filterStrip().isOpen());
    life->filterStrip().open();
    end();
    EXPECT_EQ(viewStore::value(L"FilterStrip"), L"1;1");
}

TEST_F(ViewKeeperTest, userWhoAskedForTheProjectsMenu_isLeftThere)
{
    begin();
    bringProject();
    livingTree().select(L"K24");
    end();
    begin();
    addFolderNode(L"", L"5", L"K1", L"orders", L"True");
    projectHasCome({.lHdl = 1, .strName = L"orders", .strPath = path});
    setMenuPresenter([](const std::vector<MenuLine>&, POINT) { return 0; });
    // A right click on the project, as its menu begins.
    livingTree().select(L"K1");
    SendMessageW(life->hwnd(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(livingTree().hwnd()), -1);
    bringConnection(10, L"ORDERS", true);
    EXPECT_EQ(selectedKey(), L"K1");
}

TEST_F(ViewKeeperTest, viewWithoutMemoryForItsKeeper_isNotMadeAndTheProcessGoesOn)
{
    ViewParts parts;
    const test::OutOfMemory none;
    EXPECT_THROW(ViewKeeper{parts}, std::bad_alloc);
}

TEST_F(ViewKeeperTest, writingWithoutMemory_isNotTheEndOfTheProcess)
{
    begin();
    dragSplitter(300);
    {
        const test::OutOfMemory none;
        SendMessageW(life->hwnd(), WM_TIMER, 0x4B50, 0);
        EXPECT_TRUE(none.wasFelt());
    }
}

TEST_F(ViewKeeperTest, connectionThatTheUserAddsToACollapsedProject_isBroughtToLightAsTheToolAsks)
{
    begin();
    bringProject();
    toggle(L"K1");
    toggle(L"K1"); // collapsed
    end();
    begin();
    bringProject();
    ASSERT_FALSE(test::isExpanded(livingTree(), L"K1"));
    // The user chooses Add Connection in the project's menu; the tool brings it and has its parent expanded.
    setMenuPresenter([](const std::vector<MenuLine>&, POINT) { return 0; });
    livingTree().select(L"K1");
    SendMessageW(life->hwnd(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(livingTree().hwnd()), -1);
    bringConnection(50, L"NEW", true);
    EXPECT_TRUE(test::isExpanded(livingTree(), L"K1"));
}

TEST_F(ViewKeeperTest, selectedConnectionThatWasNeverExpanded_isNotExpandedInTheNextLife)
{
    begin();
    bringProject();
    bringConnection(50, L"OTHER", true);
    livingTree().select(L"K10");
    ASSERT_FALSE(test::isExpanded(livingTree(), L"K10"));
    end();
    begin();
    bringProject();
    bringConnection(50, L"OTHER", true);
    EXPECT_EQ(selectedKey(), L"K10");
    EXPECT_FALSE(test::isExpanded(livingTree(), L"K10"));
}

} // namespace
} // namespace velk
