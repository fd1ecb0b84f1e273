#include "ui/fileChooserForm.h"
#include "platform/module.h"

#include <dlgs.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

namespace velk {
namespace {

class fileChooserFormTest : public testing::Test {
protected:
    fileChooserFormTest()
    {
        setFileDialogPresenter([this](OPENFILENAMEW& dialog, bool isSave) {
            flags = dialog.Flags;
            wasSave = isSave;
            filterIndex = dialog.nFilterIndex;
            extension = dialog.lpstrDefExt;
            folder = dialog.lpstrInitialDir ? dialog.lpstrInitialDir : L"(none)";
            for (const wchar_t* part = dialog.lpstrFilter; *part; part += wcslen(part) + 1)
                filter += std::wstring(part) + L";";
            chosen.copy(dialog.lpstrFile, dialog.nMaxFile);
            return !chosen.empty();
        });
    }
    ~fileChooserFormTest() override { setFileDialogPresenter({}); }
    bool open(const std::wstring& startFolder = L"C:\\work")
    {
        return fileChooser().openFileDlg(L"Open", L".rzv", L".rzv", startFolder, name, path);
    }

    std::wstring chosen, filter, extension, folder, name = L"kept", path = L"kept", file = L"kept";
    DWORD flags = 0;
    DWORD filterIndex = 0;
    bool wasSave = false;
};

TEST_F(fileChooserFormTest, openedFile_isGivenAsNameAndFolder)
{
    chosen = L"C:\\work\\rz\\orders.rzv";
    EXPECT_TRUE(open());
    EXPECT_EQ(name, L"orders.rzv");
    EXPECT_EQ(path, L"C:\\work\\rz");
}

TEST_F(fileChooserFormTest, cancelledDialogs_leaveTheResultsAsTheyWere)
{
    EXPECT_FALSE(open());
    EXPECT_FALSE(fileChooser().saveFileDlg(L"Save", L"rzv", L"rzv", L"", file));
    EXPECT_EQ(name, L"kept");
    EXPECT_EQ(path, L"kept");
    EXPECT_EQ(file, L"kept");
}

TEST_F(fileChooserFormTest, openFlags_refuseAMissingFile)
{
    open();
    EXPECT_EQ(flags & ~static_cast<DWORD>(OFN_EXPLORER), 2152460u);
    EXPECT_NE(flags & OFN_FILEMUSTEXIST, 0u);
    EXPECT_FALSE(wasSave);
}

TEST_F(fileChooserFormTest, saveFlags_askNothingForAnExistingFile)
{
    fileChooser().saveFileDlg(L"Save", L"rzv", L"rzv", L"", file);
    EXPECT_EQ(flags & ~static_cast<DWORD>(OFN_EXPLORER), 2148364u);
    EXPECT_EQ(flags & OFN_OVERWRITEPROMPT, 0u);
    EXPECT_TRUE(wasSave);
}

TEST_F(fileChooserFormTest, savedFile_isTheFullPath)
{
    chosen = L"C:\\work\\rz\\copy.rzv";
    EXPECT_TRUE(fileChooser().saveFileDlg(L"Save", L"rzv", L"rzv", L"", file));
    EXPECT_EQ(file, L"C:\\work\\rz\\copy.rzv");
}

TEST_F(fileChooserFormTest, emptyDefaultPath_leavesTheFolderToTheDialog)
{
    open(L"");
    EXPECT_EQ(folder, L"(none)");
    open(L"C:\\work");
    EXPECT_EQ(folder, L"C:\\work");
}

TEST_F(fileChooserFormTest, extensionWithAndWithoutDot_meansTheSamePattern)
{
    open();
    EXPECT_EQ(filter, L"*.rzv;*.rzv;");
    EXPECT_EQ(extension, L"rzv");
    EXPECT_EQ(filterIndex, 1u);
    filter.clear();
    fileChooser().saveFileDlg(L"Save", L"rzv", L"rzv", L"", file);
    EXPECT_EQ(filter, L"*.rzv;*.rzv;");
}

TEST_F(fileChooserFormTest, fullFilter_isPassedOnInPairs)
{
    fileChooser().saveFileDlg(L"Save", L"Projects|*.rzv|All|*.*", L"rzv", L"", file);
    EXPECT_EQ(filter, L"Projects;*.rzv;All;*.*;");
}

// Uses the system's own dialog as a user would: types a file's name, presses OK, answers the box that refuses it, and
// cancels. Each step waits for the one before; a dialog that lets no step through is given up after ten seconds.
class DialogUser {
public:
    explicit DialogUser(std::wstring typed) : m_typed(std::move(typed))
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
        const HWND dialog = FindWindowW(L"#32770", L"Open a project");
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

    std::wstring m_typed;
    UINT_PTR m_timer = 0;
    int m_ticks = 0;
};

class systemsDialogTest : public fileChooserFormTest {
protected:
    systemsDialogTest()
    {
        setFileDialogPresenter({});
        std::ofstream(std::filesystem::path(home) / project) << "a project";
    }
    ~systemsDialogTest() override { DeleteFileW((home + L"\\" + project).c_str()); }
    bool openAtHome() { return fileChooser().openFileDlg(L"Open a project", L".rzv", L".rzv", home, name, path); }

    const std::wstring home = module::folder();
    const std::wstring project = L"existing.rzv";
};

TEST_F(systemsDialogTest, missingFileThatIsTyped_isRefusedAndTheDialogStays)
{
    const DialogUser user(L"missing.rzv");
    EXPECT_FALSE(openAtHome());
    EXPECT_TRUE(user.wasRefused);
    EXPECT_TRUE(user.stayedOpen);
    EXPECT_EQ(name, L"kept");
    EXPECT_EQ(path, L"kept");
}

TEST_F(systemsDialogTest, existingFileThatIsTyped_isGivenAsNameAndFolder)
{
    const DialogUser user(project);
    EXPECT_TRUE(openAtHome());
    EXPECT_FALSE(user.wasRefused);
    EXPECT_EQ(name, project);
    EXPECT_EQ(path, home);
}

} // namespace
} // namespace velk
