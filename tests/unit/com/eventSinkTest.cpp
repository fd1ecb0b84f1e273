#include "com/event_sink.h"

#include "base/module.h"
#include "support/failureLog.h"
#include "support/fakeEvents.h"

#include <gmock/gmock.h>
#include <memory>
#include <span>
#include <vector>

namespace velk {
namespace {

using testing::ElementsAre;

class EventSinkTest : public testing::Test {
protected:
    EventSinkTest()
    {
        connection.connect(source(), 1, [this](const click_event& click) {
            controls.push_back(click.control.get());
            handled.push_back(click.isHandled);
        });
    }
    com_ptr<IDispatch> source() { return static_cast<IDispatch*>(events.get()); }
    IDispatch* control() { return events.get(); }
    // The second argument from the end says whether the click is handled.
    void clickWith(VARIANTARG handledArgument)
    {
        VARIANTARG arguments[3]{};
        arguments[1] = handledArgument;
        arguments[2].vt = VT_DISPATCH;
        arguments[2].pdispVal = control();
        events->raise(1, arguments);
    }

    com_ptr<test::FakeEvents> events = makeObject<test::FakeEvents>();
    event_connection connection;
    std::vector<IDispatch*> controls;
    std::vector<bool> handled;
    const std::shared_ptr<int> token = std::make_shared<int>(0);
};

TEST_F(EventSinkTest, click_tellsItsControlAndThatNobodyHandledIt)
{
    events->click(control());
    EXPECT_THAT(controls, ElementsAre(control()));
    EXPECT_THAT(handled, ElementsAre(false));
}

TEST_F(EventSinkTest, pointThatIsFoundAndNotGiven_failsTheConnection)
{
    events->losesPoint = true;
    EXPECT_THROW(connection.connect(source(), 1, [](const click_event&) {}), Error);
    EXPECT_FALSE(events->isConnected());
}

TEST_F(EventSinkTest, clickThatWasHandled_saysSo)
{
    events->click(control(), true);
    EXPECT_THAT(handled, ElementsAre(true));
}

TEST_F(EventSinkTest, cancelledDefault_isNotTakenForHandled)
{
    VARIANTARG arguments[3]{};
    arguments[0].vt = VT_BOOL;
    arguments[0].boolVal = VARIANT_TRUE;
    events->raise(1, arguments);
    EXPECT_THAT(handled, ElementsAre(false));
}

TEST_F(EventSinkTest, handledByValueOrInAVariant_isRead)
{
    VARIANTARG truth{};
    truth.vt = VT_BOOL;
    truth.boolVal = VARIANT_TRUE;
    clickWith(truth);
    VARIANTARG reference{};
    reference.vt = VT_BYREF | VT_VARIANT;
    reference.pvarVal = &truth;
    clickWith(reference);
    EXPECT_THAT(handled, ElementsAre(true, true));
}

TEST_F(EventSinkTest, handledThatNobodyCanRead_countsAsFalse)
{
    VARIANTARG nowhere{};
    nowhere.vt = VT_BYREF | VT_BOOL;
    clickWith(nowhere);
    VARIANTARG object{};
    object.vt = VT_UNKNOWN;
    clickWith(object);
    EXPECT_THAT(handled, ElementsAre(false, false));
    EXPECT_THAT(controls, ElementsAre(control(), control()));
}

TEST_F(EventSinkTest, missingArguments_areNullAndFalse)
{
    events->raise(1, std::span<VARIANTARG>());
    events->raise(1, nullptr);
    EXPECT_THAT(controls, ElementsAre(nullptr, nullptr));
    EXPECT_THAT(handled, ElementsAre(false, false));
}

TEST_F(EventSinkTest, eventOfAnotherNumber_isNotHeard)
{
    events->raise(2, std::span<VARIANTARG>());
    EXPECT_TRUE(handled.empty());
}

TEST_F(EventSinkTest, handlerThatThrows_isReportedOnly)
{
    test::FailureLog failures;
    connection.connect(source(), 1, [](const click_event&) { throw Error(errorInvalidCall); });
    events->click(control());
    EXPECT_THAT(failures.lines, ElementsAre(L"event sink: 5"));
}

TEST_F(EventSinkTest, handlerThatDisconnects_isStillThereUntilItIsDone)
{
    long holders = 0;
    connection.connect(source(), 1, [this, &holders, held = token](const click_event&) {
        const std::shared_ptr<int>& observed = token; // what the handler holds itself may be gone below
        long& result = holders;
        connection.disconnect();
        result = observed.use_count();
    });
    events->click(control());
    EXPECT_EQ(holders, 2);
    EXPECT_EQ(token.use_count(), 1);
}

TEST_F(EventSinkTest, handlerThatDisconnects_runsInALockedModule)
{
    long during = 0;
    connection.connect(source(), 1, [this, &during](const click_event&) {
        connection.disconnect();
        during = module::lockCount();
    });
    events->click(control());
    EXPECT_EQ(during, module::lockCount() + 1); // the sink's own lock, until its event is over
}

TEST_F(EventSinkTest, eventAfterTheDisconnection_isNotHeardAlthoughTheSourceKeepsTheSink)
{
    events->keepsSink = true;
    connection.disconnect();
    events->click(control());
    EXPECT_TRUE(events->isConnected());
    EXPECT_TRUE(handled.empty());
}

// Its copies need memory, which a sink must not ask for where nothing catches the refusal.
struct CopyCounter {
    int* copies;
    explicit CopyCounter(int* counter) : copies(counter) {}
    CopyCounter(const CopyCounter& other) : copies(other.copies) { ++*copies; }
    CopyCounter& operator=(const CopyCounter&) = delete;
    ~CopyCounter() = default;
    void operator()(const click_event&) const {}
};

TEST_F(EventSinkTest, click_copiesNoHandler)
{
    int copies = 0;
    connection.connect(source(), 1, CopyCounter(&copies));
    const int before = copies;
    events->click(control());
    EXPECT_EQ(copies, before);
}

} // namespace
} // namespace velk
