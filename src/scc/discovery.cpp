// What the registry tells about SourceSafe. The ANSI functions, because SourceSafe writes its entries so.

#include "base/registry.h"
#include "scc/VSSAPI.h"

namespace velk {
namespace {

constexpr wchar_t sourceSafeKey[] = L"Software\\Microsoft\\SourceSafe";
constexpr wchar_t databasesKey[] = L"Software\\Microsoft\\SourceSafe\\Databases";
constexpr wchar_t serverPathValue[] = L"SCCServerPath";
constexpr wchar_t notFound[] = L"Not Found";

} // namespace

bool isSourceSafeInstalled() noexcept
{
    return registry::hasAnsiValue(HKEY_LOCAL_MACHINE, sourceSafeKey, serverPathValue);
}

std::array<std::wstring, 2> getRegValueByIndex(HKEY root, const std::wstring& subKey, uint32_t index)
{
    const auto value = registry::ansiValueAt(root, subKey, index);
    return value ? std::array{value->first, value->second} : std::array<std::wstring, 2>{L"", notFound};
}

bool getSourceSafeDatabases(DatabaseTable& table)
{
    table.clear();
    for (uint32_t index = 0;; ++index) {
        const auto [name, folder] = getRegValueByIndex(HKEY_LOCAL_MACHINE, databasesKey, index);
        if (folder == notFound)
            return !table.empty();
        table.push_back({name, folder});
    }
}

} // namespace velk
