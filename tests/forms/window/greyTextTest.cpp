#include "window/grey_text.h"

#include <gtest/gtest.h>

namespace velk {
namespace {

TEST(steppingBack, greyOfASchemeThatHasItForTheWindow_isTheTextsColour)
{
    EXPECT_EQ(steppingBack(0x808080, 0xFFFFFF, 0x000000), 0x808080u);
    EXPECT_EQ(steppingBack(0xFFFFFF, 0xFFFFFF, 0x000000), 0x000000u);
}

} // namespace
} // namespace velk
