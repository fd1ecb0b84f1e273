#include "addin/Connect.h"

#include "addin/commandBarEntry.h"
#include "addin/startFailure.h"
#include "addin/traceSettings.h"
#include "backend/texts.h"
#include "base/text.h"
#include "base/unique_any.h"
#include "com/automation.h"
#include "com/com_boundary.h"
#include "com/host_report.h"
#include "ui/messageBox.h"
#include "ui/uiFont.h"

#include <product.h>

namespace velk {
namespace {

constexpr int32_t fontNameText = 100;
constexpr int32_t fontSizeText = 101;
constexpr int32_t defaultFontSize = 9; // points
constexpr int32_t entryCaptionText = 200;
constexpr int32_t noProjectText = 669;

constexpr int16_t entryBarIndex = 13;
constexpr int entryFace = 100;
// The IDE raises no click for a control without an action text; what the text says does not matter to anybody.
constexpr wchar_t entryAction[] = VELK_OWN_NAME("Connect");

void setUiFont()
{
    uiFont().name = getRZString(fontNameText);
    const std::wstring size = getRZString(fontSizeText);
    uiFont().size = size.empty() ? defaultFontSize : roundToLong(leadingNumber(size));
    uiFont().charset = fontCharset(uiFont().name);
}

} // namespace

// A connection or a start that is on the stack. The host can disconnect the add-in inside any of its calls; what is
// half built then can only be taken down when that call has come back, so the end waits for this one's.
class Connect::UnderWay {
public:
    explicit UnderWay(Connect& connect) : m_connect(connect), m_untilDone(connect.identity()) { ++connect.m_underWay; }
    UnderWay(const UnderWay&) = delete;
    UnderWay& operator=(const UnderWay&) = delete;
    ~UnderWay()
    {
        if (--m_connect.m_underWay == 0 && m_connect.m_isLeaving)
            m_connect.takeDown();
    }

private:
    Connect& m_connect;
    const com_ptr<IUnknown> m_untilDone;
};

Connect::~Connect()
{
    AddinInstance_OnDisconnection();
}

HRESULT Connect::OnConnection(IDispatch* Application, ext_ConnectMode, IDispatch* AddInInst, SAFEARRAY**) noexcept
{
    if (m_isLeaving)
        return E_UNEXPECTED; // its own end is still on the stack
    if (m_IMgr || m_underWay != 0)
        return S_OK; // connected already: some hosts say so twice
    beginTrace();
    // An add-in that fails here would be thrown out; with a part of it built it can at least be unloaded cleanly.
    swallow(L"Connect.OnConnection", L"the add-in stays loaded with what was set up",
            [&] { AddinInstance_OnConnection(Application, AddInInst); });
    return S_OK;
}

HRESULT Connect::OnDisconnection(ext_DisconnectMode, SAFEARRAY**) noexcept
{
    const com_ptr<IUnknown> untilDone(identity());
    AddinInstance_OnDisconnection();
    return S_OK;
}

HRESULT Connect::OnAddInsUpdate(SAFEARRAY**) noexcept
{
    return S_OK;
}

HRESULT Connect::OnStartupComplete(SAFEARRAY**) noexcept
{
    // The bar of the entry, or what tells of its clicks, may not be there yet when the IDE connects its add-ins.
    if (!m_IMgr || m_isListening || m_underWay != 0 || m_isLeaving)
        return S_OK;
    swallow(L"Connect.OnStartupComplete", L"the add-in stays loaded without its entry", [this] {
        const UnderWay underWay(*this);
        buildEntry();
    });
    return S_OK;
}

HRESULT Connect::OnBeginShutdown(SAFEARRAY**) noexcept
{
    return S_OK;
}

void Connect::AddinInstance_OnConnection(IDispatch* application, IDispatch* addinInstance)
{
    m_session = Session();
    const UnderWay underWay(*this);
    m_ide = application;
    m_addin = addinInstance;
    reportHost(HostObject::DTE, m_ide.get());
    setUiFont();
    m_session.throwIfOver();
    m_IMgr = makeObject<IMgrVI>();
    m_IMgr->workIn(m_session);
    swallow(L"Connect.OnConnection", L"setupIM keeps what it could set up",
            [&] { m_IMgr->setUp(application, addinInstance); });
    m_session.throwIfOver();
    buildEntry();
}

void Connect::buildEntry()
{
    if (!m_menuEntry) {
        const std::wstring caption = getRZString(entryCaptionText);
        m_session.throwIfOver();
        m_menuEntry = addEntry(caption);
        m_session.throwIfOver();
    }
    if (m_menuEntry) // else an IDE without that bar: nothing to click
        listen();
}

void Connect::listen()
{
    const com_ptr<IDispatch> events = automation::getObject(m_ide, L"Events");
    reportHost(HostObject::Events, events.get());
    m_session.throwIfOver();
    const com_ptr<IDispatch> source = automation::getObject(events, L"CommandBarEvents", {variant(m_menuEntry)});
    m_session.throwIfOver();
    MenuHandler.connect(source, clickEvent, [this](const click_event& click) {
        if (!click.isHandled)
            MenuHandler_Click();
    });
    m_isListening = true;
}

HRESULT Connect::AddToAddInCommandBar(BSTR* sCaption, CommandBarControl** control) noexcept
{
    return atBoundary(L"Connect.AddToAddInCommandBar", [&] {
        if (!sCaption || !control)
            throw Error(errorInvalidCall);
        // The interface has no members of its own: it is the control's automation interface by another name.
        *control = static_cast<CommandBarControl*>(addEntry(bstr::viewOf(*sCaption)).detach());
    });
}

com_ptr<IDispatch> Connect::addEntry(std::wstring_view caption)
{
    com_ptr<IDispatch> entry;
    swallow(L"Connect.AddToAddInCommandBar", L"the entry serves as far as it was built", [&] {
        const com_ptr<IDispatch> bars = automation::getObject(m_ide, L"CommandBars");
        reportHost(HostObject::CommandBars, bars.get());
        reportBars(bars.get(), entryBarIndex);
        const com_ptr<IDispatch> bar = automation::getObject(bars, L"Item", {variant(entryBarIndex)});
        if (!bar)
            return;
        reportHost(HostObject::CommandBar, bar.get());
        const com_ptr<IDispatch> controls = automation::getObject(bar, L"Controls");
        reportHost(HostObject::CommandBarControls, controls.get());
        m_session.throwIfOver();
        entry = automation::call(controls, L"Add", {variant(controlTypeButton)}).asObject();
        reportHost(HostObject::CommandBarControl, entry.get());
        fillEntry(entry, caption);
    });
    return entry;
}

void Connect::fillEntry(const com_ptr<IDispatch>& entry, std::wstring_view caption)
{
    m_session.throwIfOver();
    automation::put(entry, L"Caption", variant(caption));
    m_session.throwIfOver();
    automation::put(entry, L"OnAction", variant(entryAction));
    m_session.throwIfOver();
    EntryFaces(m_session).paste(entry, entryFace);
}

void Connect::MenuHandler_Click()
{
    if (m_session.state() != SessionState::loaded || !m_IMgr)
        return; // started, or about to be, or at the end
    const com_ptr<IUnknown> untilDone(identity());
    std::optional<std::wstring> told;
    {
        const UnderWay underWay(*this);
        told = start();
        // Closed by whoever else has the manager, inside the start; an end of ours closes it in its own order.
        if (m_session.isOver() && !m_isLeaving)
            swallow(L"Connect.start", L"the end tries it again", [this] { m_IMgr->close(); });
    }
    if (told && !m_session.isOver())
        showMessage(*told);
}

bool Connect::mayStart()
{
    if (!m_ide)
        return false;
    const com_ptr<IDispatch> solution = automation::getObject(m_ide, L"Solution");
    m_session.throwIfOver();
    if (!solution)
        return true; // nothing to count: an IDE without solutions is not one without an open project
    const com_ptr<IDispatch> again = automation::getObject(m_ide, L"Solution");
    reportHost(HostObject::Solution, again.get());
    m_session.throwIfOver();
    return automation::get(again, L"Count").asLong() != 0;
}

void Connect::endStart(SessionState state) noexcept
{
    if (!m_session.isOver())
        m_session.enter(state);
}

// What the user has to be told: why nothing was started. Nothing where the integration runs, or has ended meanwhile.
std::optional<std::wstring> Connect::start()
{
    m_session.enter(SessionState::starting);
    bool isAllowed = false;
    const auto failure = attempt([&] {
        isAllowed = mayStart();
        m_session.throwIfOver();
        if (isAllowed)
            m_IMgr->open();
    });
    if (m_session.isOver())
        return std::nullopt;
    if (failure || !isAllowed) {
        if (failure)
            reportFailure(L"Connect.start", L"the entry stays enabled for another try", *failure);
        const scope_exit mayTryAgain([this] { endStart(SessionState::loaded); });
        return failure ? startFailureText(*failure) : getRZString(noProjectText);
    }
    swallow(L"Connect.start", L"the session runs with the windows that could be built",
            [this] { m_IMgr->buildUserInterface(); });
    endStart(SessionState::running);
    if (!m_session.isOver())
        automation::put(m_menuEntry, L"Enabled", variant(false));
    return std::nullopt;
}

void Connect::AddinInstance_OnDisconnection() noexcept
{
    const bool isConnected = m_IMgr || m_ide || m_underWay != 0;
    if (m_isLeaving || !isConnected)
        return; // it is under way, or was, or there is nothing to end
    // Whoever has the manager may have ended the session already; what the add-in has in the IDE goes all the same.
    m_isLeaving = true;
    if (!m_session.isOver())
        m_session.enter(SessionState::ending);
    if (m_underWay == 0)
        takeDown();
}

void Connect::takeDown() noexcept
{
    constexpr wchar_t where[] = L"Connect.OnDisconnection";
    constexpr wchar_t why[] = L"every step of the tear-down is attempted";
    swallow(where, why, [this] {
        if (m_menuEntry)
            automation::call(m_menuEntry, L"Delete");
    });
    if (m_IMgr) {
        // All of them do nothing where nothing was started.
        m_IMgr->beginEnd();
        swallow(where, why, [this] { m_IMgr->close(); });
        m_IMgr->removeUserInterface();
    }
    m_menuEntry.reset();
    m_IMgr.reset();
    MenuHandler.disconnect();
    m_addin.reset();
    m_ide.reset();
    m_session.enter(SessionState::ended);
    m_isListening = false;
    m_isLeaving = false;
    endTrace();
}

} // namespace velk
