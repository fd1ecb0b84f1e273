#include "ui/fileChooserForm.h"

#include "base/module.h"
#include "base/never_destroyed.h"
#include "base/paths.h"
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

// The first pattern of the first pair.
std::wstring firstPattern(const std::wstring& systemFilter)
{
    const std::wstring patterns = systemFilter.c_str() + wcslen(systemFilter.c_str()) + 1;
    return patterns.empty() ? L"*.*" : patterns.substr(0, patterns.find(L';'));
}

// The system adds the extension without a dot; one that is given with a dot means the same.
std::wstring systemExtension(const std::wstring& extension)
{
    return extension.starts_with(L'.') ? extension.substr(1) : extension;
}

bool isFolder(const std::wstring& path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// What stands in the file field at first: a pattern in the folder to begin with. A path there counts on every Windows;
// instead of the plain setting of the folder, the later ones prefer the folder that was used last. Empty where there is
// no such folder: the setting is all that is left then.
std::wstring firstField(const std::wstring& folder, const std::wstring& pattern)
{
    const std::wstring path = folder + L"\\";
    const bool fits = path.size() + pattern.size() < pathRoom;
    return !folder.empty() && fits && isFolder(path) ? path + pattern : std::wstring();
}

// The chosen full path; empty when there is none.
std::wstring ask(const FileQuestion& question)
{
    const module::keep_loaded untilAnswered;
    const std::wstring filter = systemFilter(question.filter);
    const std::wstring extension = systemExtension(question.extension);
    const std::wstring field = firstField(question.folder, firstPattern(filter));
    std::wstring file = field;
    file.resize(pathRoom);
    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = boxOwner();
    dialog.lpstrTitle = question.title.c_str();
    dialog.lpstrFilter = filter.c_str();
    dialog.nFilterIndex = 1;
    dialog.lpstrDefExt = extension.c_str();
    // One of the two, never both: beside a setting that it has seen before, the system overlooks the field's folder.
    dialog.lpstrInitialDir = question.folder.empty() || !field.empty() ? nullptr : question.folder.c_str();
    dialog.lpstrFile = file.data();
    dialog.nMaxFile = static_cast<DWORD>(file.size());
    dialog.Flags = question.flags | presentDayLook;
    const bool isChosen = presenter()       ? presenter()(dialog, question)
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
    txtName = fileNameOf(chosen);
    txtPath = parentDir(chosen);
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
