// The program as such: its output, its exit codes, its window.
#include "doctor/windowControls.h"
#include "machine.h"

#include <algorithm>

namespace velk::test {
namespace {

using Id = doctor::WindowControls;

class DoctorProgram : public DoctorTest {
protected:
    // Runs something again and again until it is true, for half a minute.
    template <class Condition>
    static bool comesTrue(Condition&& condition)
    {
        for (int tries = 0; tries < 600; ++tries, Sleep(50))
            if (condition())
                return true;
        return false;
    }
};

TEST_F(DoctorProgram, lines_areOneACheckWithTheWayOut)
{
    DeleteFileW(library().c_str());
    DWORD exitCode = 0;
    const std::string text = run(L"--console", exitCode);
    EXPECT_EQ(exitCode, 2u);
    EXPECT_NE(text.find("WRONG    Tool's library: velkvsadd.dll is in none"), std::string::npos) << text;
    EXPECT_NE(text.find("Install the tool, or put the add-in into the tool's folder.\r\n"), std::string::npos);
}

TEST_F(DoctorProgram, wordsOfOtherAlphabets_areWrittenInUtf8)
{
    setText(HKEY_LOCAL_MACHINE, L"Software\\Classes\\velkviadd.Connect\\CLSID", {}, L"\x8A3A\x65AD");
    DWORD exitCode = 0;
    EXPECT_NE(run(L"", exitCode).find("\xE8\xA8\xBA\xE6\x96\xAD"), std::string::npos);
}

TEST_F(DoctorProgram, commandLineThatIsNotUnderstood_isTold)
{
    DWORD exitCode = 0;
    EXPECT_NE(run(L"--bogus", exitCode).find("--bogus"), std::string::npos);
    EXPECT_EQ(exitCode, 4u);
}

TEST_F(DoctorProgram, outputThatCannotBeWritten_isAFailure)
{
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    const unique_kernel_handle readOnly(CreateFileW(library().c_str(), GENERIC_READ, FILE_SHARE_READ, &inherited,
                                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = readOnly.get();
    PROCESS_INFORMATION made{};
    std::wstring line = L"\"" + folder() + L"\\velkdoctor.exe\" --help";
    ASSERT_TRUE(CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup, &made));
    const unique_kernel_handle thread(made.hThread);
    const unique_kernel_handle process(made.hProcess);
    EXPECT_EQ(WaitForSingleObject(process.get(), 30000), WAIT_OBJECT_0);
    DWORD exitCode = 99;
    GetExitCodeProcess(process.get(), &exitCode);
    EXPECT_EQ(exitCode, 5u);
}

TEST_F(DoctorProgram, help_isNoLookAtTheMachine)
{
    unregister();
    DWORD exitCode = 99;
    EXPECT_NE(run(L"--help", exitCode).find("Exit codes"), std::string::npos);
    EXPECT_EQ(exitCode, 0u);
}

TEST_F(DoctorProgram, window_tellsTheSameAndHasTheExitCode)
{
    install(folder(), L"0.9.0");
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION made{};
    std::wstring line = L"\"" + folder() + L"\\velkdoctor.exe\" --window --ide velktestide.exe";
    ASSERT_TRUE(CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &made));
    const unique_kernel_handle thread(made.hThread);
    const unique_kernel_handle process(made.hProcess);
    HWND window = nullptr;
    EXPECT_TRUE(comesTrue([&] { return (window = FindWindowW(L"velkviadd.Doctor", nullptr)) != nullptr; }));
    EXPECT_TRUE(comesTrue([&] { return IsWindowEnabled(GetDlgItem(window, Id::cmdCopy)); }));
    wchar_t sentence[1000] = L"";
    SendDlgItemMessageW(window, Id::lblSentence, WM_GETTEXT, 1000, reinterpret_cast<LPARAM>(sentence));
    EXPECT_STREQ(sentence, L"The add-in can work, but 1 thing deserves a look: Installed programs. Run the installer "
                           L"again and let it repair.");
    PostMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(WaitForSingleObject(process.get(), 30000), WAIT_OBJECT_0);
    DWORD exitCode = 99;
    GetExitCodeProcess(process.get(), &exitCode);
    EXPECT_EQ(exitCode, 1u);
    TerminateProcess(process.get(), 0);
}

} // namespace
} // namespace velk::test
