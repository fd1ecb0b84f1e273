#include "serverview/contextMenus.h"

#include "scarceMemory.h"

#include <gtest/gtest.h>

namespace velk {
namespace {

TEST(ContextMenusMemoryTest, makingWithoutMemory_isAFailureAndNotTheEndOfTheProcess)
{
    ViewParts parts;
    CurrentFolder folder(parts);
    EXPECT_GT(test::failAtEachAllocation([&] { const ContextMenus menus(parts, folder); }, [] {}), 0);
}

} // namespace
} // namespace velk
