#pragma once

#include "base/unique_any.h"
#include "support/fakeObject.h"

#include <string>

namespace velk::test {

// A SourceSafe of plain fakes under the name by which the product makes it, with registry entries that go with it.
//
//     FakeSourceSafe sourceSafe;
//     sourceSafe.databases({{L"Main", L"C:\\vss"}});
//     ...
//     EXPECT_EQ(sourceSafe.journal, ...)
class FakeSourceSafe {
public:
    FakeSourceSafe()
    {
        const auto nothing = [](const std::vector<variant>&) { return variant(); };
        database->function(L"Open", nothing)->function(L"VSSItem", [this](const std::vector<variant>& arguments) {
            return asVariant(arguments.at(0).asText() == L"$/" ? root : item);
        });
        root->function(L"Items", [this](const std::vector<variant>&) { return asVariant(children); })
            ->function(L"NewSubproject", nothing);
        root->value(L"Name", variant(L""))->function(L"Add", nothing);
        children->value(L"Count", variant(int32_t{2}))
            ->function(L"Item", [this](const std::vector<variant>& arguments) {
                return asVariant(arguments.at(0).asLong() == 1 ? first : second);
            });
        first->value(L"Name", variant(L"Web"));
        second->value(L"Name", variant(L"Tools"));
        item->value(L"Name", variant(L"Web"))
            ->function(L"Add", nothing)
            ->function(L"Checkout", nothing)
            ->function(L"Checkin", nothing);
        setText(L"Software\\Classes\\SourceSafe\\CLSID", L"", L"{3E4C7D0A-6C58-4B7C-9C8E-51F5E3A0B7D1}");
        CoRegisterClassObject(classId, makeObject<Factory>(*this)->identity(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE,
                              &cookie);
    }
    FakeSourceSafe(const FakeSourceSafe&) = delete;
    FakeSourceSafe& operator=(const FakeSourceSafe&) = delete;
    ~FakeSourceSafe()
    {
        CoRevokeClassObject(cookie);
        RegDeleteKeyW(HKEY_LOCAL_MACHINE, L"Software\\Classes\\SourceSafe\\CLSID");
        RegDeleteKeyW(HKEY_LOCAL_MACHINE, L"Software\\Classes\\SourceSafe");
        RegDeleteKeyW(HKEY_LOCAL_MACHINE, L"Software\\Microsoft\\SourceSafe\\Databases");
        RegDeleteKeyW(HKEY_LOCAL_MACHINE, L"Software\\Microsoft\\SourceSafe");
    }
    static void install() { setText(L"Software\\Microsoft\\SourceSafe", L"SCCServerPath", L"C:\\vss\\ssscc.dll"); }
    static void addDatabase(const std::wstring& name, const std::wstring& folder)
    {
        setText(L"Software\\Microsoft\\SourceSafe\\Databases", name, folder);
    }

    int madeDatabases = 0; // the same object each time
    FakeObject::Journal journal;
    com_ptr<FakeObject> database = fakeObject(L"Database", &journal);
    com_ptr<FakeObject> root = fakeObject(L"Root", &journal);
    com_ptr<FakeObject> children = fakeObject(L"Items", &journal);
    com_ptr<FakeObject> first = fakeObject(L"First", &journal);
    com_ptr<FakeObject> second = fakeObject(L"Second", &journal);
    com_ptr<FakeObject> item = fakeObject(L"Item", &journal);

private:
    class Factory : public ComObject<Factory, IClassFactory> {
    public:
        explicit Factory(FakeSourceSafe& owner) : m_owner(owner) {}
        STDMETHODIMP CreateInstance(IUnknown*, REFIID iid, void** out) noexcept override
        {
            ++m_owner.madeDatabases;
            return m_owner.database->QueryInterface(iid, out);
        }
        STDMETHODIMP LockServer(BOOL) noexcept override { return S_OK; }

    private:
        FakeSourceSafe& m_owner;
    };
    static void setText(const std::wstring& path, const std::wstring& name, const std::wstring& text)
    {
        unique_key key;
        RegCreateKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, key.put(), nullptr);
        RegSetValueExW(key.get(), name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                       static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
    }

    static constexpr CLSID classId{0x3E4C7D0A, 0x6C58, 0x4B7C, {0x9C, 0x8E, 0x51, 0xF5, 0xE3, 0xA0, 0xB7, 0xD1}};
    DWORD cookie = 0;
};

} // namespace velk::test
