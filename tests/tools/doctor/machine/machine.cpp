#include "machine.h"

#include "addin/registrationKeys.h"
#include "base/error.h"
#include "base/module.h"
#include "base/registry.h"
#include "base/text.h"
#include "doctor/child.h"
#include "doctor/files.h"
#include "doctor/gather.h"
#include "doctor/publishedNames.h"
#include "doctor/registrationPlaces.h"
#include "doctor/report.h"
#include "doctor/utf8.h"
#include "support/folders.h"

#include <algorithm>
#include <shellapi.h>

namespace velk::test {
namespace {

constexpr wchar_t sourceSafe[] = L"Software\\Microsoft\\SourceSafe";
constexpr wchar_t odbc[] = L"Software\\ODBC\\ODBCINST.INI";
const std::wstring uninstall = doctor::uninstallPlace + std::wstring(productName);

void snapshot(HKEY root, const std::wstring& path, std::set<std::wstring>& lines)
{
    unique_key key;
    if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, key.put()) != ERROR_SUCCESS)
        return;
    const std::wstring begin = (root == HKEY_CURRENT_USER ? L"user\\" : L"machine\\") + path;
    lines.insert(begin);
    wchar_t name[512];
    std::vector<BYTE> data(70000);
    DWORD length = 512;
    DWORD type = 0;
    auto size = static_cast<DWORD>(data.size());
    for (DWORD index = 0;
         RegEnumValueW(key.get(), index, name, &length, nullptr, &type, data.data(), &size) == ERROR_SUCCESS;
         ++index, length = 512, size = static_cast<DWORD>(data.size()))
        lines.insert(begin + L" @ " + name + L" = " + std::wstring(data.data(), data.data() + size));
    for (DWORD index = 0; RegEnumKeyW(key.get(), index, name, 512) == ERROR_SUCCESS; ++index)
        snapshot(root, path + L"\\" + name, lines);
}

// The keys of the interfaces of our type library, which outlive its own key. They are looked for once: there are
// thousands of others.
const std::vector<std::wstring>& interfaces()
{
    static const std::vector<std::wstring> ours = [] {
        constexpr size_t most = 100000;
        std::vector<std::wstring> found;
        for (const std::wstring& name : doctor::keysBelow(HKEY_LOCAL_MACHINE, doctor::interfacesPlace, most)) {
            const std::wstring path = std::wstring(doctor::interfacesPlace) + L"\\" + name;
            if (doctor::readValue(HKEY_LOCAL_MACHINE, path + L"\\TypeLib").text == doctor::typeLibraryId())
                found.push_back(path);
        }
        return found;
    }();
    return ours;
}

// This program, too, is a doctor: what it loads in a child of its own begins here.
const bool isNoChild = [] {
    int count = 0;
    wchar_t** const texts = CommandLineToArgvW(GetCommandLineW(), &count);
    const std::vector<std::wstring> arguments(texts + 1, texts + count);
    LocalFree(texts);
    if (doctor::isChild(arguments))
        doctor::beChild(arguments);
    return true;
}();

std::string fieldOf(const std::string& line, const std::string& name)
{
    const std::string mark = "\"" + name + "\": \"";
    const size_t begin = line.find(mark);
    if (begin == std::string::npos)
        return {};
    const size_t start = begin + mark.size();
    return line.substr(start, line.find("\", \"", start) - start);
}

Diagnosis understood(const std::string& output)
{
    Diagnosis diagnosis;
    diagnosis.output = output;
    constexpr std::string_view mark = "  {\"id\": ";
    for (size_t at = output.find(mark); at != std::string::npos; at = output.find(mark, at + 1)) {
        const std::string line = output.substr(at, output.find("\r\n", at) - at);
        const std::string id = fieldOf(line, "id");
        diagnosis.lines[id] = {fieldOf(line, "state"), fieldOf(line, "text"), line};
        if (const std::string state = fieldOf(line, "state"); state == "WARNING" || state == "WRONG")
            diagnosis.complaints.insert(id);
    }
    return diagnosis;
}

} // namespace

std::wstring DoctorTest::base()
{
    return module::folder() + L"\\machines";
}

std::wstring DoctorTest::otherLibrary()
{
    return module::folder() + L"\\..\\incomplete_backend\\velkvsadd.dll";
}

DoctorTest::DoctorTest()
{
    removeTree(base());
    furnish(folder());
    // The first look for the interfaces needs a registration.
    static const bool isKnown = [] {
        registerIn(folder());
        return !interfaces().empty();
    }();
    EXPECT_TRUE(isKnown);
    forgetRegistry();
    registerIn(folder());
    install(folder());
}

