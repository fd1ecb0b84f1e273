#include "serverview/serverViewDoc.h"

#include "base/never_destroyed.h"
#include "com/com_boundary.h"
#include "ui/uiFont.h"

#include <product.h>

namespace velk {

// The document's own surface in the host: nothing but a frame that follows the host's size.
class serverViewDoc::DocumentWindow : public Window, public std::enable_shared_from_this<DocumentWindow> {
public:
    explicit DocumentWindow(serverViewDoc& document) : Window(VELK_OWN_NAME("serverViewDoc")), m_document(document) {}
    ~DocumentWindow() override { destroy(); }

protected:
    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        // The host may close the document, and let it go, inside the calls that the message leads to. The document's
        // own end takes the window first, so that no message comes here any more.
        const com_ptr<IUnknown> document(m_document.identity());
        const std::shared_ptr<DocumentWindow> untilAnswered = shared_from_this();
        if (message == WM_SIZE)
            m_document.UserDocument_Resize(LOWORD(lParam), HIWORD(lParam));
        if (message == WM_ERASEBKGND)
            return 1; // the control covers all of it
        // A press anywhere in the view reaches its parent windows first; a focus given by the host comes here.
        if (message == WM_MOUSEACTIVATE || message == WM_SETFOCUS)
            swallow(L"serverViewDoc", L"the host leaves its keys to itself then", [this] { m_document.activateUi(); });
        if (!hwnd())
            return 0;
        if (message == WM_SETFOCUS && m_document.m_svrViewCtl1)
            SetFocus(m_document.m_svrViewCtl1->hwnd());
        if (message == WM_DESTROY)
            m_document.contentIsGone();
        return handleDefault(message, wParam, lParam);
    }

private:
    serverViewDoc& m_document;
};

ServerViewWindow& serverViewWindow()
{
    static never_destroyed<ServerViewWindow> shown;
    return shown.get();
}

serverViewDoc::serverViewDoc() = default;

serverViewDoc::~serverViewDoc()
{
    beginEnd();
    destroyContent();
}

void serverViewDoc::queryExtra(REFIID iid, void** out) noexcept
{
    *out = hostedInterface(iid);
}

HRESULT serverViewDoc::putref_IMgr(_IntegrationMgr* manager) noexcept
{
    m_IMgr = manager;
    if (!manager) {
        // The session is over, and a host that keeps the document must not keep a view that asks the tool for more.
        const com_ptr<IUnknown> untilDone(identity());
        m_isSetUp = false;
        dropContent();
    }
    return S_OK;
}

HRESULT serverViewDoc::get_IMgr(_IntegrationMgr** manager) noexcept
{
    if (!manager)
        return E_POINTER;
    m_IMgr.copyTo(manager);
    return S_OK;
}

HRESULT serverViewDoc::setupGUI() noexcept
{
    return atBoundary(L"serverViewDoc.setupGUI", [this] {
        m_isSetUp = true;
        handOver();
    });
}

// A host may ask for the set-up before it has shown the document: the control then gets everything when it is made.
void serverViewDoc::handOver()
{
    if (!m_svrViewCtl1 || !m_isSetUp)
        return;
    // The host may close the document inside the calls that the set-up makes.
    const std::shared_ptr<svrViewCtl> control = m_svrViewCtl1;
    control->setIMgr(IntegrationMgr(m_IMgr, serverViewWindow().session));
    control->setupGUI();
}

HWND serverViewDoc::createContent(HWND parent, const RECT& place)
{
    destroyContent();
    auto window = std::make_shared<DocumentWindow>(*this);
    window->create({parent, WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, 0, place.left, place.top,
                    place.right - place.left, place.bottom - place.top, L""});
    RECT inner{};
    GetClientRect(window->hwnd(), &inner);
    auto control = std::make_shared<svrViewCtl>();
    control->create(window->hwnd(), inner);
    m_window = std::move(window);
    m_svrViewCtl1 = std::move(control);
    swallow(L"serverViewDoc", L"the view stands; setupGUI can be asked for again", [this] { handOver(); });
    return m_window ? m_window->hwnd() : nullptr;
}

void serverViewDoc::destroyContent() noexcept
{
    const std::shared_ptr<svrViewCtl> control = std::exchange(m_svrViewCtl1, nullptr);
    // Its messages that are under way hold the window's object: it has to go by itself, and before the control, which
    // would hand it the focus.
    if (const std::shared_ptr<DocumentWindow> window = std::exchange(m_window, nullptr))
        window->destroy();
}

bool serverViewDoc::translateKey(const MSG& message)
{
    const std::shared_ptr<svrViewCtl> control = m_svrViewCtl1;
    return control && control->translateKey(message);
}

void serverViewDoc::UserDocument_InitProperties()
{
    const UiFont& wanted = uiFont();
    if (m_fontName == wanted.name && m_fontSize == static_cast<float>(wanted.size))
        return;
    ++m_fontChanges;
    m_fontName = wanted.name;
    m_fontSize = static_cast<float>(wanted.size);
}

void serverViewDoc::UserDocument_Resize(int width, int height)
{
    if (m_svrViewCtl1)
        m_svrViewCtl1->resize(width, height);
}

void serverViewDoc::UserDocument_Terminate() noexcept
{
    ServerViewWindow& shown = serverViewWindow();
    // A document of an earlier session may end after the next one has made its own.
    if (shown.document.tryAs<IUnknown>().get() == identity()) {
        shown.window.reset();
        shown.document.reset();
        shown.session = Session::none();
    }
    m_IMgr.reset();
}

} // namespace velk
