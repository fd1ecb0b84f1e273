#include "serverview/viewStore.h"

#include "base/registry.h"
#include "serverview/viewMemory.h"
#include "support/keptView.h"

#include <gmock/gmock.h>

namespace velk {
namespace {

constexpr size_t most = 1000;

class ViewStoreTest : public testing::Test {
protected:
    static std::wstring projectsKey() { return std::wstring(test::keptViewKey) + L"\\Projects"; }
    static unique_key key(const std::wstring& path) { return registry::createKey(HKEY_CURRENT_USER, path); }
    static void put(DWORD type, const void* data, DWORD size)
    {
        RegSetValueExW(key(test::keptViewKey).get(), L"Splitter", 0, type, static_cast<const BYTE*>(data), size);
    }
    static std::wstring usedAt(uint64_t time)
    {
        ProjectView view;
        view.lastUsed = time;
        return keptTextOf(view);
    }
    static size_t keptProjects() { return registry::valueNames(HKEY_CURRENT_USER, projectsKey(), most).size(); }
};

TEST_F(ViewStoreTest, keyThatIsNotThere_holdsNothingAndIsNotMadeByReading)
{
    EXPECT_EQ(viewStore::value(L"Splitter"), L"");
    EXPECT_EQ(viewStore::project(L"c:\\rz\\orders.rzv"), L"");
    unique_key opened;
    EXPECT_NE(RegOpenKeyExW(HKEY_CURRENT_USER, test::keptViewKey, 0, KEY_READ, opened.put()), ERROR_SUCCESS);
}

TEST_F(ViewStoreTest, value_isReadAsItWasWritten)
{
    viewStore::setValue(L"Splitter", L"1;3600");
    EXPECT_EQ(viewStore::value(L"Splitter"), L"1;3600");
    EXPECT_EQ(viewStore::value(L"splitter"), L"1;3600");
    EXPECT_EQ(viewStore::value(L"Filter"), L"");
}

TEST_F(ViewStoreTest, emptyText_takesTheValueAway)
{
    viewStore::setValue(L"Splitter", L"1;3600");
    viewStore::setValue(L"Splitter", L"");
    viewStore::setValue(L"Splitter", L"");
    EXPECT_TRUE(registry::valueNames(HKEY_CURRENT_USER, test::keptViewKey, most).empty());
}

TEST_F(ViewStoreTest, valueOfAnotherKind_isAbsent)
{
    const DWORD number = 3600;
    put(REG_DWORD, &number, sizeof number);
    EXPECT_EQ(viewStore::value(L"Splitter"), L"");
    put(REG_BINARY, L"1;3600", 14);
    EXPECT_EQ(viewStore::value(L"Splitter"), L"");
    put(REG_EXPAND_SZ, L"1;3600", 14);
    EXPECT_EQ(viewStore::value(L"Splitter"), L"");
}

TEST_F(ViewStoreTest, textWithoutItsEnd_isReadAsFarAsItGoes)
{
    put(REG_SZ, L"1;3600", 12);
    EXPECT_EQ(viewStore::value(L"Splitter"), L"1;3600");
    put(REG_SZ, L"1;3600", 11); // half of a character is none
    EXPECT_EQ(viewStore::value(L"Splitter"), L"1;360");
    put(REG_SZ, L"", 0);
    EXPECT_EQ(viewStore::value(L"Splitter"), L"");
}

TEST_F(ViewStoreTest, textWithNulsInside_isNotCut)
{
    put(REG_SZ, L"1;3600\0x", 18);
    EXPECT_EQ(viewStore::value(L"Splitter"), std::wstring(L"1;3600\0x", 8));
}

TEST_F(ViewStoreTest, textLongerThanAnyThatIsKept_isAbsent)
{
    viewStore::setValue(L"Splitter", std::wstring(longestKeptText, L'1'));
    EXPECT_EQ(viewStore::value(L"Splitter").size(), longestKeptText);
    viewStore::setValue(L"Splitter", std::wstring(longestKeptText + 1, L'1'));
    EXPECT_EQ(viewStore::value(L"Splitter"), L"");
}

TEST_F(ViewStoreTest, project_hasOneNameHoweverItsPathIsWritten)
{
    EXPECT_EQ(viewStore::projectName(L"C:\\Work\\rz\\Orders.rzv"), L"c:\\work\\rz\\orders.rzv");
    EXPECT_EQ(viewStore::projectName(L"c:\\work\\.\\x\\..\\rz\\\\ORDERS.RZV"), L"c:\\work\\rz\\orders.rzv");
    EXPECT_EQ(viewStore::projectName(L"\\\\Server\\Share\\Orders.rzv"), L"\\\\server\\share\\orders.rzv");
    EXPECT_EQ(viewStore::projectName(L"C:\\\u00C4.rzv"), L"c:\\\u00E4.rzv");
}

TEST_F(ViewStoreTest, pathThatIsNoPlace_hasNoName)
{
    EXPECT_EQ(viewStore::projectName(L""), L"");
    EXPECT_EQ(viewStore::projectName(L"orders.rzv"), L"");
    EXPECT_EQ(viewStore::projectName(L"C:orders.rzv"), L"");
    EXPECT_EQ(viewStore::projectName(L"\\rz\\orders.rzv"), L"");
    EXPECT_EQ(viewStore::projectName(L"C:\\" + std::wstring(1022, L'x')), L"");
    EXPECT_EQ(viewStore::projectName(std::wstring(L"C:\\a\0b", 6)), L"");
}

TEST_F(ViewStoreTest, projectBeyondFifty_takesTheLeastRecentlyUsedAway)
{
    for (uint64_t number = 1; number <= 50; ++number)
        viewStore::setProject(L"c:\\p" + std::to_wstring(number), usedAt(number));
    EXPECT_EQ(keptProjects(), 50u);
    viewStore::setProject(L"c:\\p1", usedAt(60));
    viewStore::setProject(L"c:\\new", usedAt(61));
    EXPECT_EQ(keptProjects(), 50u);
    EXPECT_EQ(viewStore::project(L"c:\\p2"), L"");
    EXPECT_EQ(viewStore::project(L"c:\\p1"), usedAt(60));
}

TEST_F(ViewStoreTest, keyFullOfOtherThings_isEmptiedThousandByThousand)
{
    {
        const unique_key projects = key(projectsKey());
        for (int number = 0; number < 1100; ++number)
            registry::setText(projects.get(), L"junk" + std::to_wstring(number), L"what is this");
    }
    viewStore::setProject(L"c:\\new", usedAt(1));
    viewStore::setProject(L"c:\\new", usedAt(2));
    EXPECT_EQ(keptProjects(), 50u);
    EXPECT_EQ(viewStore::project(L"c:\\new"), usedAt(2));
}

} // namespace
} // namespace velk
