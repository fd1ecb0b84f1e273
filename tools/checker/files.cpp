#include "checker/files.h"

#include "checker/texts.h"

#include "base/unique_any.h"

#include <functional>
#include <iterator>

namespace velk::check {
namespace {

constexpr uint64_t mostBytes = uint64_t{256} << 20; // of a project's folder

struct file_traits {
    using Handle = HANDLE;
    static HANDLE empty() noexcept { return INVALID_HANDLE_VALUE; }
    static void close(HANDLE file) noexcept { CloseHandle(file); }
};
struct search_traits : file_traits {
    static void close(HANDLE search) noexcept { FindClose(search); }
};
using unique_file = unique_any<file_traits>;
using unique_search = unique_any<search_traits>;

void eachEntry(const std::wstring& folder, const std::function<void(const WIN32_FIND_DATAW&)>& visit)
{
    WIN32_FIND_DATAW entry{};
    const unique_search search(FindFirstFileW((folder + L"\\*").c_str(), &entry));
    for (BOOL isThere = static_cast<bool>(search); isThere; isThere = FindNextFileW(search.get(), &entry))
        if (std::wstring_view(entry.cFileName) != L"." && std::wstring_view(entry.cFileName) != L"..")
            visit(entry);
}

bool isFolderEntry(const WIN32_FIND_DATAW& entry)
{
    return (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

uint64_t sizeOf(const std::wstring& folder)
{
    uint64_t size = 0;
    eachEntry(folder, [&](const WIN32_FIND_DATAW& entry) {
        size += isFolderEntry(entry) ? sizeOf(folder + L"\\" + entry.cFileName)
                                     : uint64_t{entry.nFileSizeHigh} << 32 | entry.nFileSizeLow;
    });
    return size;
}

bool copyTree(const std::wstring& from, const std::wstring& to)
{
    bool isWhole = CreateDirectoryW(to.c_str(), nullptr) || GetLastError() == ERROR_ALREADY_EXISTS;
    eachEntry(from, [&](const WIN32_FIND_DATAW& entry) {
        const std::wstring source = from + L"\\" + entry.cFileName;
        const std::wstring target = to + L"\\" + entry.cFileName;
        if (isFolderEntry(entry)) {
            isWhole = copyTree(source, target) && isWhole;
            return;
        }
        isWhole = CopyFileW(source.c_str(), target.c_str(), TRUE) && isWhole;
        SetFileAttributesW(target.c_str(), FILE_ATTRIBUTE_NORMAL);
    });
    return isWhole;
}

} // namespace

std::optional<std::vector<uint8_t>> readFile(const std::wstring& path)
{
    const unique_file file(CreateFileW(path.c_str(), GENERIC_READ,
                                       FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                                       0, nullptr));
    LARGE_INTEGER size{};
    if (!file || !GetFileSizeEx(file.get(), &size) || size.QuadPart > static_cast<LONGLONG>(mostBytes))
        return std::nullopt;
    std::vector<uint8_t> bytes(static_cast<size_t>(size.QuadPart));
    DWORD read = 0;
    if (!ReadFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr) || read != bytes.size())
        return std::nullopt;
    return bytes;
}

bool writeFile(const std::wstring& path, std::string_view bytes)
{
    const unique_file file(
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    DWORD written = 0;
    return file && WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
           written == bytes.size();
}

bool isFile(const std::wstring& path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

std::wstring currentFolder()
{
    wchar_t folder[MAX_PATH]{};
    return GetCurrentDirectoryW(MAX_PATH, folder) < MAX_PATH ? folder : L"";
}

std::wstring folderOf(const std::wstring& path)
{
    const size_t end = path.find_last_of(L"\\/");
    return end == std::wstring::npos ? L"." : path.substr(0, end);
}

std::wstring fileNameOf(const std::wstring& path)
{
    const size_t end = path.find_last_of(L"\\/");
    return end == std::wstring::npos ? path : path.substr(end + 1);
}

std::wstring wholePath(const std::wstring& path)
{
    wchar_t whole[1024]{};
    const DWORD length = GetFullPathNameW(path.c_str(), static_cast<DWORD>(std::size(whole)), whole, nullptr);
    return length > 0 && length < std::size(whole) ? whole : path;
}

std::wstring newTemporaryFolder()
{
    wchar_t folder[MAX_PATH]{};
    GetTempPathW(MAX_PATH, folder);
    const std::wstring stem = std::wstring(folder) + L"velkcheck-" + std::to_wstring(GetCurrentProcessId()) + L"-";
    for (int number = 1; number < 1000; ++number)
        if (CreateDirectoryW((stem + std::to_wstring(number)).c_str(), nullptr))
            return stem + std::to_wstring(number);
    return {};
}

void removeTree(const std::wstring& folder)
{
    if (folder.empty())
        return;
    eachEntry(folder, [&](const WIN32_FIND_DATAW& entry) {
        const std::wstring path = folder + L"\\" + entry.cFileName;
        if (isFolderEntry(entry))
            return removeTree(path);
        SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
        DeleteFileW(path.c_str());
    });
    RemoveDirectoryW(folder.c_str());
}

ProjectCopy::ProjectCopy(const std::wstring& projectFile)
{
    const std::wstring source = folderOf(projectFile);
    if (sizeOf(source) > mostBytes) {
        m_trouble = "the project's folder is too large to be copied";
        return;
    }
    m_folder = newTemporaryFolder();
    if (m_folder.empty() || !copyTree(source, m_folder + L"\\project"))
        m_trouble = "the project's folder cannot be copied";
    else
        m_projectFile = m_folder + L"\\project\\" + fileNameOf(projectFile);
}

} // namespace velk::check
