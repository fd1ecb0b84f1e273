#pragma once

#include "../dllFixture.h"
#include "base/module.h"
#include "support/folders.h"

namespace velk::test {

// The DLL copied into a folder of its own below the program's, and loaded from there. The Backend libraries that a test
// puts beside it or beside the program go with the test.
class InstalledDll : public DllFixture {
protected:
    InstalledDll()
    {
        dll.reset();
        removeTree(addinFolder());
        CreateDirectoryW(addinFolder().c_str(), nullptr);
        CopyFileW(path().c_str(), (addinFolder() + L"\\velkviadd.dll").c_str(), FALSE);
        dll.reset(LoadLibraryW((addinFolder() + L"\\velkviadd.dll").c_str()));
    }
    ~InstalledDll() override
    {
        callEntry("DllCanUnloadNow"); // lets go of the Backend library
        dll.reset();
        removeTree(addinFolder());
        DeleteFileW((programFolder() + L"\\velkvsadd.dll").c_str());
    }

    static std::wstring programFolder() { return module::folder(); }
    static std::wstring addinFolder() { return programFolder() + L"\\addin"; }
    static void put(const wchar_t* library, const std::wstring& folder)
    {
        ASSERT_TRUE(
            CopyFileW((programFolder() + L"\\" + library).c_str(), (folder + L"\\velkvsadd.dll").c_str(), FALSE));
    }
};

} // namespace velk::test
