#include "addin/IMgrVI.h"

#include "addin/rzFileName.h"
#include "backend/calls.h"
#include "backend/library.h"
#include "backend/texts.h"
#include "model/conLstCtl.h"
#include "platform/automation.h"
#include "platform/module.h"
#include "platform/unique_any.h"
#include "scc/VSSAPI.h"
#include "serverview/serverViewDoc.h"
#include "ui/messageBox.h"
#include "ui/splashscrnFrm.h"

namespace velk {
namespace {

constexpr wchar_t documentProgId[] = L"velkviadd.serverViewDoc";
// The IDE remembers the window's place under this name.
constexpr wchar_t toolWindowGuid[] = L"{5D1C7A3E-2B94-4F6A-9E0B-7C3D8A61F2B5}";
constexpr int32_t toolWindowCaption = 400;

// The steps that the splash screen announces: four here, and the two texts of the notification pump.
constexpr int16_t splashSteps = 6;
constexpr int32_t barsText = 643;
constexpr int32_t menusText = 644;
constexpr int32_t toolWindowText = 645;
constexpr int32_t builtText = 642;

constexpr int32_t modeOpenProject = 2;

// Takes a window out of the frame that it is docked in.
void undock(const com_ptr<IDispatch>& window)
{
    const com_ptr<IDispatch> frame = automation::getObject(window, L"LinkedWindowFrame");
    automation::call(automation::getObject(frame, L"LinkedWindows"), L"Remove", {variant(window)});
}

} // namespace

HRESULT IMgrVI::setupIM(IDispatch* myApp, IDispatch* myaddin) noexcept
{
    return atBoundary(L"IMgrVI.setupIM", [&] { setUp(myApp, myaddin); });
}

void IMgrVI::setUp(IDispatch* app, IDispatch* addin)
{
    m_instance = app;
    m_addin = addin;
    m_ideType = ideTypeVisualInterDev;
    m_model = makeObject<ModelUtilVI>();
    swallow(L"IMgrVI.setupIM", L"without a status window there is only nowhere to type",
            [&] { throwIfFailed(m_model->putref_VIInstance(app)); });
    m_mainWindow = IdeWindow(automation::getObject(m_instance, L"MainWindow"));
    setMainWindow(m_mainWindow.handle());
}

HRESULT IMgrVI::openRZCommunication() noexcept
{
    return atBoundary(L"IMgrVI.openRZCommunication", [this] { open(); });
}

std::wstring IMgrVI::solutionFullName()
{
    const com_ptr<IDispatch> solution = automation::getObject(m_instance, L"Solution");
    // Not every version of the IDE names the file of its solution: it counts as one without a name then.
    const bool isNamed = solution && automation::hasMember(solution.get(), L"FullName");
    return isNamed ? automation::get(solution, L"FullName").asText() : std::wstring();
}

void IMgrVI::open()
{
    const auto failure = attempt([this] {
        ensureToolWindow();
        m_rzFileName = defaultRZFileName(solutionFullName(), module::folder());
        // A Backend without its notifications would leave the pump failing ten times a second, so it is refused here.
        backendAddress(BackendFunction::RZGetNotification);
        backendAddress(BackendFunction::RZTerminate);
        std::wstring file = m_rzFileName;
        std::wstring empty;
        RZInitialize(m_ideType, file, empty);
        m_isOpen = true;
        m_pump = notificationThreadFrm::load();
        m_pump->setIMMgr(IntegrationMgr(com_ptr<_IntegrationMgr>(this)));
    });
    if (!failure)
        return;
    swallow(L"IMgrVI.open", L"the failed start is what counts", [this] { closeRZCommunication(); });
    swallow(L"IMgrVI.open", L"the failed start is what counts", [this] { removeToolWindow(); });
    // The file can be replaced by a right one only while nobody holds it; the next click loads it again.
    unloadBackend();
    throw *failure;
}

HRESULT IMgrVI::closeRZCommunication() noexcept
{
    return atBoundary(L"IMgrVI.closeRZCommunication", [this] {
        // The pump goes first: after RZTerminate nothing may be asked of the Backend.
        if (const auto pump = std::exchange(m_pump, nullptr))
            pump->unload();
        if (std::exchange(m_isOpen, false))
            RZTerminate();
    });
}

HRESULT IMgrVI::createRZUI() noexcept
{
    return atBoundary(L"IMgrVI.createRZUI", [this] { buildUserInterface(); });
}

void IMgrVI::buildUserInterface()
{
    splashScreen().setProgressBarInterval(splashSteps);
    constexpr wchar_t why[] = L"the IDE keeps the entries that could be made";
    m_bars = std::make_unique<RZCommandBars>(m_instance);
    splashScreen().updateProgress(getRZString(barsText));
    swallow(L"IMgrVI.createRZUI", why, [this] { m_bars->addToolbar(); });
    splashScreen().updateProgress(getRZString(menusText));
    for (const auto add : {&RZCommandBars::addViews, &RZCommandBars::addTools, &RZCommandBars::addHelp})
        swallow(L"IMgrVI.createRZUI", why, [&] { (*m_bars.*add)(); });
    splashScreen().updateProgress(getRZString(toolWindowText));
    ensureToolWindow();
    splashScreen().updateProgress(getRZString(builtText));
}

HRESULT IMgrVI::deleteRZUI() noexcept
{
    Dialog::hideAll();
    connectionDialog().terminate();
    closeSourceSafe();
    unloadSplashScreen();
    swallow(L"IMgrVI.deleteRZUI", L"tear-down goes on with the next step", [this] { removeToolWindow(); });
    m_bars.reset();
    setMainWindow(nullptr);
    return S_OK;
}

com_ptr<IDispatch> IMgrVI::ensureToolWindow()
{
    if (!serverViewWindow().document)
        makeToolWindow();
    return serverViewWindow().window;
}

void IMgrVI::makeToolWindow()
{
    const com_ptr<IDispatch> windows = automation::getObject(m_instance, L"Windows");
    const std::wstring caption = getRZString(toolWindowCaption);
    const auto create = [&](const variant& document) {
        return automation::call(windows, L"CreateToolWindow",
                                {variant(m_addin), variant(documentProgId), variant(std::wstring_view(caption)),
                                 variant(toolWindowGuid), document})
            .asObject();
    };
    com_ptr<IDispatch> document;
    com_ptr<IDispatch> window;
    try {
        window = create(variant::refTo(document.put()));
    } catch (const Error& error) {
        // Hosts that declare the document as a plain variable take no reference to an object.
        if (error.number() != errorTypeMismatch)
            throw;
        variant received;
        window = create(variant::refTo(received.put()));
        document = received.asObject();
    }
    serverViewWindow() = {window, document};
    automation::putRef(document, L"IMgr", com_ptr<_IntegrationMgr>(this).tryAs<IDispatch>(IID__IntegrationMgr));
    automation::call(document, L"setupGUI");
}

void IMgrVI::removeToolWindow()
{
    const ServerViewWindow shown = std::exchange(serverViewWindow(), {});
    if (!shown.window)
        return;
    const scope_exit over([&] {
        swallow(L"IMgrVI.removeToolWindow", L"a closed document has nothing to give up",
                [&] { automation::putRef(shown.document, L"IMgr", nullptr); });
    });
    const auto close = [&] { automation::call(shown.window, L"Close"); };
    if (swallow(L"IMgrVI.removeToolWindow", L"a docked window refuses it and is undocked first", close))
        return;
    swallow(L"IMgrVI.removeToolWindow", L"a window that cannot be undocked may still be hidden",
            [&] { undock(shown.window); });
    if (!swallow(L"IMgrVI.removeToolWindow", L"out of sight the window goes with the add-in", close))
        automation::put(shown.window, L"Visible", variant(false));
}

HRESULT IMgrVI::get_VIInstance(IDispatch** instance) noexcept
{
    if (!instance)
        return E_POINTER;
    m_instance.copyTo(instance);
    return S_OK;
}

HRESULT IMgrVI::get_VBAddin(IDispatch** addin) noexcept
{
    if (!addin)
        return E_POINTER;
    m_addin.copyTo(addin);
    return S_OK;
}

HRESULT IMgrVI::openRZProject() noexcept
{
    return atBoundary(L"IMgrVI.openRZProject", [this] {
        const size_t backslash = m_rzFileName.rfind(L'\\');
        const bool hasFolder = backslash != std::wstring::npos;
        std::wstring folder = hasFolder ? m_rzFileName.substr(0, backslash) : std::wstring();
        std::wstring file = hasFolder ? m_rzFileName.substr(backslash + 1) : m_rzFileName;
        RZProjectDoAccess(folder, file, modeOpenProject);
    });
}

} // namespace velk
