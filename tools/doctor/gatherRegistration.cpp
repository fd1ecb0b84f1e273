// What is registered of the add-in: its classes, names and type library, its key in the IDE's list, its installation.
// Tested in tests/tools/doctor/machine/registrationTest.cpp.
#include "addin/registrationKeys.h"
#include "base/paths.h"
#include "files.h"
#include "gather.h"
#include "judgements.h"
#include "publishedNames.h"
#include "registrationPlaces.h"

#include <algorithm>

namespace velk::doctor {
namespace {

constexpr size_t mostKeys = 100000; // a machine has some ten thousand classes
const HKEY machine = HKEY_LOCAL_MACHINE;
const HKEY user = HKEY_CURRENT_USER;

std::wstring pathIn(const RegistryValue& value)
{
    return value.isText() ? plainPath(value.text) : std::wstring();
}

ClassFacts classFacts(const PublishedName& name)
{
    ClassFacts facts;
    facts.name = name.progId;
    facts.clsid = name.clsid;
    const std::wstring server = classPlace(name.clsid) + L"\\InprocServer32";
    facts.server = readValue(machine, server);
    facts.threading = readValue(machine, server, L"ThreadingModel");
    facts.serverPath = pathIn(facts.server);
    facts.isServerThere = isFile(facts.serverPath);
    facts.progIdsClass = readValue(machine, progIdPlace(name.progId) + L"\\CLSID");
    facts.userServer = readValue(user, server);
    facts.userServerPath = pathIn(facts.userServer);
    facts.isUserServerThere = isFile(facts.userServerPath);
    facts.userProgIdsClass = readValue(user, progIdPlace(name.progId) + L"\\CLSID");
    facts.isUserNameAstray = facts.userProgIdsClass.isText() && !isSameText(facts.userProgIdsClass.text, name.clsid);
    facts.isUserNamesClassThere = facts.isUserNameAstray && hasServer(facts.userProgIdsClass.text);
    return facts;
}

bool isOurs(const std::wstring& progId)
{
    const auto& names = publishedNames();
    return std::any_of(names.begin(), names.end(),
                       [&](const PublishedName& name) { return isSameText(name.progId, progId); });
}

void addLeftovers(HKEY root, const std::wstring& rootName, std::vector<std::wstring>& leftovers)
{
    const std::wstring prefix = VELK_OWN_NAME("");
    for (const std::wstring& name : keysBelow(root, L"Software\\Classes", mostKeys))
        if (name.size() > prefix.size() && isSameText(name.substr(0, prefix.size()), prefix) && !isOurs(name))
            leftovers.push_back(rootName + L"\\Software\\Classes\\" + name);
}

IdeKeyFacts ideKey(HKEY root)
{
    return {readKey(root, addinKey), readValue(root, addinKey, L"FriendlyName"),
            readValue(root, addinKey, L"LoadBehavior")};
}

} // namespace

std::wstring classPlace(const std::wstring& clsid)
{
    return std::wstring(classesRoot) + L"CLSID\\" + clsid;
}

std::wstring progIdPlace(const std::wstring& progId)
{
    return classesRoot + progId;
}

std::wstring libraryPlace()
{
    return std::wstring(classesRoot) + L"TypeLib\\" + typeLibraryId();
}

std::wstring libraryFilePlace()
{
    return libraryPlace() + L"\\1.0\\0\\win32";
}

bool hasServer(const std::wstring& clsid)
{
    for (const HKEY root : {user, machine}) {
        const std::wstring server = pathIn(readValue(root, classPlace(clsid) + L"\\InprocServer32"));
        // A name without a folder is looked for by the system.
        if (isFile(server) || (!server.empty() && !isFullyQualified(server)) ||
            readValue(root, classPlace(clsid) + L"\\LocalServer32").isText())
            return true;
    }
    return false;
}

void gatherRegistration(Facts& facts, const Options&)
{
    RegistrationFacts& registration = facts.registration;
    for (const PublishedName& name : publishedNames())
        registration.classes.push_back(classFacts(name));
    registration.library = readValue(machine, libraryFilePlace());
    registration.libraryPath = pathIn(registration.library);
    registration.isLibraryThere = isFile(registration.libraryPath);
    registration.userLibrary = readValue(user, libraryFilePlace());
    registration.userLibraryPath = pathIn(registration.userLibrary);
    registration.isUserLibraryThere = isFile(registration.userLibraryPath);
    addLeftovers(machine, L"HKEY_LOCAL_MACHINE", registration.leftovers);
    addLeftovers(user, L"HKEY_CURRENT_USER", registration.leftovers);
}

void gatherIde(Facts& facts, const Options&)
{
    facts.ide.machine = ideKey(machine);
    facts.ide.user = ideKey(user);
}

void gatherInstalled(Facts& facts, const Options&)
{
    const std::wstring place = uninstallPlace + std::wstring(productName);
    InstalledFacts& installed = facts.installed;
    installed.isThere = !readKey(machine, place).isMissing();
    installed.version = readValue(machine, place, L"DisplayVersion");
    installed.folder = readValue(machine, place, L"InstallLocation");
    installed.folderPath = pathIn(installed.folder);
    while (installed.folderPath.ends_with(L'\\'))
        installed.folderPath.pop_back();
}

} // namespace velk::doctor
