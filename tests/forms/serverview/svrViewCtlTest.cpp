#include "viewFixture.h"

#include <algorithm>
#include <iterator>

namespace velk {
namespace {

using Calls = std::vector<std::string>;

class svrViewCtlTest : public test::ViewFixture {
protected:
    RECT placeOf(HWND window)
    {
        RECT place{};
        GetWindowRect(window, &place);
        MapWindowPoints(nullptr, view.hwnd(), reinterpret_cast<POINT*>(&place), 2);
        return place;
    }
    void drag(int fromPixels, int toPixels)
    {
        SendMessageW(view.hwnd(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(fromPixels, 50));
        SendMessageW(view.hwnd(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(toPixels, 50));
        SendMessageW(view.hwnd(), WM_LBUTTONUP, 0, MAKELPARAM(toPixels, 50));
    }
    int treeWidth() { return static_cast<int>(placeOf(tree().hwnd()).right); }
};

TEST_F(svrViewCtlTest, layout_fillsTheControlFromLeftToRight)
{
    EXPECT_EQ(placeOf(tree().hwnd()).left, 0);
    EXPECT_EQ(placeOf(view.splitPane()).left, treeWidth());
    EXPECT_EQ(placeOf(view.splitPane()).right, treeWidth() + 4);
    EXPECT_EQ(placeOf(list().view().hwnd()).left, treeWidth() + 4);
    EXPECT_EQ(placeOf(list().view().hwnd()).right, 1000);
    EXPECT_EQ(placeOf(list().view().hwnd()).bottom, 400);
}

TEST_F(svrViewCtlTest, splitterDraggedWithinTheLimits_setsTheTreesWidth)
{
    drag(treeWidth(), 400);
    EXPECT_EQ(treeWidth(), 400);
    EXPECT_EQ(placeOf(list().view().hwnd()).left, 404);
}

TEST_F(svrViewCtlTest, splitterReleasedLessThan300UnitsFromTheLeft_keepsTheWidths)
{
    const int before = treeWidth();
    drag(before, 20); // 300 twips
    EXPECT_EQ(treeWidth(), before);
}

TEST_F(svrViewCtlTest, splitterReleasedLessThan400UnitsFromTheRight_keepsTheWidths)
{
    const int before = treeWidth();
    drag(before, 975); // 375 twips
    EXPECT_EQ(treeWidth(), before);
}

TEST_F(svrViewCtlTest, releaseWithoutADrag_movesNothing)
{
    const int before = treeWidth();
    SendMessageW(view.hwnd(), WM_LBUTTONUP, 0, MAKELPARAM(600, 50));
    EXPECT_EQ(treeWidth(), before);
}

TEST_F(svrViewCtlTest, stormOfSizesDownToZero_keepsTheTreesWidth)
{
    const int before = treeWidth();
    for (int size = 900; size >= 0; size -= 30)
        view.resize(size, size / 2);
    view.resize(0, 0);
    view.resize(1000, 400);
    EXPECT_EQ(treeWidth(), before);
    EXPECT_EQ(placeOf(list().view().hwnd()).right, 1000);
}

TEST_F(svrViewCtlTest, selectedFolder_isMadeTheToolsCurrentFolder)
{
    addProject();
    backend.calls.clear();
    tree().select(L"K23");
    EXPECT_EQ(backend.calls, Calls{"RZSetCurrentFolder(23, 13)"});
    EXPECT_EQ(list().view().columnCount(), 5);
}

TEST_F(svrViewCtlTest, sameNodeAgain_isNotSelectedAgainUnlessForced)
{
    addProject();
    tree().select(L"K23");
    backend.calls.clear();
    view.selectNode(false);
    EXPECT_EQ(backend.calls, Calls{});
    view.selectNode(true);
    EXPECT_EQ(backend.calls, Calls{"RZSetCurrentFolder(23, 13)"});
}

TEST_F(svrViewCtlTest, otherFolder_emptiesTheListUntilItsContentsCome)
{
    addProject();
    tree().select(L"K23");
    addTableRow({.lHdl = 200,
                 .bIsDirty = false,
                 .strSchema = L"",
                 .strName = L"n",
                 .strTableSpace = L"",
                 .lType = 1,
                 .strComment = L""});
    tree().select(L"K24");
    EXPECT_EQ(shownRows(), 0);
    EXPECT_EQ(list().view().columnCount(), 3);
}

TEST_F(svrViewCtlTest, connectionNode_hasNoColumns)
{
    addProject();
    tree().select(L"K23");
    tree().select(L"K10");
    EXPECT_EQ(list().view().columnCount(), 0);
    EXPECT_EQ(Header_GetItemCount(reinterpret_cast<HWND>(list().view().send(LVM_GETHEADER))), 0);
}

TEST_F(svrViewCtlTest, removedSelectedConnection_emptiesTheList)
{
    addProject();
    tree().select(L"K23");
    addTableRow({.lHdl = 200,
                 .bIsDirty = false,
                 .strSchema = L"",
                 .strName = L"n",
                 .strTableSpace = L"",
                 .lType = 1,
                 .strComment = L""});
    removeNode(L"K10");
    EXPECT_EQ(shownRows(), 0);
    EXPECT_EQ(list().view().columnCount(), 0);
}

TEST_F(svrViewCtlTest, widthThatTheUserGave_isKeptForTheKindOfFolder)
{
    addProject();
    tree().select(L"K24");
    addViewRow({.lHdl = 300, .bIsDirty = false, .strSchema = L"s", .strName = L"n", .strComment = L"c"});
    list().view().setColumnWidth(0, 217);
    tree().select(L"K23");
    tree().select(L"K24");
    EXPECT_EQ(list().view().columnWidth(0), 217);
}

TEST_F(svrViewCtlTest, headers_areFetchedOnceEach)
{
    backend.unjournaled.erase("RZGetString");
    backend.calls.clear();
    view.setupGUI();
    Calls asked;
    std::copy_if(backend.calls.begin(), backend.calls.end(), std::back_inserter(asked),
                 [](const std::string& call) { return call.starts_with("RZGetString(5"); });
    std::sort(asked.begin(), asked.end());
    EXPECT_EQ(asked, (Calls{"RZGetString(500)", "RZGetString(501)", "RZGetString(502)", "RZGetString(503)",
                            "RZGetString(504)", "RZGetString(505)", "RZGetString(506)", "RZGetString(507)",
                            "RZGetString(508)", "RZGetString(509)", "RZGetString(510)", "RZGetString(511)",
                            "RZGetString(512)", "RZGetString(513)", "RZGetString(514)"}));
}

TEST_F(svrViewCtlTest, destroyedView_isWithdrawn)
{
    {
        svrViewCtl second;
        second.create(host, {0, 0, 100, 100});
        second.setupGUI();
        EXPECT_EQ(publishedView().serverTreeView, &second.serverTreeView());
    }
    EXPECT_EQ(publishedView().serverTreeView, nullptr);
}

} // namespace
} // namespace velk
