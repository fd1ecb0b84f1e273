// Windows itself, and what the add-in finds on it: SourceSafe, ODBC, languages.
// Tested in tests/tools/doctor/checksTest.cpp.
#include "base/text.h"
#include "judgements.h"

namespace velk::doctor {
namespace {

constexpr DWORD oldestMajor = 5; // Windows XP is 5.1
constexpr DWORD oldestMinor = 1;
constexpr UINT utf8 = 65001;

std::wstring number(DWORD value)
{
    return numberText(static_cast<int32_t>(value));
}

std::wstring windowsText(const SystemFacts& system)
{
    std::wstring text = L"Windows " + number(system.major) + L"." + number(system.minor) + L"." + number(system.build);
    if (!system.servicePack.empty())
        text += L" " + shownText(system.servicePack);
    text += system.is64Bit ? L", 64-bit" : L", 32-bit";
    if (!system.wine.empty())
        text += L", by Wine " + shownText(system.wine);
    return text + L".";
}

// Which of the drivers are there that the sample projects use.
std::wstring sampleText(const OdbcFacts& odbc)
{
    std::wstring found;
    for (const wchar_t* name : {L"SQLite3", L"PostgreSQL Unicode"})
        for (const auto& driver : odbc.drivers)
            if (isSameText(driver.name, name))
                found += (found.empty() ? L"" : L", ") + driver.name;
    return found.empty() ? L"none of them is one that the sample projects use" : L"the sample projects use " + found;
}

} // namespace

Verdict judgeWindows(const Facts& facts)
{
    const SystemFacts& system = facts.system;
    const bool isOld = system.major < oldestMajor || (system.major == oldestMajor && system.minor < oldestMinor);
    if (isOld)
        return wrong(windowsText(system) + L" The add-in needs Windows XP or a later one.",
                     L"Use the add-in on Windows XP or later.");
    return good(windowsText(system));
}

Verdict judgeRegistryView(const Facts& facts)
{
    if (!facts.system.is64Bit)
        return good(L"This Windows has one registry for all programs.");
    if (facts.system.isInOtherView && isUnregistered(facts))
        return warning(
            L"The add-in is registered for 64-bit programs only; the IDE is a 32-bit one and does not see it.",
            L"Register with the 32-bit regsvr32: %windir%\\SysWOW64\\regsvr32.exe.");
    return good(L"Looked at is what 32-bit programs see, as the IDE does.");
}

Verdict judgeRights(const Facts& facts)
{
    if (facts.system.isAdministrator)
        return good(L"The doctor runs as administrator.");
    return note(L"The doctor does not run as administrator: it sees everything that it needs, but --fix needs more.");
}

Verdict judgeInstalled(const Facts& facts)
{
    const InstalledFacts& installed = facts.installed;
    if (!installed.isThere)
        return note(L"The add-in is not among the installed programs: it was put there by hand.");
    if (!installed.version.isText() || !installed.folder.isText())
        return warning(L"The entry among the installed programs is damaged: its version is " +
                           shown(installed.version) + L", its folder " + shown(installed.folder) + L".",
                       L"Run the installer again and let it repair.");
    const std::wstring& file = facts.addin.file.version;
    if (!file.empty() && !(file + L".").starts_with(installed.version.text + L"."))
        return warning(L"Installed is version " + shown(installed.version) + L", but the file is of " + quoted(file) +
                           L".",
                       L"Run the installer again and let it repair.");
    return good(L"Version " + shown(installed.version) + L" in " + shown(installed.folder) + L".");
}

Verdict judgeSourceSafe(const Facts& facts)
{
    const SourceSafeFacts& sourceSafe = facts.sourceSafe;
    if (!sourceSafe.isInstalled)
        return note(L"SourceSafe is not on this machine; the add-in works without it.");
    std::vector<std::wstring> details;
    std::wstring missing;
    for (const auto& database : sourceSafe.databases) {
        details.push_back(quoted(database.name) + L" in " + quoted(database.folder) +
                          (database.isThere ? L"" : L": there is no srcsafe.ini"));
        if (!database.isThere && missing.empty())
            missing = quoted(database.name) + L" in " + quoted(database.folder);
    }
    if (!sourceSafe.server.isText() || !sourceSafe.isServerThere)
        return warning(L"SourceSafe is registered, but its library is not where the registry says: " +
                           shown(sourceSafe.server) + L".",
                       L"Repair SourceSafe by its setup.", std::move(details));
    if (!sourceSafe.isAutomationThere)
        return warning(L"SourceSafe is there, but its automation is not registered: the class of its name is " +
                           shown(sourceSafe.automationClass) + L".",
                       L"Repair SourceSafe by its setup.", std::move(details));
    if (!missing.empty())
        return warning(L"A database of SourceSafe cannot be reached: " + missing + L" has no srcsafe.ini.",
                       L"Connect the drive or server that it is on, or remove it in SourceSafe.", std::move(details));
    const auto count = static_cast<int32_t>(sourceSafe.databases.size());
    return good(L"SourceSafe is there; databases: " + numberText(count) + L".", std::move(details));
}

Verdict judgeOdbc(const Facts& facts)
{
    const OdbcFacts& odbc = facts.odbc;
    if (!odbc.hasManager)
        return warning(L"The system's odbc32.dll is missing: the tool cannot reach databases by ODBC.",
                       L"Repair Windows: ODBC is a part of it.");
    std::vector<std::wstring> details;
    std::wstring broken;
    for (const auto& driver : odbc.drivers) {
        details.push_back(quoted(driver.name) + L": " + shown(driver.file));
        if (broken.empty() && (!driver.file.isText() || (driver.isPath && !driver.isFileThere)))
            broken = quoted(driver.name) + L" (" + shown(driver.file) + L")";
    }
    if (!broken.empty())
        return warning(L"A 32-bit ODBC driver is registered, but its file is not there: " + broken + L".",
                       L"Repair or remove that driver by its own setup.", std::move(details));
    if (odbc.drivers.empty())
        return note(L"ODBC is there, without any 32-bit driver; the sample projects need one for their database.");
    return good(L"ODBC is there; 32-bit drivers: " + numberText(static_cast<int32_t>(odbc.drivers.size())) + L"; " +
                    sampleText(odbc) + L".",
                std::move(details));
}

Verdict judgeCodePage(const Facts& facts)
{
    const UINT codePage = facts.language.codePage;
    if (codePage == utf8)
        return warning(
            L"The system's code page is UTF-8; the tool's texts come in a Windows code page and would be spoiled.",
            L"Switch off \"Use Unicode UTF-8\" in the region settings of Windows.");
    return good(L"The code page is " + numberText(static_cast<int32_t>(codePage)) + L".");
}

Verdict judgeFonts(const Facts& facts)
{
    const LanguageFacts& language = facts.language;
    if (!language.hasFace)
        return warning(L"The font of the add-in's windows, " + quoted(language.face) + L", is not installed.",
                       L"Install that font, or choose another one in the settings of the tool or of Windows.");
    if (language.needsEastAsianFace && language.eastAsianFaces.empty())
        return warning(L"No installed font can show the characters of code page " +
                           numberText(static_cast<int32_t>(language.codePage)) + L".",
                       L"Install the East Asian fonts of Windows.");
    std::wstring text = L"The windows' font " + quoted(language.face) + L" is installed";
    if (language.needsEastAsianFace)
        text += L", and " + quoted(language.eastAsianFaces.front()) + L" shows the code page's characters";
    return good(text + L".");
}

} // namespace velk::doctor
