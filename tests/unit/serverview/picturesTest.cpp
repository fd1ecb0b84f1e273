#include "serverview/pictures.h"

#include <gtest/gtest.h>

namespace velk {
namespace {

using Texts = std::vector<std::wstring>;

TEST(imageKeys, pictures_haveTheAgreedKeys)
{
    EXPECT_EQ(imageKeys(), (Texts{L"RZFolder", L"FilteredRZFolder", L"ConnectedConnection", L"DisconnectedConnection",
                                  L"StoredProcedure", L"DirtyStoredProcedure", L"UserFunction", L"DirtyUserFunction",
                                  L"Trigger", L"VelkTable", L"VelkView"}));
}

TEST(pictureStripFor, smallIcons_chooseTheLargestPicturesThatAreNoWider)
{
    EXPECT_EQ(pictureStripFor(16).size, 16);
    EXPECT_EQ(pictureStripFor(19).size, 16);
    EXPECT_EQ(pictureStripFor(20).size, 20);
    EXPECT_EQ(pictureStripFor(23).size, 20);
    EXPECT_EQ(pictureStripFor(24).size, 24);
    EXPECT_EQ(pictureStripFor(48).size, 24);
}

TEST(pictureStripFor, iconsSmallerThanAnyPicture_chooseTheSmallest)
{
    EXPECT_EQ(pictureStripFor(0).size, 16);
}

} // namespace
} // namespace velk
