#include "serverview/viewStore.h"

#include "base/paths.h"
#include "base/registry.h"
#include "serverview/viewMemory.h"

#include <product.h>

namespace velk::viewStore {
namespace {

constexpr wchar_t viewKey[] = L"Software\\Velk\\" VELK_PRODUCT_NAME "\\View";
constexpr wchar_t projectsKey[] = L"Software\\Velk\\" VELK_PRODUCT_NAME "\\View\\Projects";
constexpr size_t longestPath = 1024; // as far as the tool tells one
// Somebody else may have put there what he likes: no more of it is looked at in one go.
constexpr size_t mostLookedAt = 1000;

std::wstring read(const wchar_t* key, const std::wstring& name)
{
    return registry::textAt(HKEY_CURRENT_USER, key, name, longestKeptText).value_or(std::wstring());
}

void write(const wchar_t* key, const std::wstring& name, const std::wstring& text)
{
    if (text.empty())
        registry::removeValue(HKEY_CURRENT_USER, key, name);
    else
        registry::setText(registry::createKey(HKEY_CURRENT_USER, key).get(), name, text);
}

KnownProject known(const std::wstring& name)
{
    const std::optional<ProjectView> view = projectViewOf(project(name));
    return {name, view ? view->lastUsed : 0};
}

void removeSurplus(const std::wstring& inUse)
{
    std::vector<std::wstring> names = registry::valueNames(HKEY_CURRENT_USER, projectsKey, mostLookedAt);
    if (names.size() <= mostProjects)
        return;
    std::vector<KnownProject> projects;
    for (const std::wstring& name : names)
        projects.push_back(known(name));
    for (const std::wstring& surplus : surplusProjects(std::move(projects), inUse))
        registry::removeValue(HKEY_CURRENT_USER, projectsKey, surplus);
}

} // namespace

std::wstring value(const std::wstring& name)
{
    return read(viewKey, name);
}

void setValue(const std::wstring& name, const std::wstring& text)
{
    write(viewKey, name, text);
}

std::wstring projectName(const std::wstring& path)
{
    // What is not told in full would be found from wherever the host happens to be.
    if (!isFullyQualified(path) || path.size() > longestPath || path.find(L'\0') != std::wstring::npos)
        return {};
    std::wstring name(longestPath + 1, L'\0');
    const DWORD length = GetFullPathNameW(path.c_str(), static_cast<DWORD>(name.size()), name.data(), nullptr);
    if (length == 0 || length >= name.size())
        return {};
    name.resize(length);
    CharLowerBuffW(name.data(), length);
    return name;
}

std::wstring project(const std::wstring& name)
{
    return read(projectsKey, name);
}

void setProject(const std::wstring& name, const std::wstring& text)
{
    write(projectsKey, name, text);
    removeSurplus(name);
}

} // namespace velk::viewStore