DoctorTest::~DoctorTest()
{
    if (m_ide) {
        TerminateProcess(m_ide.get(), 0);
        WaitForSingleObject(m_ide.get(), 10000);
    }
    forgetRegistry();
    removeTree(base());
}

void DoctorTest::forgetRegistry()
{
    unregister();
    remove(HKEY_LOCAL_MACHINE, uninstall);
    remove(HKEY_LOCAL_MACHINE, sourceSafe);
    remove(HKEY_LOCAL_MACHINE, odbc);
    remove(HKEY_CURRENT_USER, L"Software\\Velk");
    remove(HKEY_CURRENT_USER, L"Software\\Classes\\SourceSafe");
    SetEnvironmentVariableW(L"VELK_TEST_LIBRARY", nullptr);
    SetEnvironmentVariableW(L"VELKVIADD_TRACE", nullptr);
    SetEnvironmentVariableW(L"PATH", L"C:\\windows\\system32;C:\\windows");
}

void DoctorTest::furnish(const std::wstring& target)
{
    CreateDirectoryW(base().c_str(), nullptr);
    CreateDirectoryW(target.c_str(), nullptr);
    for (const wchar_t* part : {L"\\velkdoctor.exe", L"\\velkviadd.dll"})
        putFile(module::folder() + L"\\..\\doctor_parts" + part, target + part);
    putFile(module::folder() + L"\\..\\doctor_library\\velkvsadd.dll", target + L"\\velkvsadd.dll");
    ship(target);
}

void DoctorTest::registerIn(const std::wstring& target)
{
    const unique_module dll(LoadLibraryW((target + L"\\velkviadd.dll").c_str()));
    throwLastErrorUnless(static_cast<bool>(dll));
    const auto entry =
        reinterpret_cast<HRESULT(WINAPI*)()>(reinterpret_cast<void*>(GetProcAddress(dll.get(), "DllRegisterServer")));
    throwIfFailed(entry());
}

void DoctorTest::unregister()
{
    for (const HKEY root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
        for (const doctor::PublishedName& name : doctor::publishedNames()) {
            remove(root, doctor::classPlace(name.clsid));
            remove(root, doctor::progIdPlace(name.progId));
        }
        remove(root, doctor::libraryPlace());
        for (const std::wstring& path : interfaces())
            remove(root, path);
        remove(root, L"Software\\Microsoft\\VisualStudio");
        remove(root, L"Software\\Classes\\velkviadd.Older");
        remove(root, doctor::classPlace(anotherClass));
    }
}

void DoctorTest::install(const std::wstring& target, const std::wstring& version)
{
    setText(HKEY_LOCAL_MACHINE, uninstall, L"InstallLocation", target);
    setText(HKEY_LOCAL_MACHINE, uninstall, L"DisplayVersion", version);
}

void DoctorTest::ship(const std::wstring& target)
{
    const std::string line = toAnsi(doctor::hashOf(bytesOf(target + L"\\velkviadd.dll"))) + " *velkviadd.dll\n";
    writeBytes(target + L"\\velkviadd.sha256", {line.begin(), line.end()});
}

void DoctorTest::putFile(const std::wstring& from, const std::wstring& to)
{
    throwLastErrorUnless(CopyFileW(from.c_str(), to.c_str(), FALSE) != FALSE);
}

std::vector<unsigned char> DoctorTest::bytesOf(const std::wstring& path)
{
    std::vector<unsigned char> bytes;
    doctor::readBytes(path, 100 * 1024 * 1024, doctor::Part::beginning, bytes);
    return bytes;
}

