#include "checker/settings.h"

#include "checker/texts.h"

#include <clocale>

namespace velk::check {
namespace {

std::wstring currentFolder()
{
    wchar_t folder[MAX_PATH]{};
    return GetCurrentDirectoryW(MAX_PATH, folder) < MAX_PATH ? folder : L"";
}

// Windows XP can only set it, and tells what it was.
UINT errorMode() noexcept
{
    const UINT mode = SetErrorMode(SEM_FAILCRITICALERRORS);
    SetErrorMode(mode);
    return mode;
}

void note(std::string& text, const char* what, const std::string& before, const std::string& after)
{
    if (before != after)
        text += (text.empty() ? "" : ", ") + std::string(what) + " was " + before + " and is " + after;
}

} // namespace

Settings Settings::now()
{
    const char* const locale = std::setlocale(LC_ALL, nullptr);
    return {currentFolder(), check::errorMode(), GetThreadLocale(), locale ? locale : ""};
}

std::string Settings::differences(const Settings& later) const
{
    std::string text;
    note(text, "the current directory", toUtf8(folder), toUtf8(later.folder));
    note(text, "the error mode", hexadecimal(errorMode), hexadecimal(later.errorMode));
    note(text, "the thread's locale", hexadecimal(threadLocale), hexadecimal(later.threadLocale));
    note(text, "the run-time's locale", runTimeLocale, later.runTimeLocale);
    return text;
}

void Settings::restore() const
{
    SetCurrentDirectoryW(folder.c_str());
    SetErrorMode(errorMode);
    SetThreadLocale(threadLocale);
    std::setlocale(LC_ALL, runTimeLocale.c_str());
}

} // namespace velk::check
