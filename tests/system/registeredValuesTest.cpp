// What the registration writes, value by value, and what becomes of it when a part cannot be written or removed.
#include "dllFixture.h"

#include <aclapi.h>
#include <olectl.h>

namespace velk {
namespace {

constexpr wchar_t addinsKey[] = L"Software\\Microsoft\\VisualStudio\\6.0\\AddIns";
constexpr wchar_t addinKey[] = L"Software\\Microsoft\\VisualStudio\\6.0\\AddIns\\velkviadd.Connect";
constexpr wchar_t classesKey[] = L"Software\\Classes\\";

struct PublishedClass {
    const wchar_t* name;
    const wchar_t* clsid;
    const wchar_t* description;
};

// clang-format off
const PublishedClass classes[] = {
    {L"Connect",        L"{76BEE3D6-7C2B-45A6-A9C5-2C994216EC34}", L"Velk Development Add-In for Visual Interdev"},
    {L"IMgrVI",         L"{6D9E5347-5857-48EC-881C-EDBB029FFF15}", L"Velk integration manager"},
    {L"IntegrationMgr", L"{3D04F8EF-4AAE-4AF8-81AD-30C3E253828D}", L"Velk integration manager interface"},
    {L"ModelUtil",      L"{80E6F3FA-40A1-4726-9CCC-1FDCF9E43651}", L"Velk project model interface"},
    {L"ModelUtilVI",    L"{59450A38-82E1-4D7E-B2DF-6816872DEBF3}", L"Velk project model of Visual Interdev"},
    {L"serverViewDoc",  L"{6909EA14-5C98-4FB5-81E4-C5747A3EE852}", L"Velk server view"},
};
// clang-format on

class RegistrationFixture : public test::DllFixture {
protected:
    RegistrationFixture() { callEntry("DllUnregisterServer"); }
    ~RegistrationFixture() override { callEntry("DllUnregisterServer"); }

