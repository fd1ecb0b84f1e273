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

} // namespace
} // namespace velk
