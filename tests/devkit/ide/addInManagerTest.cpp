#include "ideFixture.h"

namespace velk::devkit {
namespace {

using testing::Contains;
using testing::Field;

constexpr wchar_t root[] = L"Software\\Microsoft\\VisualStudio\\6.0\\AddIns\\";

// A registration that goes with the test.
class Registration {
public:
    Registration(HKEY hive, std::wstring progId, const std::wstring& name, DWORD behavior)
        : m_hive(hive), m_path(root + std::move(progId))
    {
        unique_key key;
        RegCreateKeyExW(hive, m_path.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, key.put(), nullptr);
        RegSetValueExW(key.get(), L"FriendlyName", 0, REG_SZ, reinterpret_cast<const BYTE*>(name.c_str()),
                       static_cast<DWORD>((name.size() + 1) * sizeof(wchar_t)));
        RegSetValueExW(key.get(), L"LoadBehavior", 0, REG_DWORD, reinterpret_cast<const BYTE*>(&behavior),
                       sizeof behavior);
    }
    Registration(const Registration&) = delete;
    Registration& operator=(const Registration&) = delete;
    ~Registration() { RegDeleteKeyW(m_hive, m_path.c_str()); }

private:
    HKEY m_hive;
    std::wstring m_path;
};

class AddInManagerTest : public IdeFixture {
protected:
    AddInManager manager{*dte.get()};
};

TEST_F(AddInManagerTest, usersOwnEntry_hidesTheMachines)
{
    const Registration machine(HKEY_LOCAL_MACHINE, L"velk.Test", L"machine", 0);
    const Registration user(HKEY_CURRENT_USER, L"velk.Test", L"user", 0);
    EXPECT_THAT(manager.registered(), Contains(Field(&RegisteredAddIn::friendlyName, L"user")));
    EXPECT_THAT(manager.registered(), testing::Not(Contains(Field(&RegisteredAddIn::friendlyName, L"machine"))));
}

TEST_F(AddInManagerTest, addInWithoutAClass_isOneClearLineAndTheIdeGoesOn)
{
    const Registration broken(HKEY_CURRENT_USER, L"velk.Test", L"broken", 1);
    EXPECT_THAT(manager.loadAtStart(),
                Contains(L"The add-in velk.Test could not be loaded: ActiveX component can't create object"));
    EXPECT_FALSE(manager.isLoaded(L"velk.Test"));
}

TEST_F(AddInManagerTest, addInThatDoesNotAskForIt_isNotLoadedAtTheStart)
{
    const Registration asleep(HKEY_CURRENT_USER, L"velk.Test", L"asleep", 0);
    EXPECT_THAT(manager.loadAtStart(), testing::Not(Contains(testing::HasSubstr(L"velk.Test"))));
}

TEST_F(AddInManagerTest, unloadingWhatIsNotLoaded_doesNothing)
{
    manager.unload(L"velk.Test", DisconnectMode::userClosed);
    EXPECT_TRUE(recorder().lines().empty());
}

} // namespace
} // namespace velk::devkit
