#include "model/ModelUtilVI.h"

#include "com/automation.h"
#include "com/com_boundary.h"
#include "com/host_report.h"
#include "window/send_keys.h"

namespace velk {
namespace {

constexpr int32_t statusWindowType = 5;
// The tool's code for the development language of this IDE.
constexpr wchar_t developmentLanguage[] = L"3";

} // namespace

HRESULT ModelUtilVI::putref_VIInstance(IDispatch* instance) noexcept
{
    return atBoundary(L"ModelUtilVI.VIInstance", [&] {
        m_instance = instance;
        findStatusWindow();
    });
}

void ModelUtilVI::findStatusWindow()
{
    m_statusWindow.reset();
    if (!m_instance)
        return;
    const com_ptr<IDispatch> windows = automation::getObject(m_instance, L"Windows");
    reportHost(HostObject::Windows, windows.get());
    const int32_t count = automation::get(windows, L"Count").asLong();
    for (int32_t index = 1; index <= count && !m_statusWindow; ++index) {
        const com_ptr<IDispatch> window = automation::getObject(windows, L"Item", {variant(index)});
        reportHost(HostObject::Window, window.get());
        if (automation::get(window, L"Type").asLong() == statusWindowType)
            m_statusWindow = window;
    }
}

HRESULT ModelUtilVI::get_VIInstance(IDispatch** instance) noexcept
{
    if (!instance)
        return E_POINTER;
    m_instance.copyTo(instance);
    return S_OK;
}

HRESULT ModelUtilVI::ModelUtil_saveRZFileName(BSTR fileName) noexcept
{
    return saveRZFileName(fileName);
}

HRESULT ModelUtilVI::printToFocusedWindow(BSTR* strText, VARIANT_BOOL* toStatusWin) noexcept
{
    return atBoundary(L"ModelUtilVI.printToFocusedWindow", [&] {
        if (!strText || !toStatusWin)
            throw Error(errorInvalidCall);
        const bool toStatus = *toStatusWin != VARIANT_FALSE;
        const com_ptr<IDispatch> window = m_statusWindow; // kept, whatever the IDE does meanwhile
        if (toStatus && !window)
            return;
        if (toStatus) {
            automation::put(window, L"Visible", variant(true));
            // Hosts of this family know the one or the other.
            automation::call(window, automation::hasMember(window.get(), L"SetFocus") ? L"SetFocus" : L"Activate");
        }
        sendKeys(std::wstring(bstr::viewOf(*strText)), toStatus);
    });
}

HRESULT ModelUtilVI::GetDevLanguage(BSTR* language) noexcept
{
    return atBoundary(L"ModelUtilVI.GetDevLanguage", [&] {
        if (!language)
            throw Error(errorInvalidCall);
        *language = bstr(developmentLanguage).detach();
    });
}

HRESULT ModelUtilVI::saveRZFileName(BSTR) noexcept
{
    // The IDE's project has no property for the tool's project file: the name is taken and dropped.
    return S_OK;
}

} // namespace velk
