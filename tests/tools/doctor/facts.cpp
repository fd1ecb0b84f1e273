#include "facts.h"

#include "base/text.h"
#include "doctor/backendFunctions.h"
#include "doctor/publishedNames.h"

namespace velk::test {
namespace {

using namespace doctor;

const std::wstring path = L"C:\\Tool\\velkviadd.dll";

RegistryValue text(const std::wstring& value)
{
    RegistryValue found;
    found.state = RegistryValue::State::text;
    found.text = value;
    return found;
}

RegistryValue number(DWORD value)
{
    RegistryValue found;
    found.state = RegistryValue::State::number;
    found.number = value;
    return found;
}

ChildFacts done(const std::wstring& answer = {})
{
    ChildFacts child;
    child.outcome = ChildFacts::Outcome::done;
    child.answer = answer;
    return child;
}

check::PeFile library32()
{
    check::PeFile file;
    file.machine = 0x014C;
    file.isLibrary = true;
    return file;
}

void registerIt(Facts& facts)
{
    for (const PublishedName& name : publishedNames()) {
        ClassFacts row;
        row.name = name.progId;
        row.clsid = name.clsid;
        row.server = text(path);
        row.serverPath = path;
        row.isServerThere = true;
        row.threading = text(L"Apartment");
        row.progIdsClass = text(name.clsid);
        facts.registration.classes.push_back(row);
    }
    facts.registration.library = text(path);
    facts.registration.libraryPath = path;
    facts.registration.isLibraryThere = true;
    RegistryValue key;
    key.state = RegistryValue::State::other;
    facts.ide.machine = {key, text(L"Velk"), number(1)};
}

} // namespace

Facts healthyMachine()
{
    Facts facts;
    facts.system = {5, 1, 2600, L"Service Pack 3", {}, false, true, false};
    facts.addin.place = AddinPlace::beside;
    facts.addin.file = {path, true, 0, library32(), L"1.0.0.0"};
    for (const char* name : {"DllCanUnloadNow", "DllGetClassObject", "DllRegisterServer", "DllUnregisterServer"})
        facts.addin.file.header->exports.push_back({name, 1, false, true});
    facts.addin.hasHashFile = true;
    facts.addin.hash = facts.addin.storedHash = L"ab";
    facts.addin.load = done();
    registerIt(facts);
    facts.installed = {true, text(L"1.0.0"), text(L"C:\\Tool\\"), L"C:\\Tool"};
    facts.backend.places = {{L"C:\\Tool", true}};
    facts.backend.file = {L"C:\\Tool\\velkvsadd.dll", true, 0, library32(), {}};
    for (const std::wstring& name : missingFunctions({}))
        facts.backend.file.header->exports.push_back({toAnsi(name), 1, false, true});
    facts.backend.load = done();
    facts.backend.texts = done(L"Tahoma");
    facts.odbc.hasManager = true;
    facts.language = {1252, L"Tahoma", true, false, {}};
    facts.running.program = L"devenv.exe";
    return facts;
}

} // namespace velk::test
