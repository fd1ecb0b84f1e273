#include "ui/fileChooserForm.h"

#include "platform/module.h"
#include "platform/never_destroyed.h"
#include "ui/messageBox.h"

#include <algorithm>

namespace velk {
namespace {

// clang-format off
constexpr DWORD saveFlags = OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_PATHMUSTEXIST | OFN_SHAREAWARE |
                            OFN_NOREADONLYRETURN | OFN_LONGNAMES;
constexpr DWORD openFlags = saveFlags | OFN_FILEMUSTEXIST;
static_assert(openFlags == 0x20D80C && saveFlags == 0x20C80C);
// clang-format on
// The system's dialogs of this century look like those of the last one without it; it changes no behaviour.
constexpr DWORD presentDayLook = OFN_EXPLORER;
constexpr size_t pathRoom = 2048; // characters

FileDialogPresenter& presenter()
{
    static never_destroyed<FileDialogPresenter> only;
    return only.get();
}

// Pairs separated by NULs with one more NUL at the end, as the system takes them.
std::wstring systemFilter(const std::wstring& filter)
{
    std::wstring text = filter;
    if (text.find(L'|') == std::wstring::npos && !text.empty()) {
        const std::wstring pattern = L"*." + text.substr(text.starts_with(L'.') ? 1 : 0);
        text = pattern + L"|" + pattern;
    }
    std::replace(text.begin(), text.end(), L'|', L'\0');
    return text + L'\0';
}

// The system adds the extension without a dot; one that is given with a dot means the same.
std::wstring systemExtension(const std::wstring& extension)
{
    return extension.starts_with(L'.') ? extension.substr(1) : extension;
}

struct Question {
    const std::wstring& title;
    const std::wstring& filter;
    const std::wstring& extension;
    const std::wstring& folder;
    DWORD flags;
    bool isSave;
};

// The chosen full path; empty when there is none.
std::wstring ask(const Question& question)
{
    const module::keep_loaded untilAnswered;
    const std::wstring filter = systemFilter(question.filter);
    const std::wstring extension = systemExtension(question.extension);
    std::wstring file(pathRoom, L'\0');
    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = boxOwner();
    dialog.lpstrTitle = question.title.c_str();
    dialog.lpstrFilter = filter.c_str();
    dialog.nFilterIndex = 1;
    dialog.lpstrDefExt = extension.c_str();
    dialog.lpstrInitialDir = question.folder.empty() ? nullptr : question.folder.c_str();
    dialog.lpstrFile = file.data();
    dialog.nMaxFile = static_cast<DWORD>(file.size());
    dialog.Flags = question.flags | presentDayLook;
    const bool isChosen = presenter()       ? presenter()(dialog, question.isSave)
                          : question.isSave ? GetSaveFileNameW(&dialog) != FALSE
                                            : GetOpenFileNameW(&dialog) != FALSE;
    return isChosen ? std::wstring(file.c_str()) : std::wstring();
}

} // namespace

bool fileChooserForm::openFileDlg(const std::wstring& strTitle, const std::wstring& strFilter,
                                  const std::wstring& strDefaultExt, const std::wstring& strDefaultPath,
                                  std::wstring& txtName, std::wstring& txtPath)
{
    const std::wstring chosen = ask({strTitle, strFilter, strDefaultExt, strDefaultPath, openFlags, false});
    if (chosen.empty())
        return false;
    const size_t backslash = chosen.rfind(L'\\');
    txtName = chosen.substr(backslash + 1);
    txtPath = backslash == std::wstring::npos ? std::wstring() : chosen.substr(0, backslash);
    return true;
}

bool fileChooserForm::saveFileDlg(const std::wstring& strTitle, const std::wstring& strFilter,
                                  const std::wstring& strDefaultExt, const std::wstring& strDefaultPath,
                                  std::wstring& rzFile)
{
    const std::wstring chosen = ask({strTitle, strFilter, strDefaultExt, strDefaultPath, saveFlags, true});
    if (chosen.empty())
        return false;
    rzFile = chosen;
    return true;
}

fileChooserForm& fileChooser()
{
    static never_destroyed<fileChooserForm> only;
    return only.get();
}

void setFileDialogPresenter(FileDialogPresenter replacement)
{
    presenter() = std::move(replacement);
}

} // namespace velk
