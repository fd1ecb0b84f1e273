#pragma once

#include "com/com_object.h"

#include <typelib/velkviadd.h>

namespace velk {

// The class "IntegrationMgr" as it can be created: the interface alone, each operation without effect and with the
// empty value of its result.
class EmptyIntegrationMgr : public ComObject<EmptyIntegrationMgr, dual<_IntegrationMgr>> {
public:
    STDMETHODIMP showDevView() noexcept override { return S_OK; }
    STDMETHODIMP setRZFileName(BSTR*) noexcept override { return S_OK; }
    STDMETHODIMP getRZFileName(BSTR* rzFile) noexcept override { return emptied(rzFile); }
    STDMETHODIMP openRZProject() noexcept override { return S_OK; }
    STDMETHODIMP getProjList(SAFEARRAY**) noexcept override { return S_OK; }
    STDMETHODIMP getDataEnvList(SAFEARRAY**, BSTR*) noexcept override { return S_OK; }
    STDMETHODIMP getConnectionList(SAFEARRAY**, BSTR*, BSTR*) noexcept override { return S_OK; }
    STDMETHODIMP get_getModel(_ModelUtil** model) noexcept override { return emptied(model); }
    STDMETHODIMP get_getIdeType(long* ideType) noexcept override { return emptied(ideType); }
    STDMETHODIMP minimizeVSAppWin() noexcept override { return S_OK; }
    STDMETHODIMP restoreVSAppWinState() noexcept override { return S_OK; }

private:
    template <class T>
    static HRESULT emptied(T* out) noexcept
    {
        if (!out)
            return E_POINTER;
        *out = T();
        return S_OK;
    }
};

} // namespace velk
