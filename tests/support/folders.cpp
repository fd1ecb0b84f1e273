#include "support/folders.h"

#include "base/win32.h"

namespace velk::test {

void removeTree(const std::wstring& folder)
{
    WIN32_FIND_DATAW entry{};
    const HANDLE search = FindFirstFileW((folder + L"\\*").c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE)
        return;
    do {
        const std::wstring name = entry.cFileName;
        if (name == L"." || name == L"..")
            continue;
        const std::wstring path = folder + L"\\" + name;
        if (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) {
            removeTree(path);
        } else {
            SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL); // source control leaves files read-only
            DeleteFileW(path.c_str());
        }
    } while (FindNextFileW(search, &entry));
    FindClose(search);
    RemoveDirectoryW(folder.c_str());
}

void copyTree(const std::wstring& from, const std::wstring& to)
{
    CreateDirectoryW(to.c_str(), nullptr);
    WIN32_FIND_DATAW entry{};
    const HANDLE search = FindFirstFileW((from + L"\\*").c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE)
        return;
    do {
        const std::wstring name = entry.cFileName;
        if (name == L"." || name == L"..")
            continue;
        if (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)
            copyTree(from + L"\\" + name, to + L"\\" + name);
        else
            CopyFileW((from + L"\\" + name).c_str(), (to + L"\\" + name).c_str(), FALSE);
    } while (FindNextFileW(search, &entry));
    FindClose(search);
}

} // namespace velk::test
