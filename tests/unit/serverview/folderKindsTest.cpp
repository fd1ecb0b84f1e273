#include "serverview/folderKinds.h"

#include <gtest/gtest.h>

namespace velk {
namespace {

TEST(folderKindRow, otherKinds_haveNone)
{
    EXPECT_EQ(folderKindRow(5), nullptr);
    EXPECT_EQ(folderKindRow(8), nullptr);
    EXPECT_EQ(folderKindRow(13)->objectKind(), 14);
}

TEST(folderKindRowOfObjects, kindOfFolders_hasNone)
{
    EXPECT_EQ(folderKindRowOfObjects(14), folderKindRow(13));
    EXPECT_EQ(folderKindRowOfObjects(13), nullptr);
    EXPECT_EQ(folderKindRowOfObjects(kindConnection), nullptr);
}

} // namespace
} // namespace velk
