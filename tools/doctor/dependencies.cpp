// Tested in tests/tools/doctor/machine/backendTest.cpp.
#include "dependencies.h"

#include "backend/library_search.h"
#include "base/paths.h"
#include "base/text.h"
#include "files.h"
#include "judgements.h"

#include <optional>
#include <set>

namespace velk::doctor {
namespace {

constexpr size_t mostLibraries = 500;

class Walk {
public:
    explicit Walk(const std::wstring& folder) : m_folders(libraryFolders(folder, {})) {}

    // Of a library that could be read.
    void from(const FileFacts& library)
    {
        for (const std::string& ansi : library.header->libraries) {
            const std::wstring name = toWide(ansi);
            if (isOfTheSystemItself(name) || m_seen.size() >= mostLibraries || !m_seen.insert(lower(name)).second)
                continue;
            const auto path = find(name);
            if (!path) {
                missing.push_back({name, fileNameOf(library.path), {}});
                continue;
            }
            // The system's own are right, and need each other only.
            if (isSameText(parentDir(*path), systemFolder()))
                continue;
            const FileFacts file = readProgram(*path);
            if (file.is32BitLibrary())
                from(file);
            else
                missing.push_back({name, fileNameOf(library.path), file});
        }
    }

    std::vector<Dependency> missing;

private:
    static std::wstring lower(std::wstring text)
    {
        CharLowerBuffW(text.data(), static_cast<DWORD>(text.size()));
        return text;
    }
    // Names that stand for no file.
    static bool isOfTheSystemItself(const std::wstring& name)
    {
        const std::wstring plain = lower(name);
        return plain.starts_with(L"api-ms-") || plain.starts_with(L"ext-ms-");
    }
    std::optional<std::wstring> find(const std::wstring& name) const
    {
        for (const std::wstring& folder : m_folders)
            if (auto path = inFolder(folder, name))
                return path;
        return std::nullopt;
    }

    std::vector<std::wstring> m_folders;
    std::set<std::wstring> m_seen;
};

} // namespace

std::vector<Dependency> missingDependencies(const FileFacts& library)
{
    Walk walk(parentDir(library.path));
    if (library.header)
        walk.from(library);
    return walk.missing;
}

} // namespace velk::doctor
