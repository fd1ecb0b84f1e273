#pragma once

#include "base/unique_any.h"

#include <gmock/gmock.h>
#include <string>
#include <vector>

namespace velk::test {

// A path of the tests, which has plain characters only.
std::string narrow(const std::wstring& path);

// Runs of the stand-in IDE with the add-in, in a folder of their own that holds copies of all programs and of the
// sample. The add-in is registered from there for the length of a test.
class IdeRun : public testing::Test {
protected:
    IdeRun();
    ~IdeRun() override;

    // Runs the IDE by a script; what it said stands in `output` then. The exit code: 0 when every line held.
    DWORD run(const std::string& script, const std::wstring& options = {});
    // The same with windows that mouse and keyboard reach.
    DWORD runShown(const std::string& script, const std::wstring& options = {});
    // The same with a script file. Unless the options say --hidden, the shell shows its windows, as mouse and keyboard
    // need them; without a display nobody sees them.
    DWORD runFile(const std::wstring& scriptPath, const std::wstring& options);

    // Runs a program of the folder, there; what it said stands in `output` then. Its exit code.
    DWORD runProgram(std::wstring command);

    std::wstring path(const std::wstring& name) const { return m_folder + L"\\" + name; }
    std::vector<std::string> lines(const std::wstring& name) const; // of a journal, the folder written as "$"
    std::vector<std::string> ideJournal() const { return lines(L"ide.journal"); }
    std::vector<std::string> backendJournal() const { return lines(L"backend.journal"); }

    std::string output;
    DWORD longestRun = 150000; // milliseconds

    // Calls an entry without arguments of a library in the folder: its registration or the end of that.
    void registerDll(const wchar_t* name, const char* entry) const;

private:
    std::wstring m_folder;
};

} // namespace velk::test
