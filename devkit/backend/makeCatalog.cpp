#include "devkit/backend/catalog.h"

#include <cwctype>

namespace velk::devkit {

std::unique_ptr<Catalog> makeCatalog(const std::wstring& connectionString)
{
    std::wstring lower = connectionString;
    for (wchar_t& letter : lower)
        letter = static_cast<wchar_t>(std::towlower(letter));
    return lower.find(L"driver=postgresql") != std::wstring::npos ||
                   lower.find(L"driver={postgresql") != std::wstring::npos
               ? makePostgresCatalog()
               : makeSqliteCatalog();
}

} // namespace velk::devkit
