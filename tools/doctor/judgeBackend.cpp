// The tool's library.
// Tested in tests/tools/doctor/machine/backendTest.cpp.
#include "backend/library.h"
#include "backendFunctions.h"
#include "base/text.h"
#include "judgements.h"

namespace velk::doctor {
namespace {

constexpr wchar_t repairTool[] = L"Repair the tool by its own setup.";

std::wstring placesText(const BackendFacts& backend)
{
    std::wstring text;
    for (const SearchPlace& place : backend.places)
        if (!place.folder.empty())
            text += (text.empty() ? L"" : L"; ") + shownText(place.folder);
    return text;
}

std::vector<std::wstring> placeLines(const BackendFacts& backend)
{
    std::vector<std::wstring> lines;
    for (const SearchPlace& place : backend.places) {
        const std::wstring folder = place.folder.empty() ? L"the IDE's folder, which is not known here" : place.folder;
        lines.push_back(folder + (place.hasLibrary ? L": there" : L": not there"));
    }
    return lines;
}

Verdict notWithoutLibrary()
{
    return skipped(L"There is no library to look at.");
}

// Why a library that is needed cannot be had.
std::wstring whyNot(const FileFacts& file)
{
    if (!file.isThere)
        return L"missing";
    if (!file.isRead())
        return L"unreadable: " + systemText(file.code);
    return !file.header || !file.header->isLibrary ? L"damaged" : bitsText(*file.header);
}

bool offersTexts(const BackendFacts& backend)
{
    for (const std::wstring& name : missingFunctions(*backend.file.header))
        if (name == L"RZGetString")
            return false;
    return true;
}

} // namespace

Verdict judgeBackendFile(const Facts& facts)
{
    const BackendFacts& backend = facts.backend;
    if (backend.file.path.empty())
        return wrong(std::wstring(L"velkvsadd.dll is in none of the places where the add-in looks: ") +
                         placesText(backend) + L".",
                     L"Install the tool, or put the add-in into the tool's folder.", placeLines(backend));
    if (!backend.file.isRead())
        return wrong(L"The library cannot be read: " + quoted(backend.file.path) + L". " +
                         systemText(backend.file.code),
                     L"Give the users of this machine the right to read it.", placeLines(backend));
    return good(quoted(backend.file.path) + L".", placeLines(backend));
}

Verdict judgeBackendBits(const Facts& facts)
{
    const FileFacts& file = facts.backend.file;
    if (!file.isRead())
        return notWithoutLibrary();
    if (!file.header || !file.header->isLibrary)
        return wrong(L"The library is damaged: it is no library of Windows.", repairTool);
    if (!file.header->is32BitX86())
        return wrong(L"The library is " + bitsText(*file.header) + L"; the IDE is a 32-bit program.",
                     L"Install the 32-bit edition of the tool.");
    return good(L"32-bit.");
}

Verdict judgeBackendFunctions(const Facts& facts)
{
    if (!facts.backend.file.is32BitLibrary())
        return notWithoutLibrary();
    const std::vector<std::wstring> missing = missingFunctions(*facts.backend.file.header);
    if (missing.empty())
        return good(L"It has all " + numberText(static_cast<int32_t>(BackendFunction::count)) +
                    L" functions that the add-in knows.");
    std::wstring names;
    for (const std::wstring& name : missing)
        names += (names.empty() ? L"" : L", ") + name;
    return wrong(L"The library is of another release: it lacks " + numberText(static_cast<int32_t>(missing.size())) +
                     L" functions: " + names + L".",
                 L"Install the release of the tool that goes with the add-in.", missing);
}

Verdict judgeBackendDependencies(const Facts& facts)
{
    const BackendFacts& backend = facts.backend;
    if (!backend.file.is32BitLibrary())
        return notWithoutLibrary();
    if (backend.dependencies.empty())
        return good(L"All libraries that it needs are there.");
    std::vector<std::wstring> lines;
    for (const Dependency& row : backend.dependencies)
        lines.push_back(shownText(row.name) + L", which " + shownText(row.of) + L" needs, is " + whyNot(row.file));
    std::wstring text = L"The library cannot be loaded: " + lines.front() + L".";
    return wrong(std::move(text), repairTool, std::move(lines));
}

Verdict judgeBackendLoad(const Facts& facts)
{
    const BackendFacts& backend = facts.backend;
    if (!backend.file.is32BitLibrary())
        return notWithoutLibrary();
    if (backend.load.isLoaded())
        return good(L"It loads in a process of its own.");
    if (!backend.dependencies.empty())
        return skipped(L"What it needs is not there; " + childText(backend.load));
    return wrong(L"The library does not load: " + childText(backend.load), repairTool);
}

Verdict judgeTexts(const Facts& facts)
{
    const BackendFacts& backend = facts.backend;
    using enum ChildFacts::Outcome;
    if (!backend.file.is32BitLibrary() || !backend.load.isLoaded() || !offersTexts(backend))
        return skipped(L"There is no library that could be asked.");
    if (backend.texts.outcome != done)
        return wrong(L"Asked for a text, the library failed: " + childText(backend.texts), repairTool);
    if (backend.texts.answer.empty())
        return wrong(L"The library has no texts: it gives none for number 100.", repairTool);
    return good(L"It answers: number 100 is " + quoted(backend.texts.answer) + L".");
}

Verdict judgeContract(const Facts& facts)
{
    const ContractFacts& contract = facts.backend.contract;
    if (!contract.isChecked)
        return skipped(
            L"Looked at with --contract only, and once the library answers: it begins sessions of the tool.");
    if (!contract.broken.empty())
        return warning(L"The library breaks its contract with the add-in: " + shownText(contract.broken.front()) + L".",
                       L"Tell the tool's maker; velkcheck has the whole report.", contract.broken);
    return good(L"It keeps the " + numberText(static_cast<int32_t>(contract.rulesKept)) +
                L" rules that can be looked at without a project.");
}

} // namespace velk::doctor
