// Level 1: what the file says of itself, and whether it can be loaded and called at all.
#include "checker/bench.h"
#include "checker/checks.h"
#include "checker/files.h"
#include "checker/peFile.h"
#include "checker/texts.h"

#include <algorithm>

namespace velk::check {
namespace {

const CallText theFile{"(the file)", ""};

PeFile fileOf(Bench& bench)
{
    std::string reason;
    const auto bytes = readFile(bench.asked().library);
    const auto file = bytes ? readPe(*bytes, reason) : std::nullopt;
    if (!file)
        throw NotChecked{"the file is no library (see F1)"};
    return *file;
}

// "_RZTerminate@0", "RZTerminate@0", "rzterminate": the name without what a compiler or a habit adds.
std::string plainName(std::string name)
{
    if (!name.empty() && (name.front() == '_' || name.front() == '@'))
        name.erase(0, 1);
    name.erase(std::min(name.find('@'), name.size()));
    std::transform(name.begin(), name.end(), name.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + 32) : letter;
    });
    return name;
}

// An export that is meant to be the function but has another name; null without one.
const PeExport* decorated(const PeFile& file, const char* name)
{
    const auto found = std::find_if(file.exports.begin(), file.exports.end(), [&](const PeExport& one) {
        return one.name != name && plainName(one.name) == plainName(name);
    });
    return found == file.exports.end() ? nullptr : &*found;
}

template <class Function>
void eachCalled(Function function)
{
    for (size_t index = 0; index < functionCount; ++index)
        if (rowOf(static_cast<Fn>(index)).isCalled)
            function(rowOf(static_cast<Fn>(index)).name);
}

} // namespace

void checkFile(Bench& bench)
{
    std::string reason;
    const auto bytes = readFile(bench.asked().library);
    if (!bytes)
        return bench.probe.found(Rule::F1, theFile, "a file that can be read", "it cannot be read");
    const auto file = readPe(*bytes, reason);
    if (!file)
        return bench.probe.found(Rule::F1, theFile, "a DLL for 32-bit x86", reason);
    if (!file->is32BitX86())
        bench.probe.found(Rule::F1, theFile, "a DLL for 32-bit x86 (machine 0x014C)",
                          std::string(file->isWide ? "64 bits" : "32 bits") + ", machine " +
                              hexadecimal(file->machine));
    if (!file->isLibrary)
        bench.probe.found(Rule::F1, theFile, "a DLL", "a program");
}

void checkExports(Bench& bench)
{
    const PeFile file = fileOf(bench);
    eachCalled([&](const char* name) {
        const PeExport* const one = file.find(name);
        if (!one && !decorated(file, name))
            bench.probe.found(Rule::F3, theFile, std::string(name) + " is exported", "it is not");
        if (one && !one->isForwarded && !one->isCode)
            bench.probe.found(Rule::F3, theFile, std::string(name) + " is a function", "no code stands there");
    });
}

void checkPlainNames(Bench& bench)
{
    const PeFile file = fileOf(bench);
    eachCalled([&](const char* name) {
        const PeExport* const other = decorated(file, name);
        if (other && !file.find(name))
            bench.probe.found(Rule::F4, theFile, std::string(name) + " under its plain name",
                              "it is exported as " + shown(other->name));
    });
}

void checkLoading(Bench& bench)
{
    if (bench.probe.hasFound(Rule::F1))
        throw NotChecked{"the file is no library (see F1)"};
    const std::wstring folder = currentFolder();
    const std::wstring folders[] = {folder, L"C:\\", folderOf(bench.asked().library)};
    for (const std::wstring& one : folders) {
        SetCurrentDirectoryW(one.c_str());
        std::string reason;
        if (!bench.library.load(reason))
            bench.probe.found(Rule::F2, "it loads", reason);
        else if (!bench.library.unload())
            bench.probe.found(Rule::F2, "it unloads, with the current directory " + toUtf8(one), "it does not");
    }
    SetCurrentDirectoryW(folder.c_str());
}

void checkCallsWithoutProject(Bench& bench)
{
    bench.load();
    constexpr int32_t anyText = 200;
    constexpr int32_t textOfOne = 675;
    constexpr int32_t textOfTwo = 683;
    bench.calls.initialize(bench.anyProjectFile());
    bench.calls.text(anyText);
    bench.calls.text(textOfOne, "one");
    bench.calls.text(textOfTwo, "one", "two");
    bench.calls.next();
    bench.calls.terminate();
}

} // namespace velk::check
