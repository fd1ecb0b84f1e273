#include "ui/fileChooserForm.h"
#include "base/module.h"

#include <gtest/gtest.h>

namespace velk {
namespace {

class fileChooserFormTest : public testing::Test {
protected:
    fileChooserFormTest()
    {
        setFileDialogPresenter([this](OPENFILENAMEW& dialog, const FileQuestion& question) {
            flags = dialog.Flags;
            title = dialog.lpstrTitle;
            field = dialog.lpstrFile;
            wasSave = question.isSave;
            filterIndex = dialog.nFilterIndex;
            extension = dialog.lpstrDefExt;
            folder = dialog.lpstrInitialDir ? dialog.lpstrInitialDir : L"(none)";
            for (const wchar_t* part = dialog.lpstrFilter; *part; part += wcslen(part) + 1)
                filter += std::wstring(part) + L";";
            lstrcpynW(dialog.lpstrFile, chosen.c_str(), static_cast<int>(dialog.nMaxFile));
            return !chosen.empty();
        });
    }
    ~fileChooserFormTest() override { setFileDialogPresenter({}); }
    bool open(const std::wstring& startFolder = L"C:\\work")
    {
        return fileChooser().openFileDlg(L"Open", L".rzv", L".rzv", startFolder, name, path);
    }

    bool save(const std::wstring& startFolder = L"C:\\work")
    {
        return fileChooser().saveFileDlg(L"Save", L"rzv", L"rzv", startFolder, file);
    }
    // What the dialog begins with: the folder's setting and the file field.
    std::wstring start() const { return folder + L"|" + field; }

    const std::wstring here = module::folder(); // a folder that is there
    std::wstring chosen, title, field, filter, extension, folder, name = L"kept", path = L"kept", file = L"kept";
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
    EXPECT_FALSE(save(L""));
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
    save(L"");
    EXPECT_EQ(flags & ~static_cast<DWORD>(OFN_EXPLORER), 2148364u);
    EXPECT_EQ(flags & OFN_OVERWRITEPROMPT, 0u);
    EXPECT_TRUE(wasSave);
}

TEST_F(fileChooserFormTest, savedFile_isTheFullPath)
{
    chosen = L"C:\\work\\rz\\copy.rzv";
    EXPECT_TRUE(save(L""));
    EXPECT_EQ(file, L"C:\\work\\rz\\copy.rzv");
}

TEST_F(fileChooserFormTest, bothDialogs_haveTheirTitleAndTheFirstFilterSelected)
{
    open();
    EXPECT_EQ(title, L"Open");
    EXPECT_EQ(filterIndex, 1u);
    save();
    EXPECT_EQ(title, L"Save");
    EXPECT_EQ(filterIndex, 1u);
}

TEST_F(fileChooserFormTest, emptyDefaultPath_leavesTheFolderToTheDialog)
{
    open(L"");
    EXPECT_EQ(start(), L"(none)|");
    save(L"");
    EXPECT_EQ(start(), L"(none)|");
}

// The systems since Windows 7 take the folder that was used last instead of a setting that they have seen before.
TEST_F(fileChooserFormTest, defaultPath_standsInTheFileFieldWhereNoWindowsOverlooksIt)
{
    open(here);
    EXPECT_EQ(start(), L"(none)|" + here + L"\\*.rzv");
    save(here);
    EXPECT_EQ(start(), L"(none)|" + here + L"\\*.rzv");
}

TEST_F(fileChooserFormTest, drivesRoot_isTheRootAndNotTheDrivesCurrentFolder)
{
    open(here.substr(0, 2));
    EXPECT_EQ(start(), L"(none)|" + here.substr(0, 2) + L"\\*.rzv");
}

TEST_F(fileChooserFormTest, defaultPathThatIsNotThere_isGivenAsTheSettingOnly)
{
    open(here + L"\\gone");
    EXPECT_EQ(start(), here + L"\\gone|");
    open(std::wstring(3000, L'x'));
    EXPECT_EQ(start(), std::wstring(3000, L'x') + L"|");
}

TEST_F(fileChooserFormTest, severalPatterns_theFieldHasTheFirst)
{
    fileChooser().openFileDlg(L"Open", L"Projects|*.rzv;*.bak|All|*.*", L"rzv", here, name, path);
    EXPECT_EQ(field, here + L"\\*.rzv");
    fileChooser().openFileDlg(L"Open", L"", L"", here, name, path);
    EXPECT_EQ(field, here + L"\\*.*");
}

TEST_F(fileChooserFormTest, extensionWithAndWithoutDot_meansTheSamePattern)
{
    open();
    EXPECT_EQ(filter, L"*.rzv;*.rzv;");
    EXPECT_EQ(extension, L"rzv");
    filter.clear();
    save();
    EXPECT_EQ(filter, L"*.rzv;*.rzv;");
    EXPECT_EQ(extension, L"rzv");
}

TEST_F(fileChooserFormTest, fullFilter_isPassedOnInPairs)
{
    fileChooser().saveFileDlg(L"Save", L"Projects|*.rzv|All|*.*", L"rzv", L"", file);
    EXPECT_EQ(filter, L"Projects;*.rzv;All;*.*;");
}

} // namespace
} // namespace velk
