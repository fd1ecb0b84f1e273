// What the rest of the add-in asks of the IDE through the integration manager.
// Tested in tests/unit/addin/IMgrVITest.cpp.

#include "addin/IMgrVI.h"
#include "com/automation.h"
#include "com/com_boundary.h"

namespace velk {
namespace {

// The model is asked by reference with the caller's own list and texts, so the call is passed on as it came.
HRESULT passOn(const com_ptr<ModelUtilVI>& model, const wchar_t* where, auto&& request) noexcept
{
    return atBoundary(where, [&] {
        if (!model)
            throw Error(errorObjectNotSet);
        throwIfFailed(request(*model.get()));
    });
}

} // namespace

HRESULT IMgrVI::showDevView() noexcept
{
    return atBoundary(L"IMgrVI.showDevView", [this] {
        m_wasShown = true;
        const com_ptr<IDispatch> window = ensureToolWindow();
        m_session.throwIfOver();
        if (!window)
            return; // the IDE is just making it, and shows it then
        automation::put(window, L"Visible", variant(true));
        m_session.throwIfOver();
        if (const std::shared_ptr<RZCommandBars> bars = m_bars)
            bars->showViews();
    });
}

HRESULT IMgrVI::setRZFileName(BSTR* rzFile) noexcept
{
    return atBoundary(L"IMgrVI.setRZFileName", [&] {
        if (!rzFile)
            throw Error(errorInvalidCall);
        m_rzFileName = bstr::viewOf(*rzFile);
    });
}

HRESULT IMgrVI::getRZFileName(BSTR* rzFile) noexcept
{
    return atBoundary(L"IMgrVI.getRZFileName", [&] {
        if (!rzFile)
            throw Error(errorInvalidCall);
        *rzFile = bstr(m_rzFileName).detach();
    });
}

HRESULT IMgrVI::getProjList(SAFEARRAY** projList) noexcept
{
    return passOn(m_model, L"IMgrVI.getProjList", [&](ModelUtilVI& model) { return model.getProjList(projList); });
}

HRESULT IMgrVI::getDataEnvList(SAFEARRAY** dataEnvList, BSTR* projName) noexcept
{
    return passOn(m_model, L"IMgrVI.getDataEnvList",
                  [&](ModelUtilVI& model) { return model.getDataEnvList(dataEnvList, projName); });
}

HRESULT IMgrVI::getConnectionList(SAFEARRAY** conList, BSTR* dataenvName, BSTR* projName) noexcept
{
    return passOn(m_model, L"IMgrVI.getConnectionList",
                  [&](ModelUtilVI& model) { return model.getConnectionList(conList, dataenvName, projName); });
}

HRESULT IMgrVI::get_getModel(_ModelUtil** model) noexcept
{
    if (!model)
        return E_POINTER;
    com_ptr<_ModelUtil>(m_model.get()).copyTo(model);
    return S_OK;
}

HRESULT IMgrVI::get_getIdeType(long* ideType) noexcept
{
    if (!ideType)
        return E_POINTER;
    *ideType = m_ideType;
    return S_OK;
}

HRESULT IMgrVI::minimizeVSAppWin() noexcept
{
    return atBoundary(L"IMgrVI.minimizeVSAppWin", [this] { m_mainWindow.minimize(); });
}

HRESULT IMgrVI::restoreVSAppWinState() noexcept
{
    return atBoundary(L"IMgrVI.restoreVSAppWinState", [this] { m_mainWindow.restore(); });
}

} // namespace velk
