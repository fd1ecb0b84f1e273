#pragma once

#include "base/error.h"
#include "base/registry.h"
#include "base/unique_any.h"
#include "com/automation.h"
#include "devkit/sourcesafe/files.h"
#include "devkit/sourcesafe/registration.h"

#include <functional>
#include <gmock/gmock.h>

namespace velk {
namespace files = devkit::vss::files;
}

namespace velk::test {

// A fresh copy of the sample database and an empty folder for working files, gone after the test.
class SampleDatabase : public testing::Test {
protected:
    SampleDatabase() : folder(freshFolder()), ini(folder + L"\\vss\\srcsafe.ini"), work(folder + L"\\work")
    {
        files::makeFolder(folder + L"\\vss\\data\\p,Orders");
        files::makeFolder(work);
        for (const wchar_t* name : {L"srcsafe.ini", L"users.txt"})
            files::replace(folder + L"\\vss\\" + name, files::read(std::wstring(L"sample\\") + name));
    }
    ~SampleDatabase() override { removeTree(folder); }

    std::wstring local(const std::wstring& name) const { return work + L"\\" + name; }
    // A local file with this content; its path.
    std::wstring written(const std::wstring& name, const std::string& content) const
    {
        files::replace(local(name), content);
        return local(name);
    }

    const std::wstring folder;
    const std::wstring ini;
    const std::wstring work;

private:
    static std::wstring freshFolder()
    {
        static int count = 0;
        wchar_t temporary[MAX_PATH];
        GetTempPathW(MAX_PATH, temporary);
        return temporary + std::wstring(L"vss-") + std::to_wstring(GetCurrentProcessId()) + L"-" +
               std::to_wstring(++count);
    }
    static void removeTree(const std::wstring& path)
    {
        for (const std::wstring& name : files::namesIn(path)) {
            const std::wstring below = files::join(path, name);
            SetFileAttributesW(below.c_str(), FILE_ATTRIBUTE_NORMAL);
            if (files::isFolder(below))
                removeTree(below);
            else
                DeleteFileW(below.c_str());
        }
        RemoveDirectoryW(path.c_str());
    }
};

// The same with the built DLL registered, and its objects made through COM.
class SourceSafeFixture : public SampleDatabase {
protected:
    static void SetUpTestSuite() { ASSERT_EQ(callEntry("DllRegisterServer"), S_OK); }
    static void TearDownTestSuite() { callEntry("DllUnregisterServer"); }
    static HRESULT callEntry(const char* name)
    {
        static const unique_module dll(LoadLibraryW(L"" VELK_DLL_FOLDER L"/ssapi.dll"));
        const auto entry =
            reinterpret_cast<HRESULT(WINAPI*)()>(reinterpret_cast<void*>(GetProcAddress(dll.get(), name)));
        return entry ? entry() : E_FAIL;
    }

    com_ptr<IDispatch> open(const std::wstring& user = L"ann", const std::wstring& password = L"secret") const
    {
        const com_ptr<IDispatch> database = automation::createObject(L"SourceSafe");
        automation::call(database, L"Open", {text(ini), text(user), text(password)});
        return database;
    }
    static variant text(const std::wstring& value) { return variant(std::wstring_view(value)); }
    static com_ptr<IDispatch> item(const com_ptr<IDispatch>& database, const std::wstring& spec)
    {
        return automation::getObject(database, L"VSSItem", {text(spec), variant(false)});
    }
    static std::wstring name(const com_ptr<IDispatch>& object) { return automation::get(object, L"Name").asText(); }
    static int32_t number(const com_ptr<IDispatch>& object, std::wstring_view member)
    {
        return automation::get(object, member).asLong();
    }
    // Adds a local file with this content to the project of the sample; gives the new item.
    com_ptr<IDispatch> added(const com_ptr<IDispatch>& database, const std::wstring& fileName,
                             const std::string& content) const
    {
        return automation::call(item(database, L"$/Orders"), L"Add", {text(written(fileName, content))}).asObject();
    }
    static void checkOut(const com_ptr<IDispatch>& file, const std::wstring& path)
    {
        automation::call(file, L"Checkout", {variant(L""), text(path)});
    }
    static void checkIn(const com_ptr<IDispatch>& file, const std::wstring& path)
    {
        automation::call(file, L"Checkin", {variant(L""), text(path)});
    }
    // What an action fails with.
    static Error failureOf(const std::function<void()>& action)
    {
        try {
            action();
        } catch (const Error& error) {
            return error;
        }
        return Error(0, L"it did not fail", L"", S_OK);
    }
};

} // namespace velk::test
