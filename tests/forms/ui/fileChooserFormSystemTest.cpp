// The file chooser with the system's own dialogs.
#include "base/module.h"
#include "ui/fileChooserForm.h"

#include <dlgs.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

namespace velk {
namespace {

// Uses the system's own dialog as a user would: types a file's name, presses OK, answers the box that refuses it, and
// cancels. Each step waits for the one before; a dialog that lets no step through is given up after ten seconds.
class DialogUser {
public:
    DialogUser(std::wstring caption, std::wstring typed) : m_caption(std::move(caption)), m_typed(std::move(typed))
    {
        current() = this;
        m_timer = SetTimer(nullptr, 0, 50, tick);
    }
    ~DialogUser() { KillTimer(nullptr, m_timer); }
    bool wasRefused = false;
    bool stayedOpen = false;

private:
    static DialogUser*& current()
    {
        static DialogUser* user = nullptr;
        return user;
    }
    static void CALLBACK tick(HWND, UINT, UINT_PTR, DWORD) { current()->step(); }
    void step()
    {
        const HWND dialog = FindWindowW(L"#32770", m_caption.c_str());
        if (!dialog || !IsWindowVisible(dialog))
            return; // still being made
        ++m_ticks;
        if (const HWND box = boxOver(dialog)) {
            wasRefused = true;
            SendMessageW(box, WM_COMMAND, IDOK, 0);
        } else if (wasRefused || m_ticks > 200) {
            stayedOpen = IsWindowVisible(dialog) && IsWindowEnabled(dialog);
            PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
        } else if (m_ticks == 1) {
            SetDlgItemTextW(dialog, cmb13, m_typed.c_str());
            PostMessageW(dialog, WM_COMMAND, IDOK, 0);
        }
    }
    static HWND boxOver(HWND dialog)
    {
        HWND found = nullptr;
        while ((found = FindWindowExW(nullptr, found, L"#32770", nullptr)) && GetWindow(found, GW_OWNER) != dialog)
            ;
        return found;
    }

    std::wstring m_caption;
    std::wstring m_typed;
    UINT_PTR m_timer = 0;
    int m_ticks = 0;
};

class systemsDialogTest : public testing::Test {
protected:
    systemsDialogTest() { std::ofstream(std::filesystem::path(home) / project) << "a project"; }
    ~systemsDialogTest() override { DeleteFileW((home + L"\\" + project).c_str()); }
    bool openIn(const std::wstring& folder)
    {
        return fileChooser().openFileDlg(L"Open a project", L".rzv", L".rzv", folder, name, path);
    }
    bool saveIn(const std::wstring& folder)
    {
        return fileChooser().saveFileDlg(L"Save a project", L"rzv", L"rzv", folder, file);
    }

    const std::wstring home = module::folder();
    const std::wstring project = L"existing.rzv";
    std::wstring name = L"kept", path = L"kept", file = L"kept";
};

TEST_F(systemsDialogTest, missingFileThatIsTyped_isRefusedAndTheDialogStays)
{
    const DialogUser user(L"Open a project", L"missing.rzv");
    EXPECT_FALSE(openIn(home));
    EXPECT_TRUE(user.wasRefused);
    EXPECT_TRUE(user.stayedOpen);
    EXPECT_EQ(name, L"kept");
    EXPECT_EQ(path, L"kept");
}

TEST_F(systemsDialogTest, existingFileThatIsTyped_isGivenAsNameAndFolder)
{
    const DialogUser user(L"Open a project", project);
    EXPECT_TRUE(openIn(home));
    EXPECT_FALSE(user.wasRefused);
    EXPECT_EQ(name, project);
    EXPECT_EQ(path, home);
}

TEST_F(systemsDialogTest, existingFile_isSavedOntoWithoutAQuestion)
{
    const DialogUser user(L"Save a project", project);
    EXPECT_TRUE(saveIn(home));
    EXPECT_FALSE(user.wasRefused);
    EXPECT_EQ(file, home + L"\\" + project);
}

TEST_F(systemsDialogTest, nameWithoutExtension_getsIt)
{
    const DialogUser user(L"Save a project", L"copy");
    EXPECT_TRUE(saveIn(home));
    EXPECT_EQ(file, home + L"\\copy.rzv");
}

TEST_F(systemsDialogTest, folderUsedLast_doesNotOverrideTheOneThatIsAskedFor)
{
    wchar_t elsewhere[MAX_PATH] = L"";
    GetWindowsDirectoryW(elsewhere, MAX_PATH);
    {
        const DialogUser user(L"Save a project", L"x.rzv");
        EXPECT_TRUE(saveIn(elsewhere));
        EXPECT_EQ(file, std::wstring(elsewhere) + L"\\x.rzv");
    }
    const DialogUser user(L"Save a project", L"copy.rzv");
    EXPECT_TRUE(saveIn(home));
    EXPECT_EQ(file, home + L"\\copy.rzv");
}

} // namespace
} // namespace velk
