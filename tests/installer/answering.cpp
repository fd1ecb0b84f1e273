// answering ANSWERS HELD COMMAND: starts the installer, goes through its pages as a user does who agrees, and presses
// in its message boxes, one after the other, the buttons that ANSWERS names (ok cancel retry yes no). Prints what each
// box says. HELD is a file that this program has open, as one that runs has its own, until an answer with + in front.
#include "support/installerWindows.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cwchar>
#include <sstream>
#include <string>
#include <windows.h>

namespace {

using velk::test::brandingLine;
using velk::test::nextButton;
using velk::test::pageOf;
using velk::test::topDialog;

constexpr DWORD patience = 60000; // milliseconds
constexpr int exitFailed = 90;
constexpr int boxText = 0xFFFF;

struct Button {
    const wchar_t* name;
    int number;
};
constexpr Button buttons[] = {
    {L"ok", IDOK}, {L"cancel", IDCANCEL}, {L"retry", IDRETRY}, {L"yes", IDYES}, {L"no", IDNO}};

void print(const std::wstring& text)
{
    std::array<char, 4096> bytes{};
    WideCharToMultiByte(CP_UTF8, 0, text.c_str(), -1, bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr);
    std::puts(bytes.data());
    std::fflush(stdout);
}

class Answering {
public:
    Answering(const wchar_t* answers, const wchar_t* held)
        : m_answers(answers),
          m_held(CreateFileW(held, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr))
    {
    }
    // Whether all is well so far; looked at again and again until the installer has ended.
    bool look()
    {
        const HWND window = topDialog();
        if (!window)
            return true;
        if (GetDlgItem(window, brandingLine)) {
            turnPage(window);
            return true;
        }
        // The window that tells of the unpacking has no button.
        return window == m_box || !FindWindowExW(window, nullptr, L"Button", nullptr) || answer(window);
    }

private:
    // After a failure there is no next page; while the installer is at work neither button can be pressed.
    void turnPage(HWND wizard)
    {
        const HWND page = pageOf(wizard);
        if (!page || page == m_page)
            return;
        for (const int button : {nextButton, IDCANCEL})
            if (IsWindowEnabled(GetDlgItem(wizard, button))) {
                m_page = page;
                PostMessageW(GetDlgItem(wizard, button), BM_CLICK, 0, 0);
                return;
            }
    }
    bool answer(HWND box)
    {
        std::array<wchar_t, 2048> text{};
        GetDlgItemTextW(box, boxText, text.data(), static_cast<int>(text.size()));
        if (!text[0]) // it is not there as a whole yet
            return true;
        m_box = box;
        print(L"box: " + std::wstring(text.data()));
        std::wstring word;
        m_answers >> word;
        if (word[0] == L'+') {
            CloseHandle(m_held);
            word.erase(0, 1);
        }
        const auto* const button =
            std::find_if(std::begin(buttons), std::end(buttons), [&](const Button& row) { return word == row.name; });
        if (button == std::end(buttons) || !GetDlgItem(box, button->number)) {
            print(L"no answer to this, or not this one: " + word);
            return false;
        }
        PostMessageW(GetDlgItem(box, button->number), BM_CLICK, 0, 0);
        return true;
    }

    std::wistringstream m_answers;
    HANDLE m_held;
    HWND m_page = nullptr;
    HWND m_box = nullptr;
};

} // namespace

int wmain(int count, wchar_t** words)
{
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION made{};
    if (count != 4 || !CreateProcessW(nullptr, words[3], nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &made))
        return exitFailed;
    Answering answering(words[1], words[2]);
    const DWORD begun = GetTickCount();
    while (WaitForSingleObject(made.hProcess, 50) == WAIT_TIMEOUT)
        if (!answering.look() || GetTickCount() - begun > patience)
            TerminateProcess(made.hProcess, exitFailed);
    DWORD code = exitFailed;
    GetExitCodeProcess(made.hProcess, &code);
    return static_cast<int>(code);
}
