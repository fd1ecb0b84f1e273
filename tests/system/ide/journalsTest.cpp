// What the add-in says to the IDE and to the Backend, call by call.
#include "ideRun.h"

#include <span>

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
    "CommandBarButton \"Rozel Development\".Picture unknown",
    "CommandBarButton \"Rozel Development\".PasteFace",
    "DTE.Events -> Events",
    "Events.CommandBarEvents(CommandBarButton \"Rozel Development\") -> CommandBarEvents",
    "CommandBarButton \"Rozel Development\" click connected",
};

constexpr const char* windowMade[] = {
    "DTE.Solution -> Solution",
    "DTE.Solution -> Solution",
    "Solution.Count -> 1",
    "DTE.Windows -> Windows",
    "Windows.CreateToolWindow(AddIn \"velkviadd.Connect\", \"velkviadd.serverViewDoc\", \"Rozel Server View\", "
    "\"{5D1C7A3E-2B94-4F6A-9E0B-7C3D8A61F2B5}\", reference) -> Window \"Rozel Server View\"",
    "DTE.Solution -> Solution",
    "Solution.FullName -> \"$\\orders.sln\"",
};

constexpr const char* started[] = {
    "CommandBarButton \"Rozel Development\".Enabled = False",
    "Window \"Rozel Server View\".Visible = True",
    "CommandBarPopup \"Views\".Enabled = True",
    "CommandBarPopup \"Views\".Visible = True",
    "CommandBarButton \"Server View\".Enabled = True",
    "CommandBarButton \"Server View\".Visible = True",
    "CommandBarButton \"Output View\".Enabled = True",
    "CommandBarButton \"Output View\".Visible = True",
};

struct ButtonRow {
    const char* caption;
    const char* action;
    bool hasFace;
};
constexpr ButtonRow toolbarRows[] = {
    {"Development Center", "1", true}, {"Control Center", "3", true}, {"SQL Assist", "2", true},
    {"Visual Explain", "4", true},     {"Command Center", "5", true}, {"Event Analyzer", "10", true},
    {"Help on Rozel", "6", true},
};
constexpr ButtonRow viewRows[] = {{"Server View", "8", false}, {"Output View", "7", false}};
constexpr ButtonRow toolRows[] = {
    {"Development Center", "1", true}, {"Control Center", "3", true}, {"SQL Assist", "2", true},
    {"Visual Explain", "4", true},     {"Command Center", "5", true}, {"Event Analyzer", "10", true},
};
constexpr ButtonRow helpRows[] = {
    {"Product Information", "12", false}, {"Help on Rozel", "6", true}, {"About Velk Development Add-In", "30", false}};

using Journal = std::vector<std::string>;

std::string button(const ButtonRow& row)
{
    return "CommandBarButton \"" + std::string(row.caption) + "\"";
}

