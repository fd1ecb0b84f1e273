#include "model/IntegrationMgr.h"

#include "support/errorNumber.h"
#include "support/fakeManager.h"

#include <gmock/gmock.h>

namespace velk {
namespace {

using test::errorNumberOf;

TEST(IntegrationMgr, missingManager_isError91)
{
    EXPECT_EQ(errorNumberOf([] { IntegrationMgr().showDevView(); }), errorObjectNotSet);
}

TEST(IntegrationMgr, failingManager_failsEveryList)
{
    test::Lines journal;
    const auto fake = makeObject<test::FakeManager>(journal);
    fake->failWith = E_ACCESSDENIED;
    const IntegrationMgr manager(com_ptr<_IntegrationMgr>(fake.get()));
    EXPECT_EQ(errorNumberOf([&] { manager.getProjList(); }), errorPermissionDenied);
    EXPECT_EQ(errorNumberOf([&] { manager.getDataEnvList(L"Web"); }), errorPermissionDenied);
    EXPECT_EQ(errorNumberOf([&] { manager.getConnectionList(L"DE1", L"Web"); }), errorPermissionDenied);
}

} // namespace
} // namespace velk
