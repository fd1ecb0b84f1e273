// What stands in the registry of the add-in itself.
// Tested in tests/tools/doctor/machine/registrationTest.cpp.
#include "addin/registrationKeys.h"
#include "base/text.h"
#include "judgements.h"

#include <algorithm>

namespace velk::doctor {
namespace {

constexpr DWORD atStartup = loadAtStartup;

Verdict notRegistered()
{
    return skipped(L"The add-in is not registered.");
}

Verdict denied(const std::wstring& what)
{
    return warning(what + L" may not be read by this user.",
                   L"Give the users of this machine the right to read it, or start the doctor as administrator.");
}

// Whether --fix may register: the file must be the add-in, be there, and not take the place of another copy.
Remedy remedyOf(const Facts& facts)
{
    const bool canRegister = facts.addin.load.isLoaded() && isAddin(facts.addin.file);
    const std::wstring path = registeredPath(facts);
    const bool isOurs = path.empty() || isSameText(path, facts.addin.file.path) || !isRegisteredThere(facts) ||
                        facts.addin.place == AddinPlace::named;
    return canRegister && isOurs ? Remedy::registerAgain : Remedy::none;
}

std::wstring list(const std::vector<std::wstring>& lines)
{
    return lines.front() + (lines.size() > 1 ? L" and " + numberText(static_cast<int32_t>(lines.size() - 1)) + L" more"
                                             : std::wstring());
}

Verdict broken(const Facts& facts, const wchar_t* what, std::vector<std::wstring> lines)
{
    std::wstring text = what + list(lines) + L".";
    return withRemedy(wrong(std::move(text), registerByHand, std::move(lines)), remedyOf(facts));
}

bool startsWithEnvironment(const RegistryValue& value)
{
    return value.state == RegistryValue::State::number && (value.number & atStartup) != 0;
}

} // namespace

std::wstring registeredPath(const Facts& facts)
{
    const auto& classes = facts.registration.classes;
    for (const ClassFacts& row : classes)
        if (!row.serverPath.empty() && isSameText(row.serverPath, facts.addin.file.path))
            return row.serverPath;
    for (const ClassFacts& row : classes)
        if (!row.serverPath.empty())
            return row.serverPath;
    return {};
}

bool isRegisteredThere(const Facts& facts)
{
    const std::wstring path = registeredPath(facts);
    return std::any_of(facts.registration.classes.begin(), facts.registration.classes.end(),
                       [&](const ClassFacts& row) { return row.isServerThere && isSameText(row.serverPath, path); });
}

bool isUnregistered(const Facts& facts)
{
    const auto& classes = facts.registration.classes;
    const bool hasClass = std::any_of(classes.begin(), classes.end(), [](const ClassFacts& row) {
        return !row.server.isMissing() || !row.progIdsClass.isMissing();
    });
    return !hasClass && facts.registration.library.isMissing() && facts.ide.machine.key.isMissing();
}

Verdict judgeClasses(const Facts& facts)
{
    if (isUnregistered(facts) && facts.addin.place == AddinPlace::none)
        return notRegistered();
    if (isUnregistered(facts))
        return withRemedy(wrong(L"The add-in is not registered on this machine.", registerByHand), remedyOf(facts));
    const std::wstring path = registeredPath(facts);
    std::vector<std::wstring> lines;
    for (const ClassFacts& row : facts.registration.classes) {
        if (row.server.state == RegistryValue::State::denied)
            return denied(L"The class " + row.name + L" " + row.clsid);
        if (row.server.isMissing())
            lines.push_back(row.name + L" is not registered");
        else if (!row.server.isText() || row.serverPath.empty())
            lines.push_back(row.name + L" has " + shown(row.server) + L" for its file");
        else if (!isSameText(row.serverPath, path))
            lines.push_back(row.name + L" is in another file, " + quoted(row.serverPath));
        else if (!row.threading.isText() || !isSameText(row.threading.text, threadingModel))
            lines.push_back(row.name + L" has " + shown(row.threading) + L" for its threading model");
    }
    if (!lines.empty())
        return broken(facts, L"Not all classes are right: ", std::move(lines));
    return good(L"All " + numberText(static_cast<int32_t>(facts.registration.classes.size())) + L" are in " +
                quoted(path) + L".");
}

Verdict judgeProgIds(const Facts& facts)
{
    if (isUnregistered(facts))
        return notRegistered();
    std::vector<std::wstring> lines;
    for (const ClassFacts& row : facts.registration.classes) {
        if (row.progIdsClass.state == RegistryValue::State::denied)
            return denied(L"The name " + row.name);
        if (!row.progIdsClass.isText() || !isSameText(row.progIdsClass.text, row.clsid))
            lines.push_back(row.name + L" names " + shown(row.progIdsClass));
    }
    if (!lines.empty())
        return broken(facts, L"Not all names lead to their classes: ", std::move(lines));
    return good(L"All names lead to their classes.");
}

Verdict judgeTypeLibrary(const Facts& facts)
{
    const RegistrationFacts& registration = facts.registration;
    if (isUnregistered(facts))
        return notRegistered();
    if (registration.library.state == RegistryValue::State::denied)
        return denied(L"The type library's key");
    if (!registration.library.isText() || registration.libraryPath.empty())
        return broken(facts, L"The type library is not registered: ", {L"its key has " + shown(registration.library)});
    const std::wstring path = registeredPath(facts);
    if (!path.empty() && !isSameText(registration.libraryPath, path))
        return broken(facts, L"The type library is not the add-in's: ",
                      {L"it is in " + quoted(registration.libraryPath)});
    return good(L"It is in " + quoted(registration.libraryPath) + L".");
}

Verdict judgeCopy(const Facts& facts)
{
    const std::wstring path = registeredPath(facts);
    if (path.empty() || facts.addin.place == AddinPlace::none)
        return skipped(L"No copy of the add-in is registered.");
    if (isSameText(path, facts.addin.file.path))
        return good(L"Registered is the file that is looked at here.");
    if (!facts.addin.file.isThere)
        return skipped(L"The file that is looked at here is not there.");
    if (!isRegisteredThere(facts))
        return withRemedy(wrong(L"Registered is a file that is not there: " + quoted(path) + L".", registerByHand),
                          remedyOf(facts));
    return withRemedy(
        wrong(L"Registered is another copy: " + quoted(path) + L", not " + quoted(facts.addin.file.path) + L".",
              L"Use the doctor beside that copy; or register this one: velkdoctor --fix --dll and the path "
              L"of this file, as administrator."),
        remedyOf(facts));
}

Verdict judgeUsersRegistration(const Facts& facts)
{
    std::vector<std::wstring> dead;
    std::vector<std::wstring> alive;
    const auto sort = [&](const std::wstring& what, const std::wstring& path, bool isThere) {
        (isThere ? alive : dead).push_back(what + L" is in " + (path.empty() ? L"no file" : quoted(path)));
    };
    for (const ClassFacts& row : facts.registration.classes) {
        if (!row.userServer.isMissing())
            sort(row.name, row.userServerPath, row.isUserServerThere);
        if (row.isUserNameAstray)
            (row.isUserNamesClassThere ? alive : dead).push_back(row.name + L" names " + shown(row.userProgIdsClass));
    }
    if (!facts.registration.userLibrary.isMissing())
        sort(L"the type library", facts.registration.userLibraryPath, facts.registration.isUserLibraryThere);
    if (!dead.empty())
        return withRemedy(
            wrong(L"The user has a registration of their own, which goes first and leads nowhere: " + list(dead) + L".",
                  L"Let the doctor remove it (Fix, or velkdoctor --fix, as that user).", dead),
            Remedy::removeUsersRegistration);
    if (!alive.empty())
        return warning(L"The user has a registration of their own, which goes before the machine's: " + list(alive) +
                           L".",
                       L"Remove it from HKEY_CURRENT_USER\\Software\\Classes unless it is wanted.", alive);
    return good(L"The user has no registration of their own.");
}

Verdict judgeLeftovers(const Facts& facts)
{
    const auto& leftovers = facts.registration.leftovers;
    if (leftovers.empty())
        return good(L"There are none of another version.");
    return warning(L"Names of another version of the add-in are registered: " + list(leftovers) + L".",
                   L"Remove the other version by its own installer, or these keys.", leftovers);
}

Verdict judgeIdeKey(const Facts& facts)
{
    if (isUnregistered(facts))
        return notRegistered();
    const IdeKeyFacts& key = facts.ide.machine;
    if (key.key.state == RegistryValue::State::denied)
        return denied(L"The add-in's key in the IDE's list");
    if (key.key.isMissing())
        return broken(facts, L"The IDE does not know the add-in: ",
                      {L"its list of add-ins lacks " + std::wstring(addinKey)});
    if (key.loadBehavior.state != RegistryValue::State::number)
        return broken(facts, L"The add-in's key in the IDE's list is damaged: ",
                      {L"its LoadBehavior is " + shown(key.loadBehavior)});
    if (!key.friendlyName.isText() || key.friendlyName.text.empty())
        return broken(facts, L"The add-in's key in the IDE's list is damaged: ",
                      {L"its FriendlyName is " + shown(key.friendlyName)});
    return good(L"The IDE lists it as " + shown(key.friendlyName) + L".");
}

Verdict judgeAddinManager(const Facts& facts)
{
    const IdeFacts& ide = facts.ide;
    constexpr wchar_t wayOut[] = L"In the IDE's Add-In Manager choose the add-in and tick \"Load on Startup\".";
    // The user's key, where there is one, goes before the machine's.
    if (!ide.user.key.isMissing() && !startsWithEnvironment(ide.user.loadBehavior))
        return wrong(L"The user has switched the add-in off: its LoadBehavior in HKEY_CURRENT_USER is " +
                         shown(ide.user.loadBehavior) + L".",
                     wayOut);
    if (ide.machine.loadBehavior.state != RegistryValue::State::number)
        return skipped(L"The add-in is not rightly in the IDE's list.");
    if (ide.user.key.isMissing() && !startsWithEnvironment(ide.machine.loadBehavior))
        return wrong(L"The add-in is switched off: the IDE does not load it when it starts (LoadBehavior " +
                         shown(ide.machine.loadBehavior) + L").",
                     wayOut);
    return good(L"The IDE loads it when it starts.");
}

} // namespace velk::doctor
