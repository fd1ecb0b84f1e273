#include "ideRun.h"

#include "support/folders.h"

#include <sstream>

namespace velk::test {
namespace {

std::wstring fullPath(const std::wstring& path)
{
    wchar_t full[MAX_PATH] = L"";
    GetFullPathNameW(path.c_str(), MAX_PATH, full, nullptr);
    return full;
}

std::string content(const std::wstring& path)
{
    const HANDLE file =
        CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return {};
    std::string bytes(GetFileSize(file, nullptr), '\0');
    DWORD read = 0;
    ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr);
    CloseHandle(file);
    return bytes;
}

void write(const std::wstring& path, const std::string& bytes)
{
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    DWORD written = 0;
    WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    CloseHandle(file);
}

} // namespace

std::string narrow(const std::wstring& path)
{
    return std::string(path.begin(), path.end());
}

IdeRun::IdeRun() : m_folder(fullPath(L"run"))
{
    removeTree(m_folder);
    copyTree(fullPath(L"sample"), m_folder);
    for (const wchar_t* program : {L"velkide.exe", L"velkviadd.dll", L"velkvsadd.dll"})
        CopyFileW((fullPath(VELK_BIN) + L"\\" + program).c_str(), path(program).c_str(), FALSE);
    write(path(L"backend.journal"), "");
    SetEnvironmentVariableW(L"VELK_BACKEND_JOURNAL", path(L"backend.journal").c_str());
    registerDll(L"velkviadd.dll", "DllRegisterServer");
}

IdeRun::~IdeRun()
{
    registerDll(L"velkviadd.dll", "DllUnregisterServer");
    if (HasFailure())
        std::cout << output << "\n--- the IDE's journal\n"
                  << content(path(L"ide.journal")) << "\n--- the Backend's journal\n"
                  << content(path(L"backend.journal"));
}

void IdeRun::registerDll(const wchar_t* name, const char* entry) const
{
    const unique_module dll(LoadLibraryW(path(name).c_str()));
    ASSERT_TRUE(static_cast<bool>(dll));
    const auto function =
        reinterpret_cast<HRESULT(WINAPI*)()>(reinterpret_cast<void*>(GetProcAddress(dll.get(), entry)));
    EXPECT_EQ(function(), S_OK);
}

std::vector<std::string> IdeRun::lines(const std::wstring& name) const
{
    std::istringstream text(content(path(name)));
    const std::string folder = narrow(m_folder);
    std::vector<std::string> result;
    for (std::string line; std::getline(text, line);) {
        for (size_t place = line.find(folder); place != std::string::npos; place = line.find(folder))
            line.replace(place, folder.size(), "$");
        result.push_back(line);
    }
    return result;
}

DWORD IdeRun::run(const std::string& script, const std::wstring& options)
{
    write(path(L"test.script"), script);
    return runFile(path(L"test.script"), L"--hidden " + options);
}

DWORD IdeRun::runShown(const std::string& script, const std::wstring& options)
{
    write(path(L"test.script"), script);
    return runFile(path(L"test.script"), options);
}

DWORD IdeRun::runFile(const std::wstring& scriptPath, const std::wstring& options)
{
    return runProgram(L"\"" + path(L"velkide.exe") + L"\" --script \"" + fullPath(scriptPath) + L"\" --journal \"" +
                      path(L"ide.journal") + L"\" --define \"SAMPLE=" + m_folder + L"\" --define \"JOURNAL=" +
                      path(L"backend.journal") + L"\" " + options);
}

DWORD IdeRun::runProgram(std::wstring command)
{
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    const std::wstring said = path(L"output.txt");
    const HANDLE out = CreateFileW(said.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited,
                                   CREATE_ALWAYS, 0, nullptr);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = start.hStdError = out;
    PROCESS_INFORMATION process{};
    DWORD code = MAXDWORD;
    if (CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, m_folder.c_str(), &start,
                       &process)) {
        if (WaitForSingleObject(process.hProcess, longestRun) != WAIT_OBJECT_0)
            TerminateProcess(process.hProcess, MAXDWORD);
        GetExitCodeProcess(process.hProcess, &code);
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
    }
    CloseHandle(out);
    output = content(said);
    return code;
}

} // namespace velk::test
