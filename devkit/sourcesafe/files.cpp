#include "devkit/sourcesafe/files.h"

#include "devkit/base/uniqueFile.h"
#include "devkit/base/utf8.h"
#include "devkit/sourcesafe/failures.h"

#include <algorithm>
#include <array>
#include <sstream>

namespace velk::devkit::vss::files {
namespace {

StepObserver stepObserver;

void step(const wchar_t* name, const std::wstring& path)
{
    if (stepObserver)
        stepObserver(name, path);
}

bool hasAttributes(const std::wstring& path, DWORD wanted, DWORD value) noexcept
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & wanted) == value;
}

unique_file open(const std::wstring& path, DWORD access, DWORD share, DWORD disposition)
{
    unique_file file(CreateFileW(path.c_str(), access, share, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr));
    throwLastErrorUnless(static_cast<bool>(file));
    return file;
}

constexpr wchar_t unfinished[] = L".unfinished";
constexpr int lockAttempts = 20;
constexpr DWORD lockPause = 100; // milliseconds

} // namespace

std::wstring join(const std::wstring& folder, const std::wstring& name)
{
    return folder.empty() || folder.back() == L'\\' ? folder + name : folder + L"\\" + name;
}

std::wstring folderOf(const std::wstring& path)
{
    const size_t end = path.find_last_of(L"\\/");
    return end == std::wstring::npos ? std::wstring() : path.substr(0, end);
}

std::wstring nameOf(const std::wstring& path)
{
    return path.substr(path.find_last_of(L"\\/") + 1);
}

std::wstring fullPath(const std::wstring& path)
{
    std::array<wchar_t, 32768> full{};
    const DWORD length = GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
    throwLastErrorUnless(length != 0);
    return {full.data(), std::min<size_t>(length, full.size() - 1)};
}

bool isFile(const std::wstring& path) noexcept
{
    return hasAttributes(path, FILE_ATTRIBUTE_DIRECTORY, 0);
}

bool isFolder(const std::wstring& path) noexcept
{
    return hasAttributes(path, FILE_ATTRIBUTE_DIRECTORY, FILE_ATTRIBUTE_DIRECTORY);
}

bool isReadOnly(const std::wstring& path) noexcept
{
    return hasAttributes(path, FILE_ATTRIBUTE_READONLY, FILE_ATTRIBUTE_READONLY);
}

std::vector<std::wstring> namesIn(const std::wstring& folder, const std::wstring& pattern)
{
    std::vector<std::wstring> names;
    WIN32_FIND_DATAW found{};
    const unique_search search(FindFirstFileW(join(folder, pattern).c_str(), &found));
    if (!search)
        return names;
    do {
        const std::wstring name = found.cFileName;
        if (name != L"." && name != L"..")
            names.push_back(name);
    } while (FindNextFileW(search.get(), &found));
    std::sort(names.begin(), names.end(),
              [](const std::wstring& a, const std::wstring& b) { return lstrcmpiW(a.c_str(), b.c_str()) < 0; });
    return names;
}

std::string read(const std::wstring& path)
{
    const unique_file file =
        open(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, OPEN_EXISTING);
    std::string bytes(GetFileSize(file.get(), nullptr), '\0');
    DWORD got = 0;
    throwLastErrorUnless(ReadFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &got, nullptr));
    bytes.resize(got);
    return bytes;
}

void replace(const std::wstring& path, const std::string& bytes)
{
    const std::wstring beside = path + unfinished;
    step(L"create", beside);
    {
        const unique_file file = open(beside, GENERIC_WRITE, 0, CREATE_ALWAYS);
        step(L"write", beside);
        DWORD written = 0;
        throwLastErrorUnless(WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr));
        step(L"flush", beside);
        throwLastErrorUnless(FlushFileBuffers(file.get()));
    }
    setReadOnly(path, false);
    step(L"rename", path);
    throwLastErrorUnless(MoveFileExW(beside.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH));
}

void remove(const std::wstring& path)
{
    step(L"remove", path);
    throwLastErrorUnless(DeleteFileW(path.c_str()) || GetLastError() == ERROR_FILE_NOT_FOUND);
}

void makeFolder(const std::wstring& path)
{
    if (path.empty() || isFolder(path))
        return;
    makeFolder(folderOf(path));
    step(L"make folder", path);
    throwLastErrorUnless(CreateDirectoryW(path.c_str(), nullptr) || GetLastError() == ERROR_ALREADY_EXISTS);
}

void setReadOnly(const std::wstring& path, bool readOnly)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || readOnly == ((attributes & FILE_ATTRIBUTE_READONLY) != 0))
        return;
    step(L"set attributes", path);
    throwLastErrorUnless(SetFileAttributesW(path.c_str(), attributes ^ FILE_ATTRIBUTE_READONLY));
}

Lock::Lock(const std::wstring& path) : m_file(INVALID_HANDLE_VALUE)
{
    for (int attempt = 0; attempt < lockAttempts; ++attempt) {
        // The file goes with its handle, so that a program that crashes leaves no lock behind.
        m_file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS,
                             FILE_ATTRIBUTE_NORMAL | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
        if (m_file != INVALID_HANDLE_VALUE)
            return;
        const DWORD reason = GetLastError();
        if (reason != ERROR_SHARING_VIOLATION && reason != ERROR_ACCESS_DENIED)
            throw Error::fromWin32(reason);
        Sleep(lockPause);
    }
    throw failure(Code::fileShare, L"The database is busy: another program is writing to it.");
}

Lock::~Lock()
{
    CloseHandle(m_file);
}

void setStepObserver(StepObserver observer)
{
    stepObserver = std::move(observer);
}

std::wstring readText(const std::wstring& path)
{
    const std::wstring text = fromUtf8(read(path));
    // Editors like to begin a file with a byte order mark.
    return text.starts_with(L'\xFEFF') ? text.substr(1) : text;
}

std::vector<std::wstring> linesOf(const std::wstring& text)
{
    std::wistringstream stream(text);
    std::vector<std::wstring> lines;
    for (std::wstring line; std::getline(stream, line);) {
        if (!line.empty() && line.back() == L'\r')
            line.pop_back();
        lines.push_back(line);
    }
    return lines;
}

std::pair<std::wstring, std::wstring> keyAndValue(const std::wstring& line)
{
    const size_t sign = line.find(L'=');
    return sign == std::wstring::npos ? std::pair{line, std::wstring()}
                                      : std::pair{line.substr(0, sign), line.substr(sign + 1)};
}

} // namespace velk::devkit::vss::files
