#include "addin/rzFileName.h"

namespace velk {
namespace {

constexpr std::wstring_view noSolutionBaseName = L"project1";

struct Place {
    std::wstring_view directory;
    std::wstring_view baseName;
};

Place placeOfSolution(std::wstring_view fullName)
{
    const size_t backslash = fullName.rfind(L'\\');
    if (backslash == std::wstring_view::npos)
        return {};
    Place place{fullName.substr(0, backslash), {}};
    // A name of a single character counts as none: the tool has always stored those projects under an empty name.
    const std::wstring_view name = fullName.substr(backslash + 1);
    if (name.size() > 1)
        place.baseName = name.substr(0, name.rfind(L'.'));
    return place;
}

Place placeOfInstallation(std::wstring_view folder)
{
    if (folder.ends_with(L'\\'))
        folder.remove_suffix(1);
    return {folder, noSolutionBaseName};
}

} // namespace

std::wstring defaultRZFileName(std::wstring_view solutionFullName, std::wstring_view installationFolder)
{
    const Place place =
        solutionFullName.empty() ? placeOfInstallation(installationFolder) : placeOfSolution(solutionFullName);
    std::wstring name(place.directory);
    name.append(L"\\rz\\").append(place.baseName).append(L".rzv");
    return name;
}

} // namespace velk
