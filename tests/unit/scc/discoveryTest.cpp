#include "base/registry.h"
#include "scc/VSSAPI.h"
#include "support/outOfMemory.h"

#include <gmock/gmock.h>

namespace velk {
namespace {

using testing::ElementsAre;

constexpr wchar_t testKey[] = L"Software\\velkviadd discovery test";
constexpr wchar_t databasesKey[] = L"Software\\Microsoft\\SourceSafe\\Databases";
constexpr size_t room = 2048; // characters, the closing NUL among them

class DiscoveryTest : public testing::Test {
protected:
    DiscoveryTest() : key(registry::createKey(HKEY_CURRENT_USER, testKey)) {}
    ~DiscoveryTest() override
    {
        key.reset();
        registry::removeTree(HKEY_CURRENT_USER, testKey);
        registry::removeTree(HKEY_LOCAL_MACHINE, L"Software\\Microsoft\\SourceSafe");
    }
    static std::array<std::wstring, 2> valueAt(uint32_t index)
    {
        return getRegValueByIndex(HKEY_CURRENT_USER, testKey, index);
    }

    unique_key key;
};

TEST_F(DiscoveryTest, values_areReadByTheirIndexWithoutTheClosingNul)
{
    registry::setText(key.get(), L"Main", L"C:\\vss");
    registry::setText(key.get(), L"Old", L"");
    EXPECT_THAT(valueAt(0), ElementsAre(L"Main", L"C:\\vss"));
    EXPECT_THAT(valueAt(1), ElementsAre(L"Old", L""));
    EXPECT_THAT(valueAt(2), ElementsAre(L"", L"Not Found"));
}

TEST_F(DiscoveryTest, missingKey_isNotFound)
{
    EXPECT_THAT(getRegValueByIndex(HKEY_CURRENT_USER, L"Software\\no such key", 0), ElementsAre(L"", L"Not Found"));
}

TEST_F(DiscoveryTest, charactersOfTheCodePage_areKept)
{
    registry::setText(key.get(), L"B\u00fccher", L"C:\\B\u00fccher");
    EXPECT_THAT(valueAt(0), ElementsAre(L"B\u00fccher", L"C:\\B\u00fccher"));
}

TEST_F(DiscoveryTest, dataThatFillsTheRoom_isRead)
{
    registry::setText(key.get(), L"Long", std::wstring(room - 1, L'x'));
    EXPECT_EQ(valueAt(0)[1].size(), room - 1);
}

TEST_F(DiscoveryTest, dataBeyondTheRoom_isNotFound)
{
    registry::setText(key.get(), L"Long", std::wstring(room, L'x'));
    EXPECT_EQ(valueAt(0)[1], L"Not Found");
}

TEST_F(DiscoveryTest, valueWithoutAnyData_isEmpty)
{
    RegSetValueExW(key.get(), L"Bare", 0, REG_SZ, nullptr, 0);
    EXPECT_THAT(valueAt(0), ElementsAre(L"Bare", L""));
}

TEST_F(DiscoveryTest, missingDatabasesKey_givesAnEmptyTableAndFalse)
{
    DatabaseTable table{{L"old", L"old"}};
    EXPECT_FALSE(getSourceSafeDatabases(table));
    EXPECT_TRUE(table.empty());
}

TEST_F(DiscoveryTest, databasesKeyWithoutValues_givesAnEmptyTableAndFalse)
{
    registry::createKey(HKEY_LOCAL_MACHINE, databasesKey);
    DatabaseTable table{{L"old", L"old"}};
    EXPECT_FALSE(getSourceSafeDatabases(table));
    EXPECT_TRUE(table.empty());
}

TEST_F(DiscoveryTest, serverPathBeyondTheRoom_countsAsAbsent)
{
    const unique_key install = registry::createKey(HKEY_LOCAL_MACHINE, L"Software\\Microsoft\\SourceSafe");
    registry::setText(install.get(), L"SCCServerPath", std::wstring(room, L'x'));
    EXPECT_FALSE(isSourceSafeInstalled());
}

TEST_F(DiscoveryTest, serverPathWithoutText_countsAsInstalled)
{
    const unique_key install = registry::createKey(HKEY_LOCAL_MACHINE, L"Software\\Microsoft\\SourceSafe");
    registry::setText(install.get(), L"SCCServerPath", L"");
    EXPECT_TRUE(isSourceSafeInstalled());
}

TEST_F(DiscoveryTest, noMemory_countsAsAbsent)
{
    const unique_key install = registry::createKey(HKEY_LOCAL_MACHINE, L"Software\\Microsoft\\SourceSafe");
    registry::setText(install.get(), L"SCCServerPath", L"C:\\vss");
    const test::OutOfMemory none;
    EXPECT_FALSE(isSourceSafeInstalled());
    EXPECT_TRUE(none.wasFelt());
}

} // namespace
} // namespace velk
