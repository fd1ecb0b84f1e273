// The add-in's own file.
// Tested in tests/tools/doctor/machine/addinTest.cpp.
#include "base/paths.h"
#include "base/text.h"
#include "judgements.h"

#include <product.h>

namespace velk::doctor {
namespace {

constexpr const char* entryPoints[] = {"DllCanUnloadNow", "DllGetClassObject", "DllRegisterServer",
                                       "DllUnregisterServer"};
constexpr wchar_t installAgain[] = L"Run the installer again, or copy the add-in's file anew.";

// How the doctor came upon the file.
const wchar_t* placeText(AddinPlace place)
{
    switch (place) {
    case AddinPlace::named:
        return L", which was named";
    case AddinPlace::beside:
        return L", beside the doctor";
    case AddinPlace::registered:
        return L", which is registered";
    case AddinPlace::installed:
        return L", which was installed";
    default:
        return L"";
    }
}

Verdict notWithoutFile()
{
    return skipped(L"There is no file to look at.");
}

std::wstring missingEntry(const check::PeFile& header)
{
    for (const char* name : entryPoints)
        if (!header.find(name))
            return toWide(name);
    return {};
}

} // namespace

bool isAddin(const FileFacts& file)
{
    return file.is32BitLibrary() && missingEntry(*file.header).empty();
}

Verdict judgeAddinFile(const Facts& facts)
{
    const FileFacts& file = facts.addin.file;
    if (facts.addin.place == AddinPlace::none)
        return wrong(std::wstring(L"There is no " VELK_PRODUCT_FILE) +
                         L": not beside the doctor, nor where it is registered or installed.",
                     L"Run the installer.");
    if (!file.isThere) {
        Verdict verdict =
            wrong(L"The file is not there: " + quoted(file.path) + placeText(facts.addin.place) + L".",
                  L"Run the installer again; or let the doctor (Fix, or velkdoctor --fix, as administrator) "
                  L"remove what still points to the file.");
        const bool pointsThere = isSameText(registeredPath(facts), file.path);
        return withRemedy(std::move(verdict), pointsThere ? Remedy::removeRegistration : Remedy::none);
    }
    if (file.code != 0)
        return wrong(L"The file cannot be read: " + quoted(file.path) + L". " + systemText(file.code),
                     L"Give the users of this machine the right to read it.");
    return good(quoted(file.path) + placeText(facts.addin.place) + L".");
}

Verdict judgeAddinBits(const Facts& facts)
{
    const FileFacts& file = facts.addin.file;
    if (!file.isRead())
        return notWithoutFile();
    if (!file.header || !file.header->isLibrary)
        return wrong(L"The file is damaged: it is no library of Windows.", installAgain);
    if (!file.header->is32BitX86())
        return wrong(L"The file is " + bitsText(*file.header) + L"; the IDE loads 32-bit libraries only.",
                     installAgain);
    if (const std::wstring missing = missingEntry(*file.header); !missing.empty())
        return wrong(L"The file is not the add-in, or damaged: it lacks the entry point " + missing + L".",
                     installAgain);
    return good(L"32-bit, with the four entry points of a COM server.");
}

Verdict judgeAddinVersion(const Facts& facts)
{
    const FileFacts& file = facts.addin.file;
    if (!file.isRead())
        return notWithoutFile();
    if (!isAddin(file))
        return skipped(L"The file is not one that has a version.");
    if (file.version.empty())
        return warning(L"The file has no version.", installAgain);
    if (file.version != L"" VELK_FILE_VERSION)
        return warning(L"The file is of version " + quoted(file.version) + L", this doctor of " VELK_FILE_VERSION L".",
                       L"Use the doctor that came with the add-in, or run the installer again.");
    return good(L"Version " + file.version + L".");
}

Verdict judgeAddinBytes(const Facts& facts)
{
    const AddinFacts& addin = facts.addin;
    if (!addin.file.isRead())
        return notWithoutFile();
    if (!addin.hasHashFile)
        return note(std::wstring(L"There is no " VELK_PRODUCT_NAME ".sha256") +
                    L" beside the file to compare it with: it was not put there by the installer.");
    if (addin.hash.empty())
        return note(L"The bytes cannot be compared: this Windows has no SHA-256.");
    if (addin.storedHash.empty())
        return warning(std::wstring(L"The file " VELK_PRODUCT_NAME ".sha256") + L" beside the add-in is damaged.",
                       L"Run the installer again and let it repair.");
    if (addin.hash != addin.storedHash)
        return wrong(L"The file is not as it was shipped: its bytes have changed.",
                     L"Run the installer again and let it repair; look for what changed the file.",
                     {L"shipped: " + addin.storedHash, L"found: " + addin.hash});
    return good(L"The file is as it was shipped.");
}

Verdict judgeAddinFolder(const Facts& facts)
{
    const std::wstring& path = facts.addin.file.path;
    if (!facts.addin.file.isThere)
        return notWithoutFile();
    const std::wstring folder = parentDir(path);
    if (facts.installed.isThere && !facts.installed.folderPath.empty() &&
        !isSameText(facts.installed.folderPath, folder))
        return warning(L"The file is in " + quoted(folder) + L", but was installed in " +
                           quoted(facts.installed.folderPath) + L".",
                       L"Run the installer again; remove the copy that is not wanted.");
    const std::wstring& backend = facts.backend.file.path;
    if (backend.empty())
        return skipped(L"The tool's library, beside which it should be, was not found.");
    if (!isSameText(parentDir(backend), folder))
        return warning(L"The file is not in the folder of the tool's library, " + quoted(parentDir(backend)) +
                           L", which is found by the search path only.",
                       L"Install the add-in into the tool's folder.");
    return good(L"It is in the folder of the tool's library.");
}

Verdict judgeAddinLoad(const Facts& facts)
{
    if (!isAddin(facts.addin.file))
        return skipped(L"There is no file that could be loaded.");
    if (facts.addin.load.isLoaded())
        return good(L"It loads in a process of its own.");
    return wrong(L"The add-in does not load: " + childText(facts.addin.load), installAgain);
}

} // namespace velk::doctor
