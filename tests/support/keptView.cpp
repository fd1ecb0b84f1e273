#include "support/keptView.h"

#include "base/registry.h"

namespace velk::test {
namespace {

using Values = std::vector<std::pair<std::wstring, std::wstring>>;

constexpr size_t mostValues = 100;
constexpr size_t longestText = 32'000; // characters

std::wstring projectsKey()
{
    return std::wstring(keptViewKey) + L"\\Projects";
}

Values valuesOf(const std::wstring& path)
{
    Values values;
    for (const std::wstring& name : registry::valueNames(HKEY_CURRENT_USER, path, mostValues))
        values.emplace_back(name, registry::textAt(HKEY_CURRENT_USER, path, name, longestText).value_or(L""));
    return values;
}

void setValues(const std::wstring& path, const Values& values)
{
    if (values.empty())
        return;
    const unique_key key = registry::createKey(HKEY_CURRENT_USER, path);
    for (const auto& [name, text] : values)
        registry::setText(key.get(), name, text);
}

} // namespace

void forgetKeptView() noexcept
{
    // The registry removes only keys without keys below them.
    RegDeleteKeyW(HKEY_CURRENT_USER, projectsKey().c_str());
    RegDeleteKeyW(HKEY_CURRENT_USER, keptViewKey);
}

LeftView leftView()
{
    return {valuesOf(keptViewKey), valuesOf(projectsKey())};
}

void leaveView(const LeftView& left)
{
    forgetKeptView();
    setValues(keptViewKey, left.values);
    setValues(projectsKey(), left.projects);
}

} // namespace velk::test
