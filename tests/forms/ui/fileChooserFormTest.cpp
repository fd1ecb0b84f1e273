#include "ui/fileChooserForm.h"

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

TEST_F(fileChooserFormTest, systemsOwnDialog_refusesAMissingFileAndCancels)
{
    setFileDialogPresenter({});
    struct Cancel {
        static void CALLBACK fire(HWND, UINT, UINT_PTR id, DWORD)
        {
            if (const HWND dialog = FindWindowW(L"#32770", L"Open a project")) {
                KillTimer(nullptr, id);
                PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
            }
        }
    };
    SetTimer(nullptr, 0, 50, Cancel::fire);
    EXPECT_FALSE(fileChooser().openFileDlg(L"Open a project", L".rzv", L".rzv", L"C:\\", name, path));
    EXPECT_EQ(name, L"kept");
}

} // namespace
} // namespace velk
