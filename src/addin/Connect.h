#pragma once

#include "addin/IMgrVI.h"
#include "platform/com_object.h"
#include "platform/event_sink.h"

#include <typelib/extensibility.h>
#include <typelib/velkviadd.h>

namespace velk {

template <>
struct described_in<_IDTExtensibility2> {
    static constexpr TypeLibrary library = TypeLibrary::host;
};

// The add-in's entry object: the IDE makes it when it loads the add-in. On connection it fixes the UI font, makes the
// integration manager and puts one entry on a command bar; the work starts with the entry's first click. On
// disconnection it takes everything down again, whatever of it was ever built.
class Connect : public ComObject<Connect, dual<_Connect>, dual<_IDTExtensibility2>> {
public:
    // _Connect
    STDMETHODIMP AddToAddInCommandBar(BSTR* sCaption, CommandBarControl* control) noexcept override;
    // _IDTExtensibility2
    STDMETHODIMP OnConnection(IDispatch* Application, ext_ConnectMode ConnectMode, IDispatch* AddInInst,
                              SAFEARRAY** custom) noexcept override;
    STDMETHODIMP OnDisconnection(ext_DisconnectMode RemoveMode, SAFEARRAY** custom) noexcept override;
    STDMETHODIMP OnAddInsUpdate(SAFEARRAY** custom) noexcept override;
    STDMETHODIMP OnStartupComplete(SAFEARRAY** custom) noexcept override;
    STDMETHODIMP OnBeginShutdown(SAFEARRAY** custom) noexcept override;

private:
    void AddinInstance_OnConnection(IDispatch* application, IDispatch* addinInstance);
    void AddinInstance_OnDisconnection() noexcept;
    void MenuHandler_Click();
    void start();
    bool mayStart();
    com_ptr<IDispatch> addEntry(std::wstring_view caption);

    com_ptr<IDispatch> m_ide;
    com_ptr<IDispatch> m_addin;
    com_ptr<IMgrVI> m_manager;
    com_ptr<IDispatch> m_menuEntry;
    event_connection MenuHandler;
    bool m_started = false;
};

} // namespace velk
