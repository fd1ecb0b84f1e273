#include "devkit/ide/textFile.h"

#include "devkit/base/uniqueFile.h"

namespace velk::devkit {

bool readTextFile(const std::wstring& path, std::wstring& text)
{
    const unique_file file(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                       OPEN_EXISTING, 0, nullptr));
    if (!file)
        return false;
    std::string bytes(GetFileSize(file.get(), nullptr), '\0');
    DWORD read = 0;
    ReadFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr);
    bytes.resize(read);
    text = fromUtf8(bytes);
    return true;
}

void appendToFile(const std::wstring& path, const std::wstring& text)
{
    const unique_file file(CreateFileW(path.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                       OPEN_ALWAYS, 0, nullptr));
    if (!file)
        return;
    const std::string bytes = toUtf8(text);
    DWORD written = 0;
    WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

void writeOutput(const std::wstring& line)
{
    const std::string bytes = toUtf8(line + L"\n");
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

} // namespace velk::devkit