void DoctorTest::writeBytes(const std::wstring& path, const std::vector<unsigned char>& bytes)
{
    const unique_kernel_handle file(
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    throwLastErrorUnless(file.get() != INVALID_HANDLE_VALUE);
    DWORD written = 0;
    WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

void DoctorTest::replaceIn(const std::wstring& path, const std::string& bytes, const std::string& others)
{
    std::vector<unsigned char> all = bytesOf(path);
    const auto found =
        std::search(all.begin(), all.end(), bytes.begin(), bytes.end(),
                    [](unsigned char one, char other) { return one == static_cast<unsigned char>(other); });
    ASSERT_NE(found, all.end());
    std::copy(others.begin(), others.end(), found);
    writeBytes(path, all);
}

void DoctorTest::make64Bit(const std::wstring& path)
{
    std::vector<unsigned char> bytes = bytesOf(path);
    const size_t header = bytes.at(0x3C) + 256u * bytes.at(0x3D);
    bytes.at(header + 4) = 0x64;
    bytes.at(header + 5) = 0x86;
    writeBytes(path, bytes);
}

void DoctorTest::setText(HKEY root, const std::wstring& path, const std::wstring& name, const std::wstring& text)
{
    registry::setText(registry::createKey(root, path).get(), name, text);
}

void DoctorTest::setRaw(HKEY root, const std::wstring& path, const std::wstring& name, DWORD type,
                        const std::vector<unsigned char>& bytes)
{
    RegSetValueExW(registry::createKey(root, path).get(), name.c_str(), 0, type, bytes.data(),
                   static_cast<DWORD>(bytes.size()));
}

void DoctorTest::setNumber(HKEY root, const std::wstring& path, const std::wstring& name, DWORD number)
{
    registry::setNumber(registry::createKey(root, path).get(), name, number);
}

void DoctorTest::remove(HKEY root, const std::wstring& path)
{
    registry::removeTree(root, path);
}

std::string DoctorTest::run(const std::wstring& options, DWORD& exitCode, const std::wstring& target)
{
    const std::wstring outputPath = base() + L"\\output.txt";
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    unique_kernel_handle output(CreateFileW(outputPath.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                            &inherited, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = startup.hStdError = output.get();
    PROCESS_INFORMATION made{};
    // On a busy machine a library takes long to load.
    std::wstring line = L"\"" + target + L"\\velkdoctor.exe\" --ide velktestide.exe --wait 120 " + options;
    throwLastErrorUnless(
        CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup, &made) != FALSE);
    const unique_kernel_handle thread(made.hThread);
    const unique_kernel_handle process(made.hProcess);
    WaitForSingleObject(process.get(), 300000);
    GetExitCodeProcess(process.get(), &exitCode);
    output.reset();
    const std::vector<unsigned char> bytes = bytesOf(outputPath);
    return {bytes.begin(), bytes.end()};
}

Diagnosis DoctorTest::diagnose(const std::wstring& options, const std::wstring& target)
{
    DWORD exitCode = 0;
    Diagnosis diagnosis = understood(run(L"--json " + options, exitCode, target));
    diagnosis.exitCode = exitCode;
    return diagnosis;
}

Diagnosis DoctorTest::look()
{
    doctor::Options options;
    options.addin = addin();
    options.ide = L"velktestide.exe";
    options.isIdeNamed = true;
    options.wait = 120;
    // The files of a healthy machine, and what came of loading them, are the same in every test.
    static const doctor::Facts files = gather(options);
    EXPECT_TRUE(isNoChild && files.addin.load.isLoaded());
    doctor::Facts facts;
    facts.addin = files.addin;
    facts.addin.place = doctor::AddinPlace::beside;
    facts.backend = files.backend;
    for (const auto area : {doctor::gatherSystem, doctor::gatherRegistration, doctor::gatherIde,
                            doctor::gatherInstalled, doctor::gatherRunning, doctor::gatherSourceSafe,
                            doctor::gatherOdbc, doctor::gatherLanguage, doctor::gatherLog})
        area(facts, options);
    const doctor::Report report{{}, judge(facts), true};
    Diagnosis diagnosis = understood(doctor::toUtf8(jsonOf(report)));
    diagnosis.exitCode = static_cast<DWORD>(exitCodeOf(report));
    return diagnosis;
}

void DoctorTest::startIde(const std::wstring& loaded, const std::wstring& manner)
{
    const unique_kernel_handle ready(CreateEventW(nullptr, TRUE, FALSE, L"velktestide"));
    std::wstring line = L"\"" + module::folder() + L"\\..\\doctor_ide\\velktestide.exe\" \"" + loaded + L"\" " + manner;
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION made{};
    throwLastErrorUnless(
        CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &made) != FALSE);
    const unique_kernel_handle thread(made.hThread);
    m_ide.reset(made.hProcess);
    ASSERT_EQ(WaitForSingleObject(ready.get(), 30000), WAIT_OBJECT_0);
}

std::set<std::wstring> DoctorTest::registry()
{
    std::set<std::wstring> lines;
    for (const HKEY root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
        for (const doctor::PublishedName& name : doctor::publishedNames()) {
            snapshot(root, doctor::classPlace(name.clsid), lines);
            snapshot(root, doctor::progIdPlace(name.progId), lines);
        }
        snapshot(root, doctor::libraryPlace(), lines);
        snapshot(root, L"Software\\Microsoft\\VisualStudio", lines);
        snapshot(root, L"Software\\Velk", lines);
    }
    return lines;
}

std::set<std::wstring> DoctorTest::wholeRegistry()
{
    std::set<std::wstring> lines = registry();
    snapshot(HKEY_LOCAL_MACHINE, L"Software\\Classes", lines);
    snapshot(HKEY_CURRENT_USER, L"Software\\Classes", lines);
    return lines;
}

} // namespace velk::test
