#include "base/session.h"

#include "base/error.h"
#include "support/outOfMemory.h"

#include <gtest/gtest.h>

namespace velk {
namespace {

TEST(session, notEnding_isNotOver)
{
    const Session session;
    EXPECT_EQ(session.state(), SessionState::loaded);
    session.enter(SessionState::running);
    EXPECT_FALSE(session.isOver());
    EXPECT_NO_THROW(session.throwIfOver());
}

TEST(session, end_isTheSameForEveryCopyFromItsBeginningOn)
{
    const Session session;
    const Session copy = session;
    session.enter(SessionState::ending);
    EXPECT_TRUE(copy.isOver());
    EXPECT_TRUE(copy == session);
    EXPECT_THROW(copy.throwIfOver(), Error);
}

TEST(session, ofNobody_needsNoMemory)
{
    const test::OutOfMemory none;
    EXPECT_FALSE(Session::none().isOver());
    EXPECT_FALSE(none.wasFelt());
}

TEST(session, part_isOverWithTheWholeAndNotTheOtherWayRound)
{
    const Session whole;
    const Session early = whole.part();
    const Session late = whole.part();
    early.enter(SessionState::ended);
    EXPECT_TRUE(early.isOver());
    EXPECT_FALSE(whole.isOver());
    EXPECT_FALSE(late.isOver());
    whole.enter(SessionState::ending);
    EXPECT_TRUE(late.isOver());
    EXPECT_FALSE(late == whole);
}

} // namespace
} // namespace velk
