// SourceSafe, ODBC, code page and fonts.
// Tested in tests/tools/doctor/machine/surroundingsTest.cpp.
#include "backend/library_search.h"
#include "base/error.h"
#include "base/paths.h"
#include "base/registry.h"
#include "base/unique_any.h"
#include "files.h"
#include "gather.h"
#include "registrationPlaces.h"
#include "scc/VSSAPI.h"

#include <algorithm>
#include <array>

namespace velk::doctor {
namespace {

constexpr wchar_t sourceSafeKey[] = L"Software\\Microsoft\\SourceSafe";
constexpr wchar_t odbcKey[] = L"Software\\ODBC\\ODBCINST.INI";
constexpr size_t mostDrivers = 500;
constexpr size_t mostFaces = 10;

struct EastAsian {
    UINT codePage;
    BYTE charset;
};
// clang-format off
constexpr EastAsian eastAsian[] = {
    {932, SHIFTJIS_CHARSET},
    {936, GB2312_CHARSET},
    {949, HANGUL_CHARSET},
    {950, CHINESEBIG5_CHARSET},
};
// clang-format on

int CALLBACK addFace(const LOGFONTW* font, const TEXTMETRICW*, DWORD, LPARAM list) noexcept
{
    auto& faces = *reinterpret_cast<std::vector<std::wstring>*>(list);
    try {
        // Those that begin so are for text from top to bottom.
        if (font->lfFaceName[0] != L'@')
            faces.emplace_back(font->lfFaceName);
    } catch (const std::bad_alloc&) {
        return FALSE;
    }
    return faces.size() < mostFaces;
}

std::vector<std::wstring> facesOf(const std::wstring& name, BYTE charset)
{
    LOGFONTW wanted{};
    wanted.lfCharSet = charset;
    name.copy(wanted.lfFaceName, LF_FACESIZE - 1);
    std::vector<std::wstring> faces;
    const unique_screen_dc screen(GetDC(nullptr));
    EnumFontFamiliesExW(screen.get(), &wanted, addFace, reinterpret_cast<LPARAM>(&faces), 0);
    return faces;
}

std::wstring messageFace()
{
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    throwLastErrorUnless(SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0) != FALSE);
    return metrics.lfMessageFont.lfFaceName;
}

} // namespace

void gatherSourceSafe(Facts& facts, const Options&)
{
    SourceSafeFacts& sourceSafe = facts.sourceSafe;
    sourceSafe.isInstalled = isSourceSafeInstalled();
    if (!sourceSafe.isInstalled)
        return;
    sourceSafe.server = readValue(HKEY_LOCAL_MACHINE, sourceSafeKey, L"SCCServerPath");
    const std::wstring path = sourceSafe.server.isText() ? plainPath(sourceSafe.server.text) : std::wstring();
    sourceSafe.isServerThere = isFile(path) || (!path.empty() && !isFullyQualified(path));
    for (const HKEY root : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE})
        if (sourceSafe.automationClass.isMissing())
            sourceSafe.automationClass = readValue(root, progIdPlace(sourceSafeProgId) + L"\\CLSID");
    sourceSafe.isAutomationThere = sourceSafe.automationClass.isText() && hasServer(sourceSafe.automationClass.text);
    DatabaseTable table;
    getSourceSafeDatabases(table);
    for (const SourceSafeDatabase& row : table)
        sourceSafe.databases.push_back({row.name, row.folder, inFolder(row.folder, L"srcsafe.ini").has_value()});
}

void gatherOdbc(Facts& facts, const Options&)
{
    OdbcFacts& odbc = facts.odbc;
    odbc.hasManager = inFolder(systemFolder(), L"odbc32.dll").has_value();
    const std::wstring list = std::wstring(odbcKey) + L"\\ODBC Drivers";
    for (const std::wstring& name : registry::valueNames(HKEY_LOCAL_MACHINE, list, mostDrivers)) {
        OdbcFacts::Driver driver;
        driver.name = name;
        driver.file = readValue(HKEY_LOCAL_MACHINE, std::wstring(odbcKey) + L"\\" + name, L"Driver");
        const std::wstring path = driver.file.isText() ? plainPath(driver.file.text) : std::wstring();
        driver.isPath = isFullyQualified(path);
        driver.isFileThere = isFile(path);
        odbc.drivers.push_back(std::move(driver));
    }
}

void gatherLanguage(Facts& facts, const Options&)
{
    LanguageFacts& language = facts.language;
    language.codePage = GetACP();
    const std::wstring& own = facts.backend.texts.answer;
    language.face = own.empty() ? messageFace() : own;
    language.hasFace = !facesOf(language.face, DEFAULT_CHARSET).empty();
    for (const EastAsian& row : eastAsian)
        if (row.codePage == language.codePage) {
            language.needsEastAsianFace = true;
            language.eastAsianFaces = facesOf({}, row.charset);
        }
}

} // namespace velk::doctor
