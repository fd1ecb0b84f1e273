#include "columnsFixture.h"

namespace velk {
namespace {

using testing::ElementsAre;

class HeaderMenuTest : public test::ColumnsFixture {
protected:
    std::vector<std::wstring> captions()
    {
        std::vector<std::wstring> texts;
        for (const MenuLine& line : menu)
            texts.push_back((line.checked ? L"* " : L"") + line.caption + (line.enabled ? L"" : L" (-)"));
        return texts;
    }
    void askByKeyboard(HWND window) { SendMessageW(view.hwnd(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(window), -1); }
    static void hold(int key, BYTE state)
    {
        std::array<BYTE, 256> keys{};
        GetKeyboardState(keys.data());
        keys[static_cast<size_t>(key)] = state;
        SetKeyboardState(keys.data());
    }
};

TEST_F(HeaderMenuTest, rightClickOnAHeader_offersTheColumnsAndTheirWidths)
{
    chooseFromMenu(1, L"");
    EXPECT_THAT(captions(), ElementsAre(L"* #500 (-)", L"* #501", L"* #502", L"-", L"Size This Column to Fit",
                                        L"Size All Columns to Fit", L"-", L"Reset Columns", L"-", L"Filter"));
}

TEST_F(HeaderMenuTest, filter_opensTheStripAndClosesIt)
{
    chooseFromMenu(1, L"Filter");
    EXPECT_TRUE(view.filterStrip().hasFocus());
    chooseFromMenu(1, L"");
    EXPECT_THAT(captions(), testing::Contains(L"* Filter"));
    chooseFromMenu(1, L"Filter");
    EXPECT_FALSE(view.filterStrip().isOpen());
}

TEST_F(HeaderMenuTest, columnThatIsChosen_isHiddenAndShownAgain)
{
    chooseFromMenu(1, L"#501");
    EXPECT_THAT(headers(), ElementsAre(L"#500", L"#502"));
    chooseFromMenu(1, L"");
    EXPECT_THAT(captions(), testing::Contains(L"#501"));
    chooseFromMenu(0, L"#501");
    EXPECT_THAT(headers(), ElementsAre(L"#500", L"#501", L"#502"));
}

TEST_F(HeaderMenuTest, firstColumn_cannotBeChosen)
{
    chooseFromMenu(0, L"#500");
    EXPECT_EQ(list().view().columnCount(), 3);
}

TEST_F(HeaderMenuTest, sizeThisColumn_fitsTheOneUnderThePointer)
{
    setColumnShown(list(), 1, false);
    dragDivider(0, 300);
    dragDivider(1, 300);
    chooseFromMenu(1, L"Size This Column to Fit");
    EXPECT_EQ(width(0), 300);
    EXPECT_EQ(width(1), list().view().widthOf(L"not shipped"));
}

TEST_F(HeaderMenuTest, sizeAllColumns_fitsAll)
{
    dragDivider(0, 400);
    dragDivider(2, 400);
    chooseFromMenu(0, L"Size All Columns to Fit");
    EXPECT_LT(width(0), 400);
    EXPECT_EQ(width(2), list().view().widthOf(L"not shipped"));
}

TEST_F(HeaderMenuTest, resetColumns_takesBackWhatTheUserGave)
{
    chooseFromMenu(1, L"#501");
    chooseFromMenu(0, L"Reset Columns");
    EXPECT_EQ(list().view().columnCount(), 3);
    EXPECT_EQ(columns().given(15), L"");
}

TEST_F(HeaderMenuTest, emptyRoomOfTheHeader_hasNoColumnToSize)
{
    setMenuPresenter([this](const std::vector<MenuLine>& lines, POINT) {
        menu = lines;
        return 0;
    });
    RECT place{};
    GetWindowRect(headerWindow(), &place);
    SendMessageW(view.hwnd(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(headerWindow()),
                 MAKELPARAM(place.right - 2, place.top + 2));
    EXPECT_THAT(captions(), testing::Contains(L"Size This Column to Fit (-)"));
}

TEST_F(HeaderMenuTest, rightButtonOverTheHeaderItself_opensTheMenu)
{
    int opened = 0;
    setMenuPresenter([&](const std::vector<MenuLine>& lines, POINT) {
        ++opened;
        menu = lines;
        return 0;
    });
    SendMessageW(headerWindow(), WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(5, 5));
    SendMessageW(headerWindow(), WM_RBUTTONUP, 0, MAKELPARAM(5, 5));
    MSG message{};
    while (PeekMessageW(&message, view.hwnd(), 0, 0, PM_REMOVE))
        DispatchMessageW(&message);
    EXPECT_EQ(opened, 1);
    EXPECT_THAT(captions(), testing::Contains(L"Reset Columns"));
}

TEST_F(HeaderMenuTest, menuKeyWithCtrlInTheList_opensItBelowTheHeader)
{
    POINT opened{};
    setMenuPresenter([&](const std::vector<MenuLine>& lines, POINT place) {
        menu = lines;
        opened = place;
        return 0;
    });
    list().view().selectRow(0);
    hold(VK_CONTROL, 0x80);
    askByKeyboard(list().view().hwnd());
    hold(VK_CONTROL, 0);
    EXPECT_THAT(captions(), testing::Contains(L"Size This Column to Fit (-)"));
    RECT header{};
    GetWindowRect(headerWindow(), &header);
    EXPECT_EQ(opened.y, header.bottom);
}

TEST_F(HeaderMenuTest, menuKeyWithoutCtrlOrElsewhere_doesNotOpenIt)
{
    setMenuPresenter([this](const std::vector<MenuLine>& lines, POINT) {
        menu = lines;
        return 0;
    });
    askByKeyboard(list().view().hwnd());
    hold(VK_CONTROL, 0x80);
    askByKeyboard(host);
    askByKeyboard(tree().hwnd());
    hold(VK_CONTROL, 0);
    EXPECT_THAT(captions(), testing::Not(testing::Contains(L"Reset Columns")));
}

TEST_F(HeaderMenuTest, folderThatChangesWhileTheMenuIsOpen_dropsTheChoice)
{
    setMenuPresenter([this](const std::vector<MenuLine>&, POINT) {
        tree().select(L"K23");
        return 2;
    });
    const POINT place = middleOf(1);
    SendMessageW(view.hwnd(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(headerWindow()), MAKELPARAM(place.x, place.y));
    EXPECT_EQ(list().view().columnCount(), 5);
}

TEST_F(HeaderMenuTest, viewThatGoesWhileTheMenuIsOpen_isLeftAlone)
{
    setMenuPresenter([this](const std::vector<MenuLine>&, POINT) {
        view.destroy();
        return 2;
    });
    const POINT place = middleOf(1);
    SendMessageW(view.hwnd(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(headerWindow()), MAKELPARAM(place.x, place.y));
    EXPECT_EQ(view.hwnd(), nullptr);
}

TEST_F(HeaderMenuTest, headerTexts_areShownAsTheyAre)
{
    columns().show(15, {L"a", L"-", L"R&D\tx"});
    chooseFromMenu(0, L"");
    EXPECT_THAT(captions(), testing::IsSupersetOf({L"* - ", L"* R&&D x"}));
}

} // namespace
} // namespace velk
