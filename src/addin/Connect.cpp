#include "addin/Connect.h"

#include "addin/commandBarEntry.h"
#include "addin/startFailure.h"
#include "addin/traceSettings.h"
#include "backend/texts.h"
#include "platform/automation.h"
#include "platform/text.h"
#include "ui/messageBox.h"
#include "ui/uiFont.h"

namespace velk {
namespace {

constexpr int32_t fontNameText = 100;
constexpr int32_t fontSizeText = 101;
constexpr int32_t defaultFontSize = 9; // points
constexpr int32_t entryCaptionText = 200;
constexpr int32_t noProjectText = 669;

constexpr int16_t entryBarIndex = 13;
constexpr int entryFace = 100;
constexpr DISPID clickEvent = 1;
// The IDE raises no click for a control without an action text; what the text says does not matter to anybody.
constexpr wchar_t entryAction[] = L"velkviadd.Connect";

void setUiFont()
{
    uiFont().name = getRZString(fontNameText);
    const std::wstring size = getRZString(fontSizeText);
    uiFont().size = size.empty() ? defaultFontSize : roundToLong(leadingNumber(size));
    uiFont().charset = fontCharset(uiFont().name);
}

} // namespace

HRESULT Connect::OnConnection(IDispatch* Application, ext_ConnectMode, IDispatch* AddInInst, SAFEARRAY**) noexcept
{
    beginTrace();
    // An add-in that fails here would be thrown out; with a part of it built it can at least be unloaded cleanly.
    swallow(L"Connect.OnConnection", L"the add-in stays loaded with what was set up",
            [&] { AddinInstance_OnConnection(Application, AddInInst); });
    return S_OK;
}

HRESULT Connect::OnDisconnection(ext_DisconnectMode, SAFEARRAY**) noexcept
{
    AddinInstance_OnDisconnection();
    return S_OK;
}

HRESULT Connect::OnAddInsUpdate(SAFEARRAY**) noexcept
{
    return S_OK;
}

HRESULT Connect::OnStartupComplete(SAFEARRAY**) noexcept
{
    return S_OK;
}

HRESULT Connect::OnBeginShutdown(SAFEARRAY**) noexcept
{
    return S_OK;
}

void Connect::AddinInstance_OnConnection(IDispatch* application, IDispatch* addinInstance)
{
    m_ide = application;
    m_addin = addinInstance;
    setUiFont();
    m_manager = makeObject<IMgrVI>();
    swallow(L"Connect.OnConnection", L"setupIM keeps what it could set up",
            [&] { throwIfFailed(m_manager->setupIM(application, addinInstance)); });
    m_menuEntry = addEntry(getRZString(entryCaptionText));
    if (!m_menuEntry)
        return; // an IDE without that bar: nothing to click
    const com_ptr<IDispatch> events = automation::getObject(m_ide, L"Events");
    MenuHandler.connect(automation::getObject(events, L"CommandBarEvents", {variant(m_menuEntry)}), clickEvent,
                        [this](const DISPPARAMS&) { MenuHandler_Click(); });
}

HRESULT Connect::AddToAddInCommandBar(BSTR* sCaption, CommandBarControl* control) noexcept
{
    return atBoundary(L"Connect.AddToAddInCommandBar", [&] {
        if (!sCaption || !control)
            throw Error(errorInvalidCall);
        *control = nullptr;
        addEntry(bstr::viewOf(*sCaption)).copyTo(control);
    });
}

com_ptr<IDispatch> Connect::addEntry(std::wstring_view caption)
{
    com_ptr<IDispatch> entry;
    swallow(L"Connect.AddToAddInCommandBar", L"the entry serves as far as it was built", [&] {
        const com_ptr<IDispatch> bars = automation::getObject(m_ide, L"CommandBars");
        const com_ptr<IDispatch> bar = automation::getObject(bars, L"Item", {variant(entryBarIndex)});
        if (!bar)
            return;
        entry =
            automation::call(automation::getObject(bar, L"Controls"), L"Add", {variant(controlTypeButton)}).asObject();
        automation::put(entry, L"Caption", variant(caption));
        automation::put(entry, L"OnAction", variant(entryAction));
        EntryFaces().paste(entry, entryFace);
    });
    return entry;
}

void Connect::MenuHandler_Click()
{
    const com_ptr<IUnknown> untilDone(identity());
    start();
}

bool Connect::mayStart()
{
    if (!m_ide)
        return false;
    const com_ptr<IDispatch> solution = automation::getObject(m_ide, L"Solution");
    if (!solution)
        return true; // nothing to count: an IDE without solutions is not one without an open project
    return automation::get(automation::getObject(m_ide, L"Solution"), L"Count").asLong() != 0;
}

void Connect::start()
{
    if (m_started || !m_manager)
        return;
    if (!mayStart()) {
        showMessage(getRZString(noProjectText));
        return;
    }
    if (const auto failure = attempt([this] { m_manager->open(); })) {
        reportFailure(L"Connect.start", L"the entry stays enabled for another try", *failure);
        showMessage(startFailureText(*failure));
        return;
    }
    swallow(L"Connect.start", L"the session runs with the windows that could be built",
            [this] { throwIfFailed(m_manager->createRZUI()); });
    m_started = true;
    automation::put(m_menuEntry, L"Enabled", variant(false));
}

void Connect::AddinInstance_OnDisconnection() noexcept
{
    constexpr wchar_t where[] = L"Connect.OnDisconnection";
    constexpr wchar_t why[] = L"every step of the tear-down is attempted";
    swallow(where, why, [this] {
        if (m_menuEntry)
            automation::call(m_menuEntry, L"Delete");
    });
    if (std::exchange(m_started, false)) {
        swallow(where, why, [this] { throwIfFailed(m_manager->closeRZCommunication()); });
        swallow(where, why, [this] { throwIfFailed(m_manager->deleteRZUI()); });
    }
    m_menuEntry.reset();
    m_manager.reset();
    MenuHandler.disconnect();
    m_addin.reset();
    m_ide.reset();
    endTrace();
}

} // namespace velk
