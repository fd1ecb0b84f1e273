// What nobody would write into the registry, in every place that the doctor reads: lines, and never its end.
#include "addin/registrationKeys.h"
#include "addin/traceTarget.h"
#include "doctor/checks.h"
#include "doctor/publishedNames.h"
#include "doctor/registrationPlaces.h"
#include "machine.h"

namespace velk::test {
namespace {

struct Absurdity {
    const char* name;
    DWORD type;
    std::vector<unsigned char> bytes;
};

class DoctorOfAbsurdities : public DoctorTest, public testing::WithParamInterface<Absurdity> {
protected:
    static void write(HKEY root, const std::wstring& path, const std::wstring& name = {})
    {
        setRaw(root, path, name, GetParam().type, GetParam().bytes);
    }
    static void writeRegistration(HKEY root)
    {
        for (const doctor::PublishedName& name : doctor::publishedNames()) {
            write(root, doctor::classPlace(name.clsid) + L"\\InprocServer32");
            write(root, doctor::classPlace(name.clsid) + L"\\InprocServer32", L"ThreadingModel");
            write(root, doctor::progIdPlace(name.progId) + L"\\CLSID");
        }
        write(root, doctor::libraryFilePlace());
        write(root, addinKey, L"FriendlyName");
        write(root, addinKey, L"LoadBehavior");
    }
    static void writeSurroundings()
    {
        const std::wstring odbc = L"Software\\ODBC\\ODBCINST.INI\\";
        write(HKEY_LOCAL_MACHINE, doctor::uninstallPlace + std::wstring(productName), L"DisplayVersion");
        write(HKEY_LOCAL_MACHINE, doctor::uninstallPlace + std::wstring(productName), L"InstallLocation");
        write(HKEY_LOCAL_MACHINE, L"Software\\Microsoft\\SourceSafe", L"SCCServerPath");
        write(HKEY_LOCAL_MACHINE, L"Software\\Microsoft\\SourceSafe\\Databases", L"Main");
        write(HKEY_LOCAL_MACHINE, odbc + L"ODBC Drivers", std::wstring(300, L'd'));
        write(HKEY_LOCAL_MACHINE, odbc + L"ODBC Drivers", L"A Driver");
        write(HKEY_LOCAL_MACHINE, odbc + L"A Driver", L"Driver");
        write(HKEY_CURRENT_USER, traceKey, traceValue);
    }
};

TEST_P(DoctorOfAbsurdities, everyCheckIsALine)
{
    writeRegistration(HKEY_LOCAL_MACHINE);
    writeRegistration(HKEY_CURRENT_USER);
    writeSurroundings();
    const Diagnosis diagnosis = diagnose();
    EXPECT_EQ(diagnosis.lines.size(), doctor::checkRows().size()) << diagnosis.output;
    EXPECT_EQ(diagnosis.exitCode, 2u);
    EXPECT_TRUE(diagnosis.output.ends_with("]}\r\n"));
    EXPECT_EQ(diagnosis.lines.at("registered-classes").state, "WRONG");
}

std::vector<unsigned char> repeated(size_t count, std::vector<unsigned char> bytes)
{
    std::vector<unsigned char> all;
    for (size_t index = 0; index < count; ++index)
        all.insert(all.end(), bytes.begin(), bytes.end());
    return all;
}

INSTANTIATE_TEST_SUITE_P(, DoctorOfAbsurdities,
                         testing::Values(Absurdity{"nothing", REG_SZ, {}}, Absurdity{"oneByte", REG_SZ, {'C'}},
                                         Absurdity{"bytes", REG_BINARY, {0, 255, 7}},
                                         Absurdity{"number", REG_DWORD, {1, 0, 0, 0}},
                                         Absurdity{"noWholeNumber", REG_DWORD, {1}},
                                         Absurdity{"texts", REG_MULTI_SZ, repeated(9, {'C', 0, 0, 0})},
                                         Absurdity{"controlCharacters", REG_SZ, repeated(99, {'\n', 0, 1, 0, '"', 0})},
                                         Absurdity{"halvesOfPairs", REG_SZ, repeated(99, {0, 0xD8})},
                                         Absurdity{"longVariable", REG_EXPAND_SZ,
                                                   repeated(5000, {'%', 0, 'P', 0, 'A', 0, 'T', 0, 'H', 0, '%', 0})},
                                         Absurdity{"manyKilobytes", REG_SZ, repeated(32768, {'x', 0})}),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace velk::test
