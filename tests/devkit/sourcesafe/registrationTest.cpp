#include "sampleDatabase.h"

#include <set>

namespace velk {
namespace {

constexpr wchar_t installKey[] = L"Software\\Microsoft\\SourceSafe";

// The keys and values right below a key, as lines.
void list(const std::wstring& path, std::set<std::wstring>& lines)
{
    unique_key key;
    if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, KEY_READ, key.put()) != ERROR_SUCCESS)
        return;
    lines.insert(path);
    wchar_t name[512];
    DWORD length = 512;
    for (DWORD index = 0; RegEnumValueW(key.get(), index, name, &length, nullptr, nullptr, nullptr, nullptr) == 0;
         ++index, length = 512)
        lines.insert(path + L" @ " + name);
    for (DWORD index = 0; RegEnumKeyW(key.get(), index, name, 512) == 0; ++index)
        lines.insert(path + L"\\" + name);
}

// The places where a server can leave something.
std::set<std::wstring> registryNow()
{
    std::set<std::wstring> lines;
    list(L"Software\\Classes", lines);
    list(L"Software\\Classes\\CLSID", lines);
    list(L"Software\\Microsoft", lines);
    list(installKey, lines);
    return lines;
}

class SourceSafeRegistrationTest : public test::SourceSafeFixture {
protected:
    SourceSafeRegistrationTest() { callEntry("DllUnregisterServer"); }
};

TEST_F(SourceSafeRegistrationTest, unregistering_leavesNoTrace)
{
    const std::set<std::wstring> before = registryNow();
    EXPECT_EQ(callEntry("DllRegisterServer"), S_OK);
    EXPECT_GT(registryNow().size(), before.size());
    EXPECT_EQ(callEntry("DllUnregisterServer"), S_OK);
    EXPECT_EQ(registryNow(), before);
}

TEST_F(SourceSafeRegistrationTest, unregisteringWhatIsNotRegistered_succeeds)
{
    EXPECT_EQ(callEntry("DllUnregisterServer"), S_OK);
}

TEST_F(SourceSafeRegistrationTest, unregistering_leavesTheListOfDatabasesToItsMaker)
{
    const std::wstring databases = std::wstring(installKey) + L"\\Databases";
    registry::setText(registry::createKey(HKEY_LOCAL_MACHINE, databases).get(), L"Main", L"C:\\vss");
    callEntry("DllRegisterServer");
    callEntry("DllUnregisterServer");
    EXPECT_TRUE(registry::hasAnsiValue(HKEY_LOCAL_MACHINE, databases, L"Main"));
    registry::removeTree(HKEY_LOCAL_MACHINE, installKey);
}

TEST_F(SourceSafeRegistrationTest, bothNames_meanTheClass)
{
    callEntry("DllRegisterServer");
    CLSID plain{}, versioned{};
    EXPECT_EQ(CLSIDFromProgID(L"SourceSafe", &plain), S_OK);
    EXPECT_EQ(CLSIDFromProgID(L"SourceSafe.0", &versioned), S_OK);
    EXPECT_TRUE(plain == devkit::vss::databaseClass && versioned == devkit::vss::databaseClass);
}

TEST_F(SourceSafeRegistrationTest, dll_staysWhileAnObjectLives)
{
    callEntry("DllRegisterServer");
    com_ptr<IDispatch> database = automation::createObject(L"SourceSafe");
    EXPECT_EQ(callEntry("DllCanUnloadNow"), S_FALSE);
    database.reset();
    EXPECT_EQ(callEntry("DllCanUnloadNow"), S_OK);
}

} // namespace
} // namespace velk
