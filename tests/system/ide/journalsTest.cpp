// What the add-in says to the IDE and to the Backend, call by call.
#include "ideRun.h"

namespace velk {
namespace {

using testing::ElementsAreArray;
using testing::IsEmpty;

class JournalsTest : public test::IdeRun {};

constexpr const char* connected[] = {
    "-- OnConnection",
    "DTE.Windows -> Windows",
    "Windows.Count -> 2",
    "Windows.Item(1) -> Window \"Development Environment\"",
    "Window \"Development Environment\".Type -> 12",
    "Windows.Item(2) -> Window \"Immediate\"",
    "Window \"Immediate\".Type -> 5",
    "DTE.MainWindow -> Window \"Development Environment\"",
    "DTE.CommandBars -> CommandBars",
    "CommandBars.Item(13) -> CommandBar \"Add-Ins\"",
    "CommandBar \"Add-Ins\".Controls -> CommandBar \"Add-Ins\".Controls",
    "CommandBar \"Add-Ins\".Controls.Add(1) -> CommandBarButton \"\"",
    "CommandBarButton \"\".Caption = \"Rozel Development\"",
    "CommandBarButton \"Rozel Development\".OnAction = \"velkviadd.Connect\"",
    "CommandBarButton \"Rozel Development\".PasteFace",
    "DTE.Events -> Events",
    "Events.CommandBarEvents(CommandBarButton \"Rozel Development\") -> CommandBarEvents",
    "CommandBarButton \"Rozel Development\" click connected",
};

constexpr const char* started[] = {
    "DTE.Solution -> Solution",
    "DTE.Solution -> Solution",
    "Solution.Count -> 1",
    "DTE.Windows -> Windows",
    "Windows.CreateToolWindow(AddIn \"velkviadd.Connect\", \"velkviadd.serverViewDoc\", \"Rozel Server View\", "
    "\"{5D1C7A3E-2B94-4F6A-9E0B-7C3D8A61F2B5}\", reference) -> Window \"Rozel Server View\"",
    "DTE.Solution -> Solution",
    "Solution.FullName -> \"$\\orders.sln\"",
    "CommandBarButton \"Rozel Development\".Enabled = False",
    "Window \"Rozel Server View\".Visible = True",
};

std::vector<std::string> joined(std::initializer_list<std::vector<std::string>> parts)
{
    std::vector<std::string> all;
    for (const auto& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

template <size_t size>
std::vector<std::string> table(const char* const (&rows)[size])
{
    return {rows, rows + size};
}

// Which window handle the IDE told is its own business.
std::vector<std::string> withoutHandles(std::vector<std::string> lines)
{
    std::erase_if(lines, [](const std::string& line) { return line.find(".HWnd -> ") != std::string::npos; });
    return lines;
}

TEST_F(JournalsTest, unloadingBeforeAnyClick_touchesTheBackendNotAtAll)
{
    EXPECT_EQ(run("expect-entry Add-Ins/Rozel Development enabled\nunload velkviadd.Connect\n"), 0u);
    EXPECT_THAT(backendJournal(), IsEmpty());
    EXPECT_THAT(withoutHandles(ideJournal()),
                ElementsAreArray(joined({table(connected),
                                         {"-- OnDisconnection", "CommandBarButton \"Rozel Development\".Delete",
                                          "CommandBarButton \"Rozel Development\" click disconnected"}})));
}

TEST_F(JournalsTest, startAndEnd_sayExactlyThisToTheIde)
{
    EXPECT_EQ(
        run("open-solution $SAMPLE\\orders.sln\nclick Add-Ins/Rozel Development\nexpect-node Orders/ORDERS/Views\n"
            "expect-class velkviadd.splashscrnFrm absent\nunload velkviadd.Connect\n"),
        0u);
    EXPECT_THAT(withoutHandles(ideJournal()),
                ElementsAreArray(joined({table(connected),
                                         table(started),
                                         {"-- OnDisconnection", "CommandBarButton \"Rozel Development\".Delete",
                                          "Window \"Rozel Server View\".Close",
                                          "CommandBarButton \"Rozel Development\" click disconnected"}})));
}

TEST_F(JournalsTest, oneFolder_saysExactlyThisToTheBackend)
{
    EXPECT_EQ(run("open-solution $SAMPLE\\orders.sln\nclick Add-Ins/Rozel Development\n"
                  "select-node Orders/ORDERS/Views\nexpect-rows 4\nunload velkviadd.Connect\n"),
              0u);
    EXPECT_THAT(backendJournal(),
                ElementsAreArray({"RZInitialize(3, \"$\\rz\\orders.rzv\", \"\")", "RZGetText(900001)",
                                  "RZProjectDoAccess(\"$\\rz\", \"orders.rzv\", 2)", "RZProjectGet(1001)",
                                  "RZConnectionGet(1002)", "RZSetCurrentFolder(1007, 15)", "RZViewEnumBegin(1007)",
                                  "RZViewEnumNext(800001)", "RZViewEnumNext(800001)", "RZViewEnumNext(800001)",
                                  "RZViewEnumNext(800001)", "RZViewEnumNext(800001)", "RZViewEnumEnd(800001)",
                                  "RZTerminate()"}));
}

} // namespace
} // namespace velk