std::vector<std::string> joined(std::initializer_list<std::vector<std::string>> parts)
{
    std::vector<std::string> all;
    for (const auto& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

// How one entry comes into being on a bar: added, dressed, listened to. The first of all asks for the events' object.
Journal added(const ButtonRow& row, const std::string& controls, const std::string& arguments)
{
    Journal lines{controls + ".Add(" + arguments + ") -> CommandBarButton \"\"",
                  "CommandBarButton \"\".Caption = \"" + std::string(row.caption) + "\""};
    // The IDE's buttons have no pictures of their own, so faces go by the clipboard.
    if (row.hasFace)
        lines = joined({lines, {button(row) + ".Picture unknown", button(row) + ".PasteFace"}});
    lines.push_back(button(row) + ".OnAction = \"" + row.action + "\"");
    lines.push_back(button(row) + ".Tag = \"velkviadd\"");
    if (&row == toolbarRows)
        lines.push_back("DTE.Events -> Events");
    lines.push_back("Events.CommandBarEvents(" + button(row) + ") -> CommandBarEvents");
    lines.push_back(button(row) + " click connected");
    return lines;
}

// The search for a menu among those of the menu bar, none of which it is.
Journal menuSearched()
{
    constexpr const char* menus[] = {"&File", "&Edit", "&View", "&Project", "&Tools", "&Add-Ins", "&Window", "&Help"};
    constexpr size_t count = std::size(menus);
    Journal lines{"CommandBars.ActiveMenuBar -> CommandBar \"MenuBar\"",
                  "CommandBar \"MenuBar\".Controls -> CommandBar \"MenuBar\".Controls",
                  "CommandBar \"MenuBar\".Controls.Count -> " + std::to_string(count)};
    for (size_t number = 1; number <= count; ++number) {
        const std::string menu = "CommandBarPopup \"" + std::string(menus[number - 1]) + "\"";
        lines.push_back("CommandBar \"MenuBar\".Controls.Item(" + std::to_string(number) + ") -> " + menu);
        lines.push_back(menu + ".Caption -> \"" + menus[number - 1] + "\"");
    }
    return lines;
}

Journal removed(std::span<const ButtonRow> rows)
{
    Journal lines;
    for (size_t left = rows.size(); left > 0; --left) {
        lines.push_back(button(rows[left - 1]) + " click disconnected");
        lines.push_back(button(rows[left - 1]) + ".Delete(True)");
    }
    return lines;
}

template <size_t size>
std::vector<std::string> table(const char* const (&rows)[size])
{
    return {rows, rows + size};
}

Journal toolbarMade()
{
    Journal lines{"DTE.CommandBars -> CommandBars",
                  "CommandBars.Item(\"Rozel\") failed: Invalid procedure call or argument",
                  "CommandBars.Add(\"Rozel\", 1, False, True) -> CommandBar \"Rozel\"",
                  "CommandBar \"Rozel\".Controls -> CommandBar \"Rozel\".Controls"};
    for (const ButtonRow& row : toolbarRows)
        lines = joined({lines, added(row, "CommandBar \"Rozel\".Controls", "1")});
    lines.push_back("CommandBar \"Rozel\".Visible = True");
    return lines;
}

Journal menusMade()
{
    constexpr const char* here = "CommandBar \"\".Controls";
    constexpr const char* temporary = "1, , , , True";
    Journal lines = joined(
        {menuSearched(),
         {"CommandBar \"MenuBar\".Controls.Add(10, , , , True) -> CommandBarPopup \"\"",
          "CommandBarPopup \"\".Caption = \"Rozel\"", "CommandBarPopup \"Rozel\".Controls -> CommandBar \"\".Controls",
          "CommandBar \"\".Controls.Add(10, , , , True) -> CommandBarPopup \"\"",
          "CommandBarPopup \"\".Caption = \"Views\"", "CommandBarPopup \"Views\".BeginGroup = True",
          "CommandBarPopup \"Views\".Controls -> CommandBar \"\".Controls"}});
    for (const ButtonRow& row : viewRows)
        lines = joined({lines, added(row, here, temporary)});
    const auto addGroup = [&](std::span<const ButtonRow> rows) {
        lines.push_back("CommandBarPopup \"Rozel\".Controls -> CommandBar \"\".Controls");
        for (const ButtonRow& row : rows) {
            lines = joined({lines, added(row, here, temporary)});
            if (&row == rows.data())
                lines.push_back(button(row) + ".BeginGroup = True");
        }
    };
    addGroup(toolRows);
    addGroup(helpRows);
    return lines;
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
                ElementsAreArray(joined(
                    {table(connected),
                     table(windowMade),
                     toolbarMade(),
                     menusMade(),
                     table(started),
                     {"-- OnDisconnection", "CommandBarButton \"Rozel Development\".Delete",
                      "Window \"Rozel Server View\".Close"},
                     removed(helpRows),
                     removed(toolRows),
                     removed(viewRows),
                     {"CommandBarPopup \"Views\".Delete(True)", "CommandBarPopup \"Rozel\".Delete(True)"},
                     removed(toolbarRows),
                     {"CommandBar \"Rozel\".Delete", "CommandBarButton \"Rozel Development\" click disconnected"}})));
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

TEST_F(JournalsTest, workOnAProcedure_saysExactlyThisToTheBackend)
{
    EXPECT_EQ(runShown("open-solution $SAMPLE\\orders.sln\nclick Add-Ins/Rozel Development\n"
                       "select-node Orders/ORDERS/Stored Procedures\nexpect-rows 4\n"
                       "right-click-row raise_prices\nchoose-menu Build\nexpect-message was built\nanswer ok\n"
                       "right-click-row raise_prices\nchoose-menu Drop From Database\nexpect-message Drop\n"
                       "answer yes\nexpect-rows 3\nselect-row close_order\npress f5\nexpect-rows 3\nwait 300\n"
                       "right-click-row close_order\nchoose-menu View Source\nwait 300\nunload velkviadd.Connect\n"),
              0u);
    Journal calls = backendJournal();
    std::erase_if(calls, [](const std::string& line) { return line.starts_with("RZProcedureEnumNext"); });
    EXPECT_THAT(calls, ElementsAreArray({"RZInitialize(3, \"$\\rz\\orders.rzv\", \"\")",
                                         "RZGetText(900001)",
                                         "RZProjectDoAccess(\"$\\rz\", \"orders.rzv\", 2)",
                                         "RZProjectGet(1001)",
                                         "RZConnectionGet(1002)",
                                         "RZSetCurrentFolder(1003, 7)",
                                         "RZProcedureEnumBegin(1003)",
                                         "RZProcedureEnumEnd(800001)",
                                         "RZObjectDoAction(1010, 18)",
                                         "RZGetText(900002)", // make room
                                         "RZProcedureGet(1010)",
                                         "RZGetText(900003)", // done
                                         "RZGetText(900004)", // the message
                                         "RZObjectDoAction(1010, 22)",
                                         "RZGetText(900005)", // the question
                                         "RZButtonDoAction(\"User response\", 6)",
                                         "RZObjectDoAction(1003, 10)",
                                         "RZProcedureEnumBegin(1003)",
                                         "RZProcedureEnumEnd(800002)",
                                         "RZObjectDoAction(1009, 25)",
                                         "RZGetSQLText(900006)",
                                         "RZTerminate()"}));
}

} // namespace
} // namespace velk
