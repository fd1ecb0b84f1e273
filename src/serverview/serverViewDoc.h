#pragma once

#include "com/com_object.h"
#include "com/document_object.h"
#include "model/IntegrationMgr.h"
#include "serverview/svrViewCtl.h"
#include "window/window.h"

#include <memory>
#include <typelib/velkviadd.h>

namespace velk {

// The tool window and the document in it, as the integration manager made them. Cleared by the document when its host
// is done with it, so that the next request to show the server view makes both anew.
struct ServerViewWindow {
    com_ptr<IDispatch> window;
    com_ptr<IDispatch> document;
    Session session = Session::none(); // that they were made for
};
ServerViewWindow& serverViewWindow();

// The document that the IDE shows as the server view's tool window. It holds one child, the server view control, and
// keeps it at the size of the document.
class serverViewDoc : public ComObject<serverViewDoc, dual<_serverViewDoc>, DocumentObject> {
public:
    serverViewDoc();
    ~serverViewDoc() override;
    void queryExtra(REFIID iid, void** out) noexcept;

    STDMETHODIMP putref_IMgr(_IntegrationMgr* manager) noexcept override;
    STDMETHODIMP get_IMgr(_IntegrationMgr** manager) noexcept override;
    STDMETHODIMP setupGUI() noexcept override;

    svrViewCtl* svrViewCtl1() const noexcept { return m_svrViewCtl1.get(); }
    // The document's font (size in points), and how often it was set anew. The document itself shows no text.
    const std::wstring& fontName() const noexcept { return m_fontName; }
    float fontSize() const noexcept { return m_fontSize; }
    int fontChanges() const noexcept { return m_fontChanges; }

private:
    class DocumentWindow;

    void initProperties() override { UserDocument_InitProperties(); }
    HWND createContent(HWND parent, const RECT& place) override;
    void destroyContent() noexcept override;
    void terminate() noexcept override { UserDocument_Terminate(); }
    bool translateKey(const MSG& message) override;
    IUnknown* outer() noexcept override { return identity(); }
    const CLSID& clsid() const noexcept override { return CLSID_serverViewDoc; }

    void UserDocument_InitProperties();
    void UserDocument_Resize(int width, int height);
    void UserDocument_Terminate() noexcept;
    void handOver();

    com_ptr<_IntegrationMgr> m_IMgr;
    std::shared_ptr<DocumentWindow> m_window;  // shared with its messages that are under way
    std::shared_ptr<svrViewCtl> m_svrViewCtl1; // shared with its calls that are under way
    std::wstring m_fontName = L"MS Sans Serif";
    float m_fontSize = 8.25f;
    int m_fontChanges = 0;
    bool m_isSetUp = false;
};

} // namespace velk
