#pragma once

#include "addin/IdeWindow.h"
#include "addin/RZCommandBars.h"
#include "base/session.h"
#include "com/com_object.h"
#include "model/IntegrationMgr.h"
#include "model/ModelUtilVI.h"
#include "notify/notificationThreadFrm.h"

#include <memory>
#include <string>
#include <typelib/velkviadd.h>

namespace velk {

// Ties the add-in together inside Visual InterDev: Connect drives its start and end, and as IntegrationMgr it answers
// what the rest of the add-in asks of the IDE. Requests about the project model are handed on to the model.
class IMgrVI : public ComObject<IMgrVI, dual<_IMgrVI>, dual<_IntegrationMgr>> {
public:
    ~IMgrVI() override;
    // _IMgrVI
    STDMETHODIMP setupIM(IDispatch* myApp, IDispatch* myaddin) noexcept override;
    STDMETHODIMP openRZCommunication() noexcept override;
    STDMETHODIMP closeRZCommunication() noexcept override;
    STDMETHODIMP createRZUI() noexcept override;
    STDMETHODIMP deleteRZUI() noexcept override;
    STDMETHODIMP get_VIInstance(IDispatch** instance) noexcept override;
    STDMETHODIMP get_VBAddin(IDispatch** addin) noexcept override;
    // _IntegrationMgr
    STDMETHODIMP showDevView() noexcept override;
    STDMETHODIMP setRZFileName(BSTR* rzFile) noexcept override;
    STDMETHODIMP getRZFileName(BSTR* rzFile) noexcept override;
    STDMETHODIMP openRZProject() noexcept override;
    STDMETHODIMP getProjList(SAFEARRAY** projList) noexcept override;
    STDMETHODIMP getDataEnvList(SAFEARRAY** dataEnvList, BSTR* projName) noexcept override;
    STDMETHODIMP getConnectionList(SAFEARRAY** conList, BSTR* dataenvName, BSTR* projName) noexcept override;
    STDMETHODIMP get_getModel(_ModelUtil** model) noexcept override;
    STDMETHODIMP get_getIdeType(long* ideType) noexcept override;
    STDMETHODIMP minimizeVSAppWin() noexcept override;
    STDMETHODIMP restoreVSAppWinState() noexcept override;

    // The same in C++, for Connect, which drives the start and the end and tells the user why a start failed: they
    // throw. The session is the one that everything belongs to; a manager that stands alone has one of its own. Where
    // it ends inside a call, the verb stops with Error 5 and leaves what there is to close and removeUserInterface.
    void workIn(Session session) { m_session = std::move(session); }
    void setUp(IDispatch* app, IDispatch* addin);
    // A communication that fails to open leaves nothing that was not there before. The tool has one session in a
    // process: error 70 while another manager has it.
    void open();
    void beginEnd() noexcept; // of whatever session it works in
    void close();
    void buildUserInterface();
    void removeUserInterface() noexcept;

private:
    void openSession();
    void throwIfOthersSession() const;
    void handDocumentOver();
    void undoOpen(const Error& failure, bool madeWindow) noexcept;
    std::wstring solutionFullName();
    com_ptr<IDispatch> ensureToolWindow();
    void makeToolWindow();
    void removeToolWindow();
    void buildEntries();
    void announce(int32_t text);

    com_ptr<IDispatch> m_instance;
    com_ptr<IDispatch> m_addin;
    IdeWindow m_mainWindow;
    com_ptr<ModelUtilVI> m_model;
    std::shared_ptr<notificationThreadFrm> m_pump;
    std::shared_ptr<RZCommandBars> m_bars; // shared with the step that is under way
    std::wstring m_rzFileName;
    int32_t m_ideType = 0;
    Session m_session;
    bool m_isOpen = false;         // the tool has a session of ours
    bool m_hasWindows = false;     // there is something of ours on the screen, or was about to be
    bool m_isMakingWindow = false; // the IDE is making the tool window
    bool m_isBuilding = false;     // the entries are being built
    bool m_wasShown = false;       // a project was shown since the building began
};

} // namespace velk
