// Tested in tests/tools/doctor/machine/fixTest.cpp.
#include "mend.h"

#include "addin/registrationKeys.h"
#include "base/boundary.h"
#include "base/registry.h"
#include "child.h"
#include "judgements.h"
#include "publishedNames.h"
#include "registrationPlaces.h"

#include <algorithm>
#include <functional>

namespace velk::doctor {
namespace {

constexpr size_t mostInterfaces = 200000;
constexpr wchar_t rightsNeeded[] = L"; it needs administrator rights: start the doctor as administrator";

Mended told(std::wstring text, const std::function<void()>& step)
{
    const auto failure = attempt(step);
    if (!failure)
        return {text + L".", true};
    const bool isDenied = failure->result() == E_ACCESSDENIED;
    return {text + L": this failed, " + failure->description() + (isDenied ? rightsNeeded : L"") + L".", false};
}

// Without the rights for all of it nothing is begun: what fails half-way would be taken back with what was right.
void throwUnlessWritable(const std::wstring& place)
{
    unique_key key;
    const LONG status = RegOpenKeyExW(HKEY_LOCAL_MACHINE, place.c_str(), 0, KEY_READ | KEY_WRITE, key.put());
    if (status != ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND)
        throw Error::fromWin32(static_cast<DWORD>(status));
}

void throwUnlessRegistrationIsWritable()
{
    for (const wchar_t* list : {L"Software\\Classes", L"Software\\Classes\\CLSID", L"Software\\Classes\\TypeLib",
                                interfacesPlace, L"Software\\Microsoft", ideRoot, addinKey})
        throwUnlessWritable(list);
    throwUnlessWritable(libraryPlace());
    for (const PublishedName& name : publishedNames()) {
        throwUnlessWritable(classPlace(name.clsid));
        throwUnlessWritable(progIdPlace(name.progId));
    }
}

// What the user chose in the Add-In Manager outlives a registration.
void registerAgain(const Facts& facts, const Options& options)
{
    throwUnlessRegistrationIsWritable();
    const ChildResult result = runInChild(Step::registerAddin, facts.addin.file.path, options.wait);
    if (result.after.outcome != ChildFacts::Outcome::done) {
        const bool isLoaded = result.load.isLoaded();
        throw Error(errorInternal, childText(isLoaded ? result.after : result.load), {}, E_FAIL);
    }
    throwIfFailed(static_cast<HRESULT>(result.after.systemCode));
    const RegistryValue& chosen = facts.ide.machine.loadBehavior;
    if (chosen.state == RegistryValue::State::number && chosen.number != loadAtStartup)
        registry::setNumber(registry::createKey(HKEY_LOCAL_MACHINE, addinKey).get(), L"LoadBehavior", chosen.number);
}

void removeInterfaces(HKEY root)
{
    for (const std::wstring& name : keysBelow(root, interfacesPlace, mostInterfaces)) {
        const std::wstring place = std::wstring(interfacesPlace) + L"\\" + name;
        const RegistryValue library = readValue(root, place + L"\\TypeLib");
        if (library.isText() && isSameText(library.text, typeLibraryId()))
            registry::removeTree(root, place);
    }
}

void removeTypeLibrary(HKEY root)
{
    registry::removeTree(root, libraryPlace());
    removeInterfaces(root);
}

void removeRegistration()
{
    throwUnlessRegistrationIsWritable();
    registry::removeTree(HKEY_LOCAL_MACHINE, addinKey);
    registry::removeEmptyUpTo(HKEY_LOCAL_MACHINE, ideRoot, ideRootStop);
    removeTypeLibrary(HKEY_LOCAL_MACHINE);
    for (const PublishedName& name : publishedNames()) {
        registry::removeTree(HKEY_LOCAL_MACHINE, classPlace(name.clsid));
        registry::removeTree(HKEY_LOCAL_MACHINE, progIdPlace(name.progId));
    }
}

// Only what leads nowhere.
void removeUsersRegistration(const Facts& facts)
{
    for (const ClassFacts& row : facts.registration.classes) {
        const bool isDead = !row.userServer.isMissing() && !row.isUserServerThere;
        const bool isAstray = row.isUserNameAstray && !row.isUserNamesClassThere;
        if (isDead)
            registry::removeTree(HKEY_CURRENT_USER, classPlace(row.clsid));
        if ((isDead && !row.userProgIdsClass.isMissing() && !row.isUserNameAstray) || isAstray)
            registry::removeTree(HKEY_CURRENT_USER, progIdPlace(row.name));
    }
    if (!facts.registration.userLibrary.isMissing() && !facts.registration.isUserLibraryThere)
        removeTypeLibrary(HKEY_CURRENT_USER);
}

Mended take(Remedy remedy, const Facts& facts, const Options& options)
{
    switch (remedy) {
    case Remedy::registerAgain:
        return told(L"Registered " + quoted(facts.addin.file.path), [&] { registerAgain(facts, options); });
    case Remedy::removeRegistration:
        return told(L"Removed the registration of " + quoted(facts.addin.file.path) + L", which is not there",
                    [] { removeRegistration(); });
    case Remedy::removeUsersRegistration:
        return told(L"Removed the user's registration, which led nowhere", [&] { removeUsersRegistration(facts); });
    default:
        return {};
    }
}

} // namespace

std::vector<Remedy> remediesOf(const std::vector<Finding>& findings)
{
    std::vector<Remedy> remedies;
    for (const Finding& finding : findings) {
        const Remedy remedy = finding.verdict.remedy;
        if (remedy != Remedy::none && std::find(remedies.begin(), remedies.end(), remedy) == remedies.end())
            remedies.push_back(remedy);
    }
    return remedies;
}

std::vector<Mended> mend(const std::vector<Finding>& findings, const Facts& facts, const Options& options)
{
    std::vector<Mended> done;
    for (const Remedy remedy : remediesOf(findings))
        done.push_back(take(remedy, facts, options));
    return done;
}

} // namespace velk::doctor
