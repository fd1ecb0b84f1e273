#include "serverview/EmptyText.h"

#include "serverview/folderKinds.h"
#include "ui/ownTexts.h"

#include <gtest/gtest.h>

namespace velk {
namespace {

constexpr int32_t folder = 15;

TEST(emptyText, shownRows_needNone)
{
    EXPECT_EQ(emptyText({folder, true, FolderContents::read, 2, 1}), nullptr);
    EXPECT_EQ(emptyText({folder, false, FolderContents::awaited, 1, 1}), nullptr);
    EXPECT_EQ(emptyText({kindNone, false, FolderContents::read, 1, 1}), nullptr);
}

TEST(emptyText, rowsOfWhichNoneIsShown_areFilteredAway)
{
    EXPECT_STREQ(emptyText({folder, true, FolderContents::read, 1, 0}), ownTexts::noMatches);
    EXPECT_STREQ(emptyText({folder, false, FolderContents::awaited, 1, 0}), ownTexts::noMatches);
}

TEST(emptyText, noFolder_tellsWhatToSelect)
{
    EXPECT_STREQ(emptyText({kindNone, false, FolderContents::awaited, 0, 0}), ownTexts::nothingSelected);
    EXPECT_STREQ(emptyText({kindProject, false, FolderContents::awaited, 0, 0}), ownTexts::projectSelected);
    EXPECT_STREQ(emptyText({99, true, FolderContents::read, 0, 0}), ownTexts::projectSelected);
    EXPECT_STREQ(emptyText({kindConnection, true, FolderContents::awaited, 0, 0}), ownTexts::connectionSelected);
}

TEST(emptyText, connectionThatIsGone_comesBeforeAllThatFollowsFromIt)
{
    EXPECT_STREQ(emptyText({kindConnection, false, FolderContents::read, 0, 0}), ownTexts::notConnected);
    EXPECT_STREQ(emptyText({folder, false, FolderContents::awaited, 0, 0}), ownTexts::notConnected);
    EXPECT_STREQ(emptyText({folder, false, FolderContents::read, 0, 0}), ownTexts::notConnected);
    EXPECT_STREQ(emptyText({folder, false, FolderContents::unreadable, 0, 0}), ownTexts::notConnected);
}

TEST(emptyText, folderWithoutRows_tellsHowFarItsContentsAre)
{
    EXPECT_STREQ(emptyText({folder, true, FolderContents::awaited, 0, 0}), ownTexts::loading);
    EXPECT_STREQ(emptyText({folder, true, FolderContents::read, 0, 0}), ownTexts::noObjects);
    EXPECT_STREQ(emptyText({folder, true, FolderContents::unreadable, 0, 0}), ownTexts::unreadable);
}

} // namespace
} // namespace velk
