#include "addin/rzFileName.h"

#include "base/paths.h"

namespace velk {
namespace {

constexpr std::wstring_view noSolutionBaseName = L"project1";

struct ProjectPlace {
    std::wstring directory;
    std::wstring baseName;
};

ProjectPlace placeOfSolution(std::wstring_view fullName)
{
    const std::wstring name = fileNameOf(fullName);
    if (name == fullName)
        return {}; // stands in no folder
    ProjectPlace place{parentDir(fullName), {}};
    // A name of a single character counts as none: the tool has always stored those projects under an empty name.
    if (name.size() > 1)
        place.baseName = name.substr(0, name.rfind(L'.'));
    return place;
}

ProjectPlace placeOfInstallation(std::wstring_view folder)
{
    if (folder.ends_with(L'\\'))
        folder.remove_suffix(1);
    return {std::wstring(folder), std::wstring(noSolutionBaseName)};
}

} // namespace

std::wstring defaultRZFileName(std::wstring_view solutionFullName, std::wstring_view installationFolder)
{
    const ProjectPlace place =
        solutionFullName.empty() ? placeOfInstallation(installationFolder) : placeOfSolution(solutionFullName);
    return place.directory + L"\\rz\\" + place.baseName + L".rzv";
}

} // namespace velk
