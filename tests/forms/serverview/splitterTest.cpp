#include "viewFixture.h"

namespace velk {
namespace {

// The view is a thousand pixels wide; at 96 dpi that are 15,000 units, 15 a pixel.
class LayoutTest : public test::ViewFixture {
protected:
    ~LayoutTest() override { ReleaseCapture(); }
    RECT placeOf(HWND window)
    {
        RECT place{};
        GetWindowRect(window, &place);
        MapWindowPoints(nullptr, view.hwnd(), reinterpret_cast<POINT*>(&place), 2);
        return place;
    }
    int treeWidth() { return static_cast<int>(placeOf(tree().hwnd()).right); }
    int barLeft() { return static_cast<int>(placeOf(view.splitPane()).left); }
    int barRight() { return static_cast<int>(placeOf(view.splitPane()).right); }
    int listLeft() { return static_cast<int>(placeOf(list().view().hwnd()).left); }
    int listRight() { return static_cast<int>(placeOf(list().view().hwnd()).right); }
    void press(int x, int y = 50) { SendMessageW(view.hwnd(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y)); }
    void moveTo(int x, WPARAM buttons = MK_LBUTTON)
    {
        SendMessageW(view.hwnd(), WM_MOUSEMOVE, buttons, MAKELPARAM(x, 50));
    }
    void release(int x) { SendMessageW(view.hwnd(), WM_LBUTTONUP, 0, MAKELPARAM(x, 50)); }
    void drag(int toPixels)
    {
        press(barLeft());
        moveTo(toPixels);
        release(toPixels);
    }
    bool pressEscape()
    {
        MSG message{};
        message.hwnd = view.hwnd();
        message.message = WM_KEYDOWN;
        message.wParam = VK_ESCAPE;
        return view.translateKey(message);
    }
};

TEST_F(LayoutTest, draggedBar_followsTheMouseWhileThePanesWait)
{
    press(treeWidth());
    moveTo(400);
    EXPECT_EQ(barLeft(), 400);
    EXPECT_EQ(barRight(), 404);
    EXPECT_EQ(placeOf(view.splitPane()).bottom, 400);
    EXPECT_EQ(treeWidth(), 240);
    moveTo(500);
    EXPECT_EQ(barLeft(), 500);
    EXPECT_EQ(treeWidth(), 240);
}

TEST_F(LayoutTest, draggedBar_stopsAtTheLimits)
{
    press(treeWidth());
    moveTo(25);
    EXPECT_EQ(barLeft(), 25);
    moveTo(24);
    EXPECT_EQ(barLeft(), 25);
    moveTo(969);
    EXPECT_EQ(barLeft(), 969);
    moveTo(970);
    EXPECT_EQ(barLeft(), 969);
}

TEST_F(LayoutTest, mouseWithoutItsButton_movesNoBar)
{
    press(treeWidth());
    moveTo(400, 0);
    EXPECT_EQ(barLeft(), 240);
}

struct Release {
    int at;
    int treeWidth;
};
class ReleaseTest : public LayoutTest, public testing::WithParamInterface<Release> {};

// X - 60 - 300 > 0 and X + 60 + 400 < 15,000.
TEST_P(ReleaseTest, releaseNearALimit_isAcceptedOnlyInsideOfIt)
{
    press(treeWidth());
    release(GetParam().at);
    EXPECT_EQ(treeWidth(), GetParam().treeWidth);
    EXPECT_EQ(barLeft(), GetParam().treeWidth);
    EXPECT_EQ(listLeft(), GetParam().treeWidth + 4);
}
INSTANTIATE_TEST_SUITE_P(Limits, ReleaseTest,
                         testing::Values(Release{-5, 240}, Release{24, 240}, Release{25, 25}, Release{969, 969},
                                         Release{970, 240}, Release{1100, 240}));

TEST_F(LayoutTest, pressBesideTheBarOrInTheFirstLine_isNoDrag)
{
    press(239);
    EXPECT_NE(GetCapture(), view.hwnd());
    press(245);
    EXPECT_NE(GetCapture(), view.hwnd());
    press(241, 0);
    EXPECT_NE(GetCapture(), view.hwnd());
    press(241, 1);
    EXPECT_EQ(GetCapture(), view.hwnd());
}

TEST_F(LayoutTest, mouseOverTheBar_hasTheSizingPointer)
{
    SetCursor(LoadCursorW(nullptr, IDC_ARROW));
    moveTo(600, 0);
    EXPECT_NE(GetCursor(), LoadCursorW(nullptr, IDC_SIZEWE));
    moveTo(242, 0);
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_SIZEWE));
}

TEST_F(LayoutTest, lostCapture_endsTheDragWithThePanesAsTheyWere)
{
    press(treeWidth());
    moveTo(400);
    ReleaseCapture();
    EXPECT_EQ(barLeft(), 240);
    moveTo(500);
    release(500);
    EXPECT_EQ(barLeft(), 240);
    EXPECT_EQ(treeWidth(), 240);
}

TEST_F(LayoutTest, escape_endsTheDragWithThePanesAsTheyWere)
{
    press(treeWidth());
    moveTo(400);
    EXPECT_TRUE(pressEscape());
    EXPECT_EQ(barLeft(), 240);
    EXPECT_NE(GetCapture(), view.hwnd());
    release(400);
    EXPECT_EQ(treeWidth(), 240);
}

TEST_F(LayoutTest, escapeWithoutADrag_isLeftToTheIde)
{
    EXPECT_FALSE(pressEscape());
}

// 2,700 units, less the bar's 60 and the list's 400: 2,240, which are 149 pixels.
TEST_F(LayoutTest, viewNarrowerThanItsTree_keepsBarAndListInSight)
{
    view.resize(180, 400);
    EXPECT_EQ(treeWidth(), 149);
    EXPECT_EQ(barLeft(), 149);
    EXPECT_EQ(listLeft(), 153);
    EXPECT_EQ(listRight(), 180);
    view.resize(1000, 400);
    EXPECT_EQ(treeWidth(), 240);
}

// 4,060 units are the tree's 3,600, the bar and the list's room exactly.
TEST_F(LayoutTest, viewThatHasJustTheRoom_showsTheWholeTree)
{
    view.resize(271, 400);
    EXPECT_EQ(treeWidth(), 240);
    view.resize(270, 400);
    EXPECT_EQ(treeWidth(), 239);
}

TEST_F(LayoutTest, barOfANarrowView_canBeDragged)
{
    view.resize(180, 400);
    drag(100);
    EXPECT_EQ(treeWidth(), 100);
    view.resize(1000, 400);
    EXPECT_EQ(treeWidth(), 100);
}

TEST_F(LayoutTest, viewTooNarrowForAnyTree_isTheBarsAndTheLists)
{
    view.resize(20, 400);
    EXPECT_EQ(treeWidth(), 0);
    EXPECT_EQ(barRight(), 4);
    EXPECT_EQ(listRight(), 20);
    view.resize(3, 400);
    EXPECT_EQ(barRight(), 3);
    EXPECT_EQ(listLeft(), 3);
}

} // namespace
} // namespace velk
