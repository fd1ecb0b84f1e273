#pragma once

#include "addin/IMgrVI.h"
#include "base/session.h"
#include "com/com_object.h"
#include "com/event_sink.h"

#include <optional>
#include <string>

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
    ~Connect() override; // a host that lets go without a word gets the same end
    // _Connect
    STDMETHODIMP AddToAddInCommandBar(BSTR* sCaption, CommandBarControl** control) noexcept override;
    // _IDTExtensibility2
    STDMETHODIMP OnConnection(IDispatch* Application, ext_ConnectMode ConnectMode, IDispatch* AddInInst,
                              SAFEARRAY** custom) noexcept override;
    STDMETHODIMP OnDisconnection(ext_DisconnectMode RemoveMode, SAFEARRAY** custom) noexcept override;
    STDMETHODIMP OnAddInsUpdate(SAFEARRAY** custom) noexcept override;
    STDMETHODIMP OnStartupComplete(SAFEARRAY** custom) noexcept override;
    STDMETHODIMP OnBeginShutdown(SAFEARRAY** custom) noexcept override;

private:
    class UnderWay;

    void AddinInstance_OnConnection(IDispatch* application, IDispatch* addinInstance);
    void AddinInstance_OnDisconnection() noexcept;
    void takeDown() noexcept;
    void buildEntry();
    void listen();
    void MenuHandler_Click();
    std::optional<std::wstring> start();
    bool mayStart();
    void endStart(SessionState state) noexcept;
    com_ptr<IDispatch> addEntry(std::wstring_view caption);
    void fillEntry(const com_ptr<IDispatch>& entry, std::wstring_view caption);

    Session m_session;
    int m_underWay = 0;         // connections and starts that are on the stack
    bool m_isLeaving = false;   // disconnected, and not taken down yet
    bool m_isListening = false; // to the entry's clicks
    com_ptr<IDispatch> m_ide;
    com_ptr<IDispatch> m_addin;
    com_ptr<IMgrVI> m_IMgr;
    com_ptr<IDispatch> m_menuEntry;
    event_connection MenuHandler;
};

} // namespace velk