    static std::wstring classKey(const PublishedClass& row)
    {
        return std::wstring(classesKey) + L"CLSID\\" + row.clsid;
    }
    static bool isKey(const std::wstring& path)
    {
        unique_key key;
        return RegOpenKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, KEY_READ, key.put()) == ERROR_SUCCESS;
    }
    static DWORD numberOf(const wchar_t* name)
    {
        DWORD number = 77;
        DWORD type = REG_NONE;
        DWORD size = sizeof number;
        unique_key key;
        RegOpenKeyExW(HKEY_LOCAL_MACHINE, addinKey, 0, KEY_READ, key.put());
        RegQueryValueExW(key.get(), name, nullptr, &type, reinterpret_cast<BYTE*>(&number), &size);
        return type == REG_DWORD ? number : 78;
    }
};

class RegisteredClass : public RegistrationFixture, public testing::WithParamInterface<PublishedClass> {};

TEST_P(RegisteredClass, values_areThoseThatComReads)
{
    ASSERT_EQ(callEntry("DllRegisterServer"), S_OK);
    const std::wstring key = classKey(GetParam());
    const std::wstring progId = std::wstring(L"velkviadd.") + GetParam().name;
    EXPECT_EQ(valueOf(key), GetParam().description);
    EXPECT_EQ(valueOf(key + L"\\InprocServer32"), path());
    EXPECT_EQ(valueOf(key + L"\\InprocServer32", L"ThreadingModel"), L"Apartment");
    EXPECT_EQ(valueOf(key + L"\\ProgID"), progId);
    EXPECT_EQ(valueOf(key + L"\\TypeLib"), L"{15AAD90A-B433-4E90-A9E5-6FAC6D1B5E0C}");
    EXPECT_EQ(valueOf(key + L"\\Version"), L"1.0");
    EXPECT_EQ(valueOf(classesKey + progId), GetParam().description);
    EXPECT_EQ(valueOf(classesKey + progId + L"\\CLSID"), GetParam().clsid);
}

INSTANTIATE_TEST_SUITE_P(each, RegisteredClass, testing::ValuesIn(classes));

class RegisteredValues : public RegistrationFixture {};

TEST_F(RegisteredValues, document_isAControlAndADocumentActiveInItsWindow)
{
    ASSERT_EQ(callEntry("DllRegisterServer"), S_OK);
    EXPECT_TRUE(isKey(classKey(classes[5]) + L"\\Control"));
    EXPECT_TRUE(isKey(classKey(classes[5]) + L"\\DocObject"));
    EXPECT_EQ(valueOf(classKey(classes[5]) + L"\\MiscStatus"), L"0");
    EXPECT_EQ(valueOf(classKey(classes[5]) + L"\\MiscStatus\\1"), L"131457");
}

TEST_F(RegisteredValues, otherClasses_areNeitherControlNorDocument)
{
    ASSERT_EQ(callEntry("DllRegisterServer"), S_OK);
    EXPECT_FALSE(isKey(classKey(classes[0]) + L"\\Control"));
    EXPECT_FALSE(isKey(classKey(classes[0]) + L"\\DocObject"));
    EXPECT_FALSE(isKey(classKey(classes[0]) + L"\\MiscStatus"));
}

TEST_F(RegisteredValues, addin_isListedForLoadingAtStartUpWithAWindowOnly)
{
    ASSERT_EQ(callEntry("DllRegisterServer"), S_OK);
    EXPECT_EQ(valueOf(addinKey, L"FriendlyName"), L"Velk Development Add-In for Visual Interdev");
    EXPECT_EQ(valueOf(addinKey, L"Description"), L"Works on Velk database objects and Rozel projects inside the IDE");
    EXPECT_EQ(numberOf(L"LoadBehavior"), 1u);
    EXPECT_EQ(numberOf(L"CommandLineSafe"), 0u);
}

// The IDE's list of add-ins, in use and such that no key can be made in it: a key that lasts has no place below one
// that does not.
class ClosedList {
public:
    ClosedList()
    {
        unique_key list;
        RegCreateKeyExW(HKEY_LOCAL_MACHINE, addinsKey, 0, nullptr, REG_OPTION_VOLATILE, KEY_ALL_ACCESS, nullptr,
                        list.put(), nullptr);
        RegSetValueExW(list.get(), L"Another", 0, REG_SZ, reinterpret_cast<const BYTE*>(L""), sizeof(wchar_t));
    }
    ClosedList(const ClosedList&) = delete;
    ClosedList& operator=(const ClosedList&) = delete;
    ~ClosedList()
    {
        RegDeleteKeyW(HKEY_LOCAL_MACHINE, addinsKey);
        RegDeleteKeyW(HKEY_LOCAL_MACHINE, L"Software\\Microsoft\\VisualStudio\\6.0");
        RegDeleteKeyW(HKEY_LOCAL_MACHINE, L"Software\\Microsoft\\VisualStudio");
    }
};

TEST_F(RegisteredValues, listThatTakesNoKey_takesTheWholeRegistrationBack)
{
    ASSERT_FALSE(isKey(addinsKey));
    const ClosedList list;
    const std::set<std::wstring> before = registry();
    EXPECT_EQ(callEntry("DllRegisterServer"), SELFREG_E_CLASS);
    EXPECT_EQ(registry(), before);
}

// A key of the registration that nobody may remove, until the test is over.
class KeptKey {
public:
    // Not every system asks for the right to remove a key, but none removes one that has another below it.
    explicit KeptKey(const std::wstring& path) : m_below(path + L"\\kept")
    {
        unique_key below;
        RegCreateKeyExW(HKEY_LOCAL_MACHINE, m_below.c_str(), 0, nullptr, REG_OPTION_VOLATILE, KEY_READ, nullptr,
                        below.put(), nullptr);
        RegOpenKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, READ_CONTROL | WRITE_DAC, m_key.put());
        deny(DELETE | KEY_WRITE);
    }
    KeptKey(const KeptKey&) = delete;
    KeptKey& operator=(const KeptKey&) = delete;
    ~KeptKey()
    {
        deny(0);
        RegDeleteKeyW(HKEY_LOCAL_MACHINE, m_below.c_str());
    }

private:
    void deny(DWORD access)
    {
        wchar_t everyone[] = L"Everyone";
        EXPLICIT_ACCESSW entries[2]{};
        BuildExplicitAccessWithNameW(&entries[0], everyone, access ? access : READ_CONTROL,
                                     access ? DENY_ACCESS : GRANT_ACCESS, NO_INHERITANCE);
        BuildExplicitAccessWithNameW(&entries[1], everyone, access ? KEY_READ | WRITE_DAC : KEY_ALL_ACCESS,
                                     GRANT_ACCESS, NO_INHERITANCE);
        ACL* list = nullptr;
        SetEntriesInAclW(2, entries, nullptr, &list);
        SetSecurityInfo(m_key.get(), SE_REGISTRY_KEY, DACL_SECURITY_INFORMATION, nullptr, nullptr, list, nullptr);
        LocalFree(list);
    }

    std::wstring m_below;
    unique_key m_key;
};

class KeptPart : public RegistrationFixture, public testing::WithParamInterface<std::wstring> {};

TEST_P(KeptPart, unregistering_removesTheOthersAndFails)
{
    ASSERT_EQ(callEntry("DllRegisterServer"), S_OK);
    HRESULT result = S_OK;
    {
        const KeptKey kept(GetParam());
        result = callEntry("DllUnregisterServer");
    }
    EXPECT_EQ(result, SELFREG_E_CLASS);
    EXPECT_TRUE(isKey(GetParam()));
    EXPECT_EQ(isKey(addinKey), GetParam() == addinKey);
    EXPECT_FALSE(isKey(L"Software\\Classes\\TypeLib\\{15AAD90A-B433-4E90-A9E5-6FAC6D1B5E0C}"));
    EXPECT_EQ(isKey(classKey(classes[0])), GetParam() == classKey(classes[0]));
    EXPECT_FALSE(isKey(classKey(classes[5])));
}

INSTANTIATE_TEST_SUITE_P(each, KeptPart,
                         testing::Values(std::wstring(addinKey),
                                         L"Software\\Classes\\CLSID\\{76BEE3D6-7C2B-45A6-A9C5-2C994216EC34}",
                                         L"Software\\Classes\\velkviadd.Connect"));

} // namespace
} // namespace velk
