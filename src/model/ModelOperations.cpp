#include "model/ModelUtilVI.h"

namespace velk {
namespace {

HRESULT emptyText(BSTR* text) noexcept
{
    if (!text)
        return E_POINTER;
    *text = nullptr;
    return S_OK;
}

} // namespace

HRESULT ModelOperations::insertClientCode(BSTR*, BSTR*, BSTR*) noexcept
{
    return S_OK;
}

HRESULT ModelOperations::insertSQLCode(BSTR*, long*, long*, long*, long*, BSTR*, BSTR*) noexcept
{
    return S_OK;
}

HRESULT ModelOperations::addADOConnection(BSTR*, BSTR*, BSTR*, BSTR*) noexcept
{
    return S_OK;
}

HRESULT ModelOperations::AddADOCommand(long*, BSTR*, BSTR*, BSTR*, BSTR*, BSTR*) noexcept
{
    return S_OK;
}

HRESULT ModelOperations::existsDataEnvObjs(VARIANT_BOOL* exist) noexcept
{
    if (!exist)
        return E_POINTER;
    *exist = VARIANT_FALSE;
    return S_OK;
}

HRESULT ModelOperations::getProjList(SAFEARRAY**) noexcept
{
    return S_OK;
}

HRESULT ModelOperations::getDataEnvList(SAFEARRAY**, BSTR*) noexcept
{
    return S_OK;
}

HRESULT ModelOperations::getConnectionList(SAFEARRAY**, BSTR*, BSTR*) noexcept
{
    return S_OK;
}

HRESULT ModelOperations::getActiveProjName(BSTR* name) noexcept
{
    return emptyText(name);
}

HRESULT ModelOperations::getSelectedcompName(BSTR* name) noexcept
{
    return emptyText(name);
}

HRESULT ModelOperations::GetDevLanguage(BSTR* language) noexcept
{
    return emptyText(language);
}

HRESULT ModelOperations::saveRZFileName(BSTR) noexcept
{
    return S_OK;
}

} // namespace velk
