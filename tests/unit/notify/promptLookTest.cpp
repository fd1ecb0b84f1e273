#include "notify/promptLook.h"
#include "base/error.h"

#include <gmock/gmock.h>

namespace velk {
namespace {

using testing::ElementsAre;

TEST(SplitButtons, threeFields_areTakenApart)
{
    EXPECT_THAT(splitButtons(L"IDE_QUESTION#672#Title"), ElementsAre(L"IDE_QUESTION", L"672", L"Title"));
}

TEST(SplitButtons, oneField_isTheWholeText)
{
    EXPECT_THAT(splitButtons(L"IDE_WARNING"), ElementsAre(L"IDE_WARNING"));
}

TEST(SplitButtons, twoSeparatorsInARow_keepAnEmptyField)
{
    EXPECT_THAT(splitButtons(L"IDE_WARNING##Title"), ElementsAre(L"IDE_WARNING", L"", L"Title"));
}

TEST(SplitButtons, trailingSeparator_belongsToTheLastField)
{
    EXPECT_THAT(splitButtons(L"IDE_WARNING#67#"), ElementsAre(L"IDE_WARNING", L"67#"));
}

TEST(SplitButtons, fiveFields_areTheMost)
{
    EXPECT_EQ(splitButtons(L"a#b#c#d#e").size(), 5u);
    EXPECT_THROW(splitButtons(L"a#b#c#d#e#f"), Error);
}

TEST(SplitButtons, emptyText_isOneEmptyField)
{
    EXPECT_THAT(splitButtons(L""), ElementsAre(L""));
}

TEST(PromptStyle, iconKeywords_areMessageBoxIcons)
{
    EXPECT_EQ(iconValue(L"IDE_CRITICAL"), 16);
    EXPECT_EQ(iconValue(L"IDE_WARNING"), 48);
    EXPECT_EQ(iconValue(L"IDE_QUESTION"), 32);
    EXPECT_EQ(iconValue(L"IDE_INFORMATION"), 64);
    EXPECT_EQ(iconValue(L"ide_critical"), 64);
}

TEST(PromptStyle, buttonSets_areMessageBoxButtons)
{
    EXPECT_EQ(buttonValue(L"672"), 3);
    EXPECT_EQ(buttonValue(L"67"), 4);
    EXPECT_EQ(buttonValue(L"1"), 0);
    EXPECT_EQ(buttonValue(L"76"), 0);
}

TEST(PromptLookTest, criticalWithOk_hasStopIconAndNoTitle)
{
    const PromptLook look = promptLook(L"IDE_CRITICAL#1");
    EXPECT_EQ(look.style, 16u);
    EXPECT_EQ(look.title, L"");
}

TEST(PromptLookTest, threeFields_giveTheTitle)
{
    const PromptLook look = promptLook(L"IDE_QUESTION#672#Drop");
    EXPECT_EQ(look.style, 35u);
    EXPECT_EQ(look.title, L"Drop");
}

TEST(PromptLookTest, oneField_isOkWithoutIcon)
{
    EXPECT_EQ(promptLook(L"IDE_WARNING").style, 0u);
}

TEST(PromptLookTest, fourFields_haveNoTitle)
{
    const PromptLook look = promptLook(L"IDE_INFORMATION#67#a#b");
    EXPECT_EQ(look.style, 68u);
    EXPECT_EQ(look.title, L"");
}

TEST(PromptLookTest, unknownKeywordAndSet_areInformationAndOk)
{
    EXPECT_EQ(promptLook(L"IDE_ELEPHANT#99").style, 64u);
}

TEST(PromptLookTest, trailingSeparatorAfterTheSet_yieldsOkOnly)
{
    EXPECT_EQ(promptLook(L"IDE_WARNING#67#").style, 48u);
}

} // namespace
} // namespace velk
