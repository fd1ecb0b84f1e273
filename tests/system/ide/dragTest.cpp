// Rows that are dragged out of the tool window, with a real mouse and by OLE.
#include "ideRun.h"

#include <algorithm>

namespace velk {
namespace {

const std::string viewStarted = "open-solution $SAMPLE\\orders.sln\nclick Add-Ins/Rozel Development\n"
                                "expect-node Orders/ORDERS/Views\nexpect-class velkviadd.splashscrnFrm absent\n"
                                "select-node Orders/ORDERS/Stored Procedures\nexpect-rows 4\n";
const std::string addinGone = "unload velkviadd.Connect\nexpect-module velkviadd.dll unloaded\n";

class DragTest : public test::IdeRun {
protected:
    std::vector<std::string> drops() const
    {
        std::vector<std::string> found;
        for (const std::string& line : ideJournal())
            if (line.starts_with("Immediate dropped "))
                found.push_back(line);
        return found;
    }
};

TEST_F(DragTest, rowDraggedToTheImmediateWindow_arrives)
{
    EXPECT_EQ(runShown(viewStarted + "drag place_order to immediate\nexpect-immediate sales.place_order\n" + addinGone),
              0u);
    EXPECT_THAT(drops(), testing::ElementsAre("Immediate dropped \"sales.place_order\""));
}

TEST_F(DragTest, severalRows_arriveInTheOrderShown)
{
    EXPECT_EQ(runShown(viewStarted +
                       "select-node Orders/ORDERS/Tables\nexpect-rows 8\nexpect-row stock\n"
                       "drag stock|customers to immediate\nexpect-immediate main.customers, main.stock\n" +
                       addinGone),
              0u);
    EXPECT_THAT(drops(), testing::ElementsAre("Immediate dropped \"main.customers, main.stock\""));
}

TEST_F(DragTest, cancelledDrag_leavesNothing)
{
    EXPECT_EQ(runShown(viewStarted + "drag-and-cancel place_order to immediate\nexpect-rows 4\n" + addinGone), 0u);
    EXPECT_THAT(drops(), testing::IsEmpty());
}

// What the IDE does inside a call of the drag to its own window ends the drag.
class UnkindDragTest : public DragTest, public testing::WithParamInterface<const wchar_t*> {};

TEST_P(UnkindDragTest, ideThatTakesTheViewAwayMeanwhile_getsNoText)
{
    EXPECT_EQ(runShown(viewStarted + "drag-and-let-go place_order to immediate\n" + addinGone,
                       std::wstring(L"--reentry ") + GetParam()),
              0u);
    EXPECT_THAT(drops(), testing::IsEmpty());
}
INSTANTIATE_TEST_SUITE_P(Places, UnkindDragTest,
                         testing::Values(L"Immediate.DragEnter#1=disconnect", L"Immediate.DragOver#1=disconnect",
                                         L"Immediate.DragOver#1=let-go", L"Immediate.DragOver#1=close-window"));

TEST_F(DragTest, addInThatIsUnloadedInsideTheDrop_hasDeliveredItsText)
{
    EXPECT_EQ(
        runShown(viewStarted + "drag place_order to immediate\n" + addinGone, L"--reentry Immediate.Drop#1=disconnect"),
        0u);
    const std::vector<std::string> lines = ideJournal();
    const auto end = std::find(lines.begin(), lines.end(), "-- OnDisconnection");
    EXPECT_NE(std::find(end, lines.end(), "Immediate dropped \"sales.place_order\""), lines.end());
}

TEST_F(DragTest, ideThatPumpsInsideItsCalls_getsTheText)
{
    EXPECT_EQ(runShown("expect-journal click connected\n" + viewStarted + "drag place_order to immediate\n" + addinGone,
                       L"--pump"),
              0u);
    EXPECT_THAT(drops(), testing::SizeIs(1));
}

TEST_F(DragTest, ideThatEndsDuringTheDrag_ends)
{
    EXPECT_EQ(runShown(viewStarted + "drag-and-let-go place_order to immediate\n",
                       L"--reentry Immediate.DragOver#1=close-ide"),
              0u);
}

} // namespace
} // namespace velk
