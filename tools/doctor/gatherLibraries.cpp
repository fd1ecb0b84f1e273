// The add-in's file and the tool's library: the files themselves, and whether they load.
// Tested in tests/tools/doctor/machine/backendTest.cpp.
#include "backend/library_search.h"
#include "base/module.h"
#include "base/paths.h"
#include "child.h"
#include "contract.h"
#include "dependencies.h"
#include "files.h"
#include "gather.h"
#include "judgements.h"

#include <algorithm>
#include <product.h>

namespace velk::doctor {
namespace {

constexpr size_t mostHashFile = 65536; // bytes

struct Found {
    AddinPlace place;
    std::wstring path;
};

Found findAddin(const Facts& facts, const Options& options)
{
    const std::wstring name = L"" VELK_PRODUCT_FILE;
    if (!options.addin.empty())
        return {AddinPlace::named, options.addin};
    if (auto path = inFolder(module::folder(), name))
        return {AddinPlace::beside, *path};
    if (const std::wstring path = registeredPath(facts); !path.empty())
        return {AddinPlace::registered, path};
    if (!facts.installed.folderPath.empty())
        return {AddinPlace::installed, facts.installed.folderPath + L"\\" + name};
    return {AddinPlace::none, {}};
}

void compareBytes(AddinFacts& addin, const std::vector<unsigned char>& bytes)
{
    const std::wstring list = parentDir(addin.file.path) + L"\\" VELK_PRODUCT_NAME ".sha256";
    addin.hasHashFile = isFile(list);
    if (!addin.hasHashFile)
        return;
    std::vector<unsigned char> lines;
    readBytes(list, mostHashFile, Part::beginning, lines);
    addin.storedHash = listedHash(std::string(lines.begin(), lines.end()), fileNameOf(addin.file.path));
    addin.hash = hashOf(bytes);
}

// The folder of the IDE's program, whose libraries the add-in would find, too: of one that runs, else as registered.
std::wstring ideFolder(const Facts& facts, const Options& options)
{
    if (!facts.running.processes.empty())
        return parentDir(facts.running.processes.front().path);
    const RegistryValue path =
        readValue(HKEY_LOCAL_MACHINE, L"Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\" + options.ide);
    const std::wstring program = path.isText() ? plainPath(path.text) : std::wstring();
    return isIdeProgram(program, options) ? parentDir(program) : std::wstring();
}

} // namespace

void gatherAddin(Facts& facts, const Options& options)
{
    const Found found = findAddin(facts, options);
    AddinFacts& addin = facts.addin;
    addin.place = found.place;
    if (found.place == AddinPlace::none)
        return;
    std::vector<unsigned char> bytes;
    addin.file = readProgram(fullPath(found.path), &bytes);
    if (addin.file.isRead())
        compareBytes(addin, bytes);
    if (addin.file.is32BitLibrary())
        addin.load = runInChild(Step::loadAddin, addin.file.path, options.wait).load;
}

void gatherBackend(Facts& facts, const Options& options)
{
    BackendFacts& backend = facts.backend;
    const std::wstring addinFolder =
        facts.addin.file.path.empty() ? module::folder() : parentDir(facts.addin.file.path);
    std::wstring path;
    for (const std::wstring& folder : libraryFolders(addinFolder, ideFolder(facts, options))) {
        const auto isThisOne = [&folder](const SearchPlace& place) { return isSameText(place.folder, folder); };
        if (std::any_of(backend.places.begin(), backend.places.end(), isThisOne))
            continue;
        const auto found = inFolder(folder, backendName);
        backend.places.push_back({folder, found.has_value()});
        if (found && path.empty())
            path = *found;
    }
    if (path.empty())
        return;
    backend.file = readProgram(fullPath(path));
    if (!backend.file.is32BitLibrary())
        return;
    const ChildResult result = runInChild(Step::askBackend, backend.file.path, options.wait);
    backend.load = result.load;
    backend.texts = result.after;
    if (options.isContract && !backend.texts.answer.empty())
        backend.contract = checkContract(backend.file.path, options.wait);
    if (!backend.load.isLoaded())
        backend.dependencies = missingDependencies(backend.file);
}

} // namespace velk::doctor
