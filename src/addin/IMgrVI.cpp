#include "addin/IMgrVI.h"

#include "addin/rzFileName.h"
#include "addin/toolWindow.h"
#include "backend/calls.h"
#include "backend/library.h"
#include "backend/texts.h"
#include "base/module.h"
#include "base/paths.h"
#include "base/unique_any.h"
#include "com/automation.h"
#include "com/com_boundary.h"
#include "com/host_report.h"
#include "model/conLstCtl.h"
#include "scc/VSSAPI.h"
#include "serverview/serverViewDoc.h"
#include "ui/messageBox.h"
#include "ui/splashscrnFrm.h"

namespace velk {
namespace {

constexpr int32_t toolWindowCaption = 400;

// The steps that the splash screen announces: four here, and the two texts of the notification pump.
constexpr int16_t splashSteps = 6;
constexpr int32_t barsText = 643;
constexpr int32_t menusText = 644;
constexpr int32_t toolWindowText = 645;
constexpr int32_t builtText = 642;

constexpr int32_t modeOpenProject = 2;

// The manager that has the tool's session, of which there is one in a process. Null when none has.
IMgrVI* sessionOwner = nullptr;

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
    const com_ptr<IDispatch> mainWindow = automation::getObject(m_instance, L"MainWindow");
    reportHost(HostObject::MainWindow, mainWindow.get());
    m_mainWindow = IdeWindow(mainWindow);
    setMainWindow(m_mainWindow.handle());
}

HRESULT IMgrVI::openRZCommunication() noexcept
{
    return atBoundary(L"IMgrVI.openRZCommunication", [this] {
        const com_ptr<IUnknown> untilDone(identity());
        if (m_session.state() == SessionState::ended) {
            removeToolWindow(); // its view belongs to what has ended
            m_session = Session();
        }
        if (m_session.state() != SessionState::loaded)
            return; // open already, or about to be
        m_session.enter(SessionState::starting);
        const auto failure = attempt([this] { open(); });
        if (m_session.isOver()) {
            close(); // asked for while the opening was on the stack
            m_session.enter(SessionState::ended);
        } else {
            m_session.enter(failure ? SessionState::loaded : SessionState::running);
        }
        if (failure)
            throw *failure;
    });
}

std::wstring IMgrVI::solutionFullName()
{
    const com_ptr<IDispatch> solution = automation::getObject(m_instance, L"Solution");
    // Not every version of the IDE names the file of its solution: it counts as one without a name then.
    const bool isNamed = solution && automation::hasMember(solution.get(), L"FullName");
    return isNamed ? automation::get(solution, L"FullName").asText() : std::wstring();
}

IMgrVI::~IMgrVI()
{
    if (sessionOwner == this)
        sessionOwner = nullptr;
}

void IMgrVI::throwIfOthersSession() const
{
    if (sessionOwner && sessionOwner != this)
        throw Error(errorPermissionDenied, L"the tool has a session already");
}

void IMgrVI::open()
{
    throwIfOthersSession();
    const bool hadWindow = static_cast<bool>(serverViewWindow().window);
    m_hasWindows = true;
    const auto failure = attempt([this] { openSession(); });
    if (!failure)
        return;
    if (!m_session.isOver())
        undoOpen(*failure, !hadWindow);
    throw *failure;
}

void IMgrVI::openSession()
{
    ensureToolWindow();
    m_session.throwIfOver();
    m_rzFileName = defaultRZFileName(solutionFullName(), module::folder());
    m_session.throwIfOver();
    // A Backend without its notifications would leave the pump failing ten times a second, so it is refused here.
    backendAddress(BackendFunction::RZGetNotification);
    backendAddress(BackendFunction::RZTerminate);
    std::wstring file = m_rzFileName;
    std::wstring empty;
    throwIfOthersSession();
    sessionOwner = this;
    // Not by the values themselves: what cannot be read back after the call would leave its session open.
    arguments::Text fileArgument(file);
    arguments::Text emptyArgument(empty);
    RZInitialize.onWire(m_ideType, fileArgument.wire(), emptyArgument.wire());
    m_isOpen = true;
    RZInitialize.reportOverrun(fileArgument.isOverrun() || emptyArgument.isOverrun() ? "a text" : nullptr);
    m_session.throwIfOver();
    m_pump = notificationThreadFrm::load();
    m_pump->setIMMgr(IntegrationMgr(com_ptr<_IntegrationMgr>(this), m_session));
}

void IMgrVI::undoOpen(const Error& failure, bool madeWindow) noexcept
{
    swallow(L"IMgrVI.open", L"the failed start is what counts", [this] { close(); });
    if (madeWindow)
        swallow(L"IMgrVI.open", L"the failed start is what counts", [this] { removeToolWindow(); });
    m_hasWindows = static_cast<bool>(m_bars);
    // The file can be replaced by a right one only while nobody holds it; the next click loads it again. What failed
    // elsewhere leaves the library alone: it may have threads and windows by now, and others may work with it.
    if (isBackendLibraryFailure(failure))
        unloadBackend();
}

HRESULT IMgrVI::closeRZCommunication() noexcept
{
    return atBoundary(L"IMgrVI.closeRZCommunication", [this] {
        const com_ptr<IUnknown> untilDone(identity());
        const bool isStarting = m_session.state() == SessionState::starting;
        if (m_session.state() == SessionState::loaded || m_session.isOver())
            return;
        m_session.enter(SessionState::ending);
        if (isStarting)
            return; // whoever starts it sees it when the call that is on the stack comes back
        const scope_exit ended([this] { m_session.enter(SessionState::ended); });
        close();
    });
}

void IMgrVI::beginEnd() noexcept
{
    if (!m_session.isOver())
        m_session.enter(SessionState::ending);
}

void IMgrVI::close()
{
    const scope_exit free([this] {
        if (sessionOwner == this)
            sessionOwner = nullptr;
    });
    // The pump goes first: after RZTerminate nothing may be asked of the Backend.
    if (const auto pump = std::exchange(m_pump, nullptr))
        pump->unload();
    if (std::exchange(m_isOpen, false))
        RZTerminate();
}

HRESULT IMgrVI::createRZUI() noexcept
{
    return atBoundary(L"IMgrVI.createRZUI", [this] {
        const com_ptr<IUnknown> untilDone(identity());
        buildUserInterface();
    });
}

void IMgrVI::buildUserInterface()
{
    m_session.throwIfOver();
    throwIfOthersSession();
    if (std::exchange(m_isBuilding, true))
        throw Error(errorInvalidCall); // from inside one of its own calls
    const scope_exit built([this] { m_isBuilding = false; });
    m_hasWindows = true;
    m_wasShown = false;
    // A building that fails leaves no splash screen: no later step would take it away.
    scope_exit gone([] { unloadSplashScreen(); });
    splashScreen().setProgressBarInterval(splashSteps);
    if (m_wasShown)
        unloadSplashScreen(); // made after the project was shown, in the call for its own text
    buildEntries();
    announce(toolWindowText);
    ensureToolWindow();
    m_session.throwIfOver();
    announce(builtText);
    gone.release();
}

void IMgrVI::buildEntries()
{
    constexpr wchar_t why[] = L"the IDE keeps the entries that could be made";
    const auto bars = std::make_shared<RZCommandBars>(m_instance, m_session);
    m_bars = bars;
    const scope_exit finished([&] { bars->finish(); });
    const auto build = [&](void (RZCommandBars::*group)()) {
        swallow(L"IMgrVI.createRZUI", why, [&] { (*bars.*group)(); });
        m_session.throwIfOver();
    };
    announce(barsText);
    build(&RZCommandBars::addToolbar);
    announce(menusText);
    for (const auto group : {&RZCommandBars::addViews, &RZCommandBars::addTools, &RZCommandBars::addHelp})
        build(group);
}

void IMgrVI::announce(int32_t text)
{
    const std::wstring said = getRZString(text);
    m_session.throwIfOver();
    // The tool may have shown its project while the IDE was at work on our entries: nobody would take a second one
    // away.
    if (isSplashScreenLoaded())
        splashScreen().updateProgress(said);
}

HRESULT IMgrVI::deleteRZUI() noexcept
{
    const com_ptr<IUnknown> untilDone(identity());
    removeUserInterface();
    return S_OK;
}

void IMgrVI::removeUserInterface() noexcept
{
    if (!std::exchange(m_hasWindows, false))
        return; // what there is belongs to another manager
    Dialog::hideAll();
    connectionDialog().terminate();
    closeSourceSafe();
    unloadSplashScreen();
    swallow(L"IMgrVI.deleteRZUI", L"tear-down goes on with the next step", [this] { removeToolWindow(); });
    m_bars.reset();
    setMainWindow(nullptr);
}

com_ptr<IDispatch> IMgrVI::ensureToolWindow()
{
    if (!serverViewWindow().document && !m_isMakingWindow)
        makeToolWindow();
    return serverViewWindow().window;
}

void IMgrVI::makeToolWindow()
{
    m_isMakingWindow = true;
    const scope_exit made([this] { m_isMakingWindow = false; });
    const com_ptr<IDispatch> windows = automation::getObject(m_instance, L"Windows");
    reportHost(HostObject::Windows, windows.get());
    const std::wstring caption = getRZString(toolWindowCaption);
    m_session.throwIfOver();
    serverViewWindow() = createToolWindow(windows, m_addin, caption, m_session);
    reportHost(HostObject::Window, serverViewWindow().window.get());
    serverViewWindow().session = m_session;
    // An end that was carried out inside the call could not know of the window yet.
    if (m_session.state() == SessionState::ended)
        removeToolWindow();
    m_session.throwIfOver();
    const auto failure = attempt([this] { handDocumentOver(); });
    if (!failure)
        return;
    // A document without its set-up would pass for a view; the next request makes another one.
    if (!m_session.isOver())
        removeToolWindow();
    throw *failure;
}

void IMgrVI::handDocumentOver()
{
    const com_ptr<IDispatch> document = serverViewWindow().document;
    automation::putRef(document, L"IMgr", com_ptr<_IntegrationMgr>(this).tryAs<IDispatch>(IID__IntegrationMgr));
    m_session.throwIfOver();
    automation::call(document, L"setupGUI");
}

void IMgrVI::removeToolWindow()
{
    if (!serverViewWindow().window || !(serverViewWindow().session == m_session))
        return; // none, or that of another manager's session
    const ServerViewWindow shown = std::exchange(serverViewWindow(), {});
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
        std::wstring folder = parentDir(m_rzFileName);
        std::wstring file = fileNameOf(m_rzFileName);
        RZProjectDoAccess(folder, file, modeOpenProject);
    });
}

} // namespace velk
