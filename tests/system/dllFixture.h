#pragma once

#include "base/unique_any.h"
#include "com/bstr.h"
#include "com/com_ptr.h"

#include <gtest/gtest.h>
#include <set>
#include <string>
#include <typelib/velkviadd.h>

namespace velk::test {

// The DLL in this process, as the build left it.
class DllFixture : public testing::Test {
protected:
    DllFixture() : dll(LoadLibraryW(path().c_str())) {}
    ~DllFixture() override
    {
        dll.reset();
        CoFreeUnusedLibrariesEx(0, 0); // what COM loaded for this test is not to be there in the next
    }

    static std::wstring path()
    {
        wchar_t full[MAX_PATH];
        GetFullPathNameW(L"" VELK_DLL_FOLDER L"/velkviadd.dll", MAX_PATH, full, nullptr);
        return full;
    }
    template <class Function>
    Function entry(const char* name) const
    {
        return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(dll.get(), name)));
    }
    HRESULT callEntry(const char* name) const { return entry<HRESULT(WINAPI*)()>(name)(); }

    template <class Interface>
    com_ptr<Interface> make(REFCLSID clsid) const
    {
        com_ptr<IClassFactory> factory;
        com_ptr<Interface> object;
        const auto getClassObject = entry<HRESULT(WINAPI*)(REFCLSID, REFIID, void**)>("DllGetClassObject");
        if (SUCCEEDED(getClassObject(clsid, IID_IClassFactory, factory.putVoid())))
            factory->CreateInstance(nullptr, __uuidof(Interface), object.putVoid());
        return object;
    }

    // All key names and values below a key, as lines.
    static void snapshot(HKEY root, const std::wstring& path, std::set<std::wstring>& lines)
    {
        unique_key key;
        if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, key.put()) != ERROR_SUCCESS)
            return;
        lines.insert(path);
        wchar_t name[512];
        DWORD length = 512;
        for (DWORD index = 0;
             RegEnumValueW(key.get(), index, name, &length, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
             ++index, length = 512)
            lines.insert(path + L" @ " + name);
        for (DWORD index = 0; RegEnumKeyW(key.get(), index, name, 512) == ERROR_SUCCESS; ++index)
            snapshot(root, path.empty() ? name : path + L"\\" + name, lines);
    }
    static std::set<std::wstring> registry()
    {
        std::set<std::wstring> lines;
        snapshot(HKEY_LOCAL_MACHINE, L"Software\\Classes", lines);
        snapshot(HKEY_LOCAL_MACHINE, L"Software\\Microsoft\\VisualStudio", lines);
        return lines;
    }
    static std::wstring valueOf(const std::wstring& path, const std::wstring& name = {})
    {
        wchar_t text[512] = L"";
        DWORD size = sizeof text;
        unique_key key;
        if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, KEY_READ, key.put()) == ERROR_SUCCESS)
            RegQueryValueExW(key.get(), name.c_str(), nullptr, nullptr, reinterpret_cast<BYTE*>(text), &size);
        return text;
    }

    unique_module dll;
};

} // namespace velk::test
