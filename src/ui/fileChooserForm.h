#pragma once

#include "base/win32.h"

#include <commdlg.h>
#include <functional>
#include <string>

namespace velk {

// The system's file dialogs, as the add-in uses them. Both operations give false when the user cancels or the dialog
// fails; the results are left as they were then.
//
// The filter is pairs of description and pattern separated by "|"; one without a pattern is completed for the system:
// ".rzv" and "rzv" mean "*.rzv". The default path may be empty: the dialog chooses the folder; else it opens there,
// wherever the user was the last time.
class fileChooserForm {
public:
    // The chosen file must exist. Its name without the folder, and its folder without a backslash at the end.
    bool openFileDlg(const std::wstring& strTitle, const std::wstring& strFilter, const std::wstring& strDefaultExt,
                     const std::wstring& strDefaultPath, std::wstring& txtName, std::wstring& txtPath);
    // The chosen full path. An existing file is accepted without a question, deliberately.
    bool saveFileDlg(const std::wstring& strTitle, const std::wstring& strFilter, const std::wstring& strDefaultExt,
                     const std::wstring& strDefaultPath, std::wstring& rzFile);
};

// The add-in's one file chooser.
fileChooserForm& fileChooser();

// What the caller asks for, as he gave it.
struct FileQuestion {
    const std::wstring& title;
    const std::wstring& filter;
    const std::wstring& extension;
    const std::wstring& folder;
    DWORD flags;
    bool isSave;
};

// What stands in for the system's dialogs in tests without a user: gets the system's record and what it was made from,
// fills the file's name (with its NUL) and tells whether the user chose. An empty function restores the system's
// dialogs.
using FileDialogPresenter = std::function<bool(OPENFILENAMEW& dialog, const FileQuestion& question)>;
void setFileDialogPresenter(FileDialogPresenter presenter);

} // namespace velk
