#pragma once

#include "backend/library.h"
#include "base/module.h"
#include "base/win32.h"

#include <gtest/gtest.h>
#include <string>

namespace velk::test {

// A test room: nothing beside the program, nothing loaded, the search path and current directory as they were.
class LibraryRoom : public testing::Test {
protected:
    void SetUp() override
    {
        clear();
        m_path.resize(32767);
        m_path.resize(GetEnvironmentVariableW(L"PATH", m_path.data(), static_cast<DWORD>(m_path.size())));
        CreateDirectoryW(elsewhere.c_str(), nullptr);
    }
    void TearDown() override
    {
        clear();
        SetEnvironmentVariableW(L"PATH", m_path.c_str());
        SetCurrentDirectoryW(beside.c_str());
        RemoveDirectoryW(elsewhere.c_str());
    }

    void put(const std::wstring& library, const std::wstring& folder = beside)
    {
        const std::wstring name = library.substr(library.rfind(L'/') + 1);
        ASSERT_TRUE(CopyFileW((beside + library).c_str(), (folder + name).c_str(), FALSE));
    }
    void putBytes(const std::string& bytes)
    {
        const HANDLE file = CreateFileW((beside + L"velkvsadd.dll").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                        FILE_ATTRIBUTE_NORMAL, nullptr);
        DWORD written = 0;
        WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
        CloseHandle(file);
        ASSERT_EQ(written, bytes.size());
    }

    static inline const std::wstring beside = module::folder() + L"\\";
    const std::wstring elsewhere = beside + L"elsewhere\\";

private:
    // Some systems keep the file of a library whose own libraries were missing: it is only put aside then.
    static void removeFile(const std::wstring& path)
    {
        static int number = 0;
        const std::wstring aside = path + std::to_wstring(++number) + L".old";
        DeleteFileW(aside.c_str());
        if (!DeleteFileW(path.c_str()))
            MoveFileW(path.c_str(), aside.c_str());
    }
    void clear()
    {
        unloadBackend();
        for (const std::wstring& folder : {beside, elsewhere})
            for (const wchar_t* name : {L"velkvsadd.dll", L"velkdependency.dll"})
                removeFile(folder + name);
    }

    std::wstring m_path;
};

} // namespace velk::test
