#include "columnsFixture.h"

#include "serverview/columnFit.h"

namespace velk {
namespace {

class ColumnFitTest : public test::ColumnsFixture {
protected:
    // What the widest of all texts needs, each measured by itself.
    int widthNeeded(int column)
    {
        int needed = list().view().widthOf(header(column));
        for (int row = 0; row < shownRows(); ++row)
            needed = std::max(needed, list().view().widthOf(cell(row, column)));
        return column == 0 ? needed + list().view().pictureWidth() : needed;
    }
    void addManyViews()
    {
        const ListFilling together;
        for (int32_t number = 0; number < 5000; ++number) {
            const auto length = static_cast<size_t>(number * 7919 % 41);
            const wchar_t letter = number % 3 == 0 ? L'i' : number % 3 == 1 ? L'W' : L'\u00E4';
            addViewRow({.lHdl = 1000 + number,
                        .strSchema = std::wstring(length, letter),
                        .strName = std::to_wstring(number) + std::wstring(length / 2, letter),
                        .strComment = L""});
        }
    }
};

TEST_F(ColumnFitTest, doubleClickOnADivider_makesTheColumnAsWideAsItsWidestTextOfAllRows)
{
    addManyViews();
    doubleClickDivider(1);
    EXPECT_EQ(width(1), widthNeeded(1));
    doubleClickDivider(0);
    EXPECT_GE(width(0), widthNeeded(0));
    EXPECT_LE(width(0), widthNeeded(0) + list().view().pictureWidth());
}

TEST_F(ColumnFitTest, widestTextInTheLastRowOfMany_isFound)
{
    addManyViews();
    addViewRow({.lHdl = 9999, .strSchema = std::wstring(60, L'W'), .strName = L"n", .strComment = L""});
    doubleClickDivider(1);
    EXPECT_EQ(width(1), list().view().widthOf(std::wstring(60, L'W')));
}

TEST_F(ColumnFitTest, columnWithoutTexts_isAsWideAsItsHeader)
{
    dragDivider(2, 400);
    clearListRows();
    doubleClickDivider(2);
    EXPECT_EQ(width(2), list().view().widthOf(header(2)));
}

TEST_F(ColumnFitTest, boldRow_isMeasuredInItsFont)
{
    tree().select(L"K20");
    const std::wstring name(40, L'm');
    addProcedureRow({.lHdl = 100, .strName = name});
    doubleClickDivider(0);
    const int plain = width(0);
    addProcedureRow({.lHdl = 101, .bIsDirty = true, .strName = name});
    doubleClickDivider(0);
    EXPECT_GT(width(0), plain);
}

TEST_F(ColumnFitTest, textThatIsLongerThanTheControlShows_countsAsFarAsItIsShown)
{
    addViewRow({.lHdl = 400, .strSchema = std::wstring(1000, L'x'), .strName = L"n", .strComment = L""});
    doubleClickDivider(1);
    EXPECT_EQ(width(1), list().view().widthOf(std::wstring(259, L'x')));
}

TEST_F(ColumnFitTest, dividerOfAColumnBehindAHiddenOne_fitsItsOwnCells)
{
    addViewRow({.lHdl = 400, .strSchema = L"a schema of some length", .strName = L"n", .strComment = L"short"});
    setColumnShown(list(), 1, false);
    doubleClickDivider(1);
    EXPECT_EQ(width(1), list().view().widthOf(L"not shipped"));
}

TEST_F(ColumnFitTest, fittedWidth_isTheUsers)
{
    doubleClickDivider(1);
    EXPECT_THAT(columns().given(15), testing::StartsWith(L"1;,"));
    EXPECT_NE(columns().given(15), L"1;,,;;;");
}

TEST_F(ColumnFitTest, dividerThatIsNotThere_fitsNothing)
{
    doubleClickDivider(7);
    doubleClickDivider(-1);
    EXPECT_EQ(columns().given(15), L"");
}

TEST_F(ColumnFitTest, fitOfAll_fitsEachColumn)
{
    fitAllColumns(list());
    EXPECT_EQ(width(1), std::max(list().view().widthOf(header(1)), list().view().widthOf(L"sales")));
    EXPECT_EQ(width(2), list().view().widthOf(L"not shipped"));
}

TEST_F(ColumnFitTest, estimate_isWhatTheSystemMeasuresOfPlainLetters)
{
    const auto font = reinterpret_cast<HFONT>(list().view().send(WM_GETFONT));
    const TextWidths widths(font);
    const std::wstring text = L"The quick brown fox, 1234567890";
    EXPECT_EQ(widths.of(text), list().view().widthOf(text) - list().view().widthOf(L""));
}

} // namespace
} // namespace velk
