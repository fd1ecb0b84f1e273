#include "com/event_sink.h"
#include "ideFixture.h"

namespace velk::devkit {
namespace {

using testing::ElementsAre;

class CommandBarsTest : public IdeFixture {};

TEST_F(CommandBarsTest, bars_areThirteenAndMore)
{
    EXPECT_GE(automation::get(bars(), L"Count").asLong(), 13);
}

TEST_F(CommandBarsTest, barThirteen_isAVisibleToolbar)
{
    EXPECT_EQ(automation::get(bar(13), L"Type").asLong(), 0);
    EXPECT_TRUE(automation::get(bar(13), L"Visible").asBool());
}

TEST_F(CommandBarsTest, barByName_isTheSameAsByNumber)
{
    EXPECT_EQ(automation::getObject(bars(), L"Item", {variant(L"Add-Ins")}), bar(13));
}

TEST_F(CommandBarsTest, unknownBar_isErrorFive)
{
    EXPECT_EQ(failureOf([&] { automation::getObject(bars(), L"Item", {variant(L"No such bar")}); }), 5);
    EXPECT_EQ(failureOf([&] { automation::getObject(bars(), L"Item", {variant(99)}); }), 5);
}

TEST_F(CommandBarsTest, addByNamedArguments_setsTypeAndPlace)
{
    const auto controls = automation::getObject(bar(13), L"Controls");
    automation::call(controls, L"Add", {variant(1)});
    const auto popup =
        automation::call(controls, L"Add",
                         {{}, {{L"Before", variant(1)}, {L"Type", variant(10)}, {L"Temporary", variant(true)}}})
            .asObject();
    EXPECT_EQ(automation::get(popup, L"Type").asLong(), 10);
    EXPECT_EQ(automation::get(popup, L"Index").asLong(), 1);
    EXPECT_TRUE(dte->bars->find(L"Add-Ins")->controls.front()->temporary);
}

TEST_F(CommandBarsTest, button_hasNoControls)
{
    EXPECT_FALSE(automation::hasMember(addButton().get(), L"Controls"));
}

TEST_F(CommandBarsTest, deletedControl_isGoneFromItsBarAndCannotBeDeletedAgain)
{
    const auto button = addButton();
    automation::call(button, L"Delete");
    EXPECT_EQ(automation::get(automation::getObject(bar(13), L"Controls"), L"Count").asLong(), 0);
    EXPECT_EQ(failureOf([&] { automation::call(button, L"Delete"); }), 5);
}

TEST_F(CommandBarsTest, newBar_canBeFoundAndDeletedWhileABuiltInOneCannot)
{
    const auto made =
        automation::call(bars(), L"Add", {variant(L"Mine"), variant(1), variant(false), variant(true)}).asObject();
    EXPECT_EQ(automation::getObject(bars(), L"Item", {variant(L"mine")}), made);
    automation::call(made, L"Delete");
    EXPECT_EQ(failureOf([&] { automation::getObject(bars(), L"Item", {variant(L"Mine")}); }), 5);
    EXPECT_EQ(failureOf([&] { automation::call(bar(13), L"Delete"); }), 5);
}

TEST_F(CommandBarsTest, menuBar_holdsTheMenusByCaptionWithoutMarks)
{
    const auto controls = automation::getObject(automation::getObject(bars(), L"ActiveMenuBar"), L"Controls");
    EXPECT_EQ(automation::get(automation::getObject(controls, L"Item", {variant(L"tools")}), L"Caption").asText(),
              L"&Tools");
}

TEST_F(CommandBarsTest, pasteFace_takesThePictureFromTheClipboard)
{
    const auto button = addButton();
    OpenClipboard(nullptr);
    EmptyClipboard();
    SetClipboardData(CF_BITMAP, CreateBitmap(16, 16, 1, 24, nullptr));
    CloseClipboard();
    automation::call(button, L"PasteFace");
    EXPECT_TRUE(static_cast<bool>(dte->bars->find(L"Add-Ins")->controls.front()->face));
}

TEST_F(CommandBarsTest, pasteFaceFromAnEmptyClipboard_fails)
{
    const auto button = addButton();
    OpenClipboard(nullptr);
    EmptyClipboard();
    CloseClipboard();
    EXPECT_EQ(failureOf([&] { automation::call(button, L"PasteFace"); }), 5);
}

class ClicksTest : public CommandBarsTest {
protected:
    void connect(const com_ptr<IDispatch>& control)
    {
        const auto events = automation::getObject(root, L"Events");
        connection.connect(automation::getObject(events, L"CommandBarEvents", {variant(control)}), 1,
                           [this](const click_event& click) { clicked.push_back(click.control.get()); });
    }
    event_connection connection;
    std::vector<IDispatch*> clicked;
};

TEST_F(ClicksTest, click_reachesTheSinkWithItsControl)
{
    const auto button = addButton();
    connect(button);
    automation::put(button, L"OnAction", variant(L"x"));
    automation::call(button, L"Execute");
    EXPECT_THAT(clicked, ElementsAre(button.get()));
}

TEST_F(ClicksTest, controlWithoutAction_raisesNothing)
{
    const auto button = addButton();
    connect(button);
    automation::call(button, L"Execute");
    EXPECT_TRUE(clicked.empty());
}

TEST_F(ClicksTest, disabledControl_cannotBeExecuted)
{
    const auto button = addButton();
    connect(button);
    automation::put(button, L"OnAction", variant(L"x"));
    automation::put(button, L"Enabled", variant(false));
    EXPECT_EQ(failureOf([&] { automation::call(button, L"Execute"); }), 5);
    EXPECT_TRUE(clicked.empty());
}

TEST_F(ClicksTest, disconnectedSink_hearsNothingMore)
{
    const auto button = addButton();
    connect(button);
    automation::put(button, L"OnAction", variant(L"x"));
    connection.disconnect();
    automation::call(button, L"Execute");
    EXPECT_TRUE(clicked.empty());
}

TEST_F(ClicksTest, sinkThatDisconnectsItself_isSafe)
{
    const auto button = addButton();
    automation::put(button, L"OnAction", variant(L"x"));
    const auto events = automation::getObject(root, L"Events");
    connection.connect(automation::getObject(events, L"CommandBarEvents", {variant(button)}), 1,
                       [this](const click_event&) { connection.disconnect(); });
    automation::call(button, L"Execute");
    EXPECT_THAT(recorder().lines(), testing::Contains(L"CommandBarButton \"\" click disconnected"));
}

} // namespace
} // namespace velk::devkit
