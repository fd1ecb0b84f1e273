// Tested in tests/forms/serverview/detailsListFilterTest.cpp.
#include "serverview/ListFilter.h"

#include "base/boundary.h"

namespace velk {

void ListFilter::showColumns(int32_t folderKind, const std::vector<std::wstring>& headers)
{
    m_headers = headers;
    if (folderKind != m_folderKind)
        m_text.clear();
    m_folderKind = folderKind;
}

void ListFilter::tell() const noexcept
{
    if (m_listener)
        swallow(L"list filter", L"the list shows what it shows; the strip tells it with the next change", m_listener);
}

} // namespace velk
