#include "devkit/ide/textFile.h"

#include "base/unique_any.h"

namespace velk::devkit {

bool readTextFile(const std::wstring& path, std::wstring& text)
{
    const HANDLE file =
        CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return false;
    const scope_exit closed([&] { CloseHandle(file); });
    std::string bytes(GetFileSize(file, nullptr), '\0');
    DWORD read = 0;
    ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr);
    bytes.resize(read);
    text = fromUtf8(bytes);
    return true;
}

void appendToFile(const std::wstring& path, const std::wstring& text)
{
    const HANDLE file = CreateFileW(path.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                    OPEN_ALWAYS, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return;
    const scope_exit closed([&] { CloseHandle(file); });
    const std::string bytes = toUtf8(text);
    DWORD written = 0;
    WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

void writeOutput(const std::wstring& line)
{
    const std::string bytes = toUtf8(line + L"\n");
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

} // namespace velk::devkit
