#include "model/IntegrationMgr.h"

#include "base/error.h"
#include "support/fakeManager.h"

#include <functional>
#include <gmock/gmock.h>

namespace velk {
namespace {

int32_t errorNumberOf(const std::function<void()>& call)
{
    try {
        call();
    } catch (const Error& error) {
        return error.number();
    }
    return 0;
}

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
