#pragma once

#include "com/com_object.h"

#include <docobj.h>
#include <functional>
#include <string_view>
#include <vector>

namespace velk::test {

// A host for documents, as a shell that shows whole documents in its panes has it: a document site that answers
// ActivateMe by creating a view, giving it a rectangle and showing it. Notes what is asked of it.
class DocumentHost : public ComObject<DocumentHost, IOleClientSite, IOleDocumentSite, IOleInPlaceSite> {
public:
    explicit DocumentHost(HWND window) : m_window(window) {}

    // Hosts the object and activates it.
    HRESULT show(IUnknown* object)
    {
        m_object = com_ptr<IUnknown>(object).tryAs<IOleObject>();
        m_object->SetClientSite(this);
        return m_object->DoVerb(OLEIVERB_SHOW, nullptr, this, 0, m_window, nullptr);
    }
    void close()
    {
        if (view)
            view->CloseView(0);
        view.reset();
        m_object->Close(OLECLOSE_NOSAVE);
        m_object->SetClientSite(nullptr);
        m_object.reset();
    }

    com_ptr<IOleDocumentView> view;
    std::vector<const char*> asked;
    bool failsToGiveItsWindow = false;
    std::function<void(std::string_view what)> whileAsked; // what the host does before it answers
    std::function<void()> duringUiDeactivate;              // what the host, or the system, does then

    // IOleDocumentSite
    STDMETHODIMP ActivateMe(IOleDocumentView*) noexcept override
    {
        asked.push_back("ActivateMe");
        const auto document = m_object.tryAs<IOleDocument>();
        HRESULT result = document->CreateView(this, nullptr, 0, view.put());
        RECT place{0, 0, 320, 200};
        if (SUCCEEDED(result))
            result = view->SetRect(&place);
        if (SUCCEEDED(result))
            result = view->Show(TRUE);
        return SUCCEEDED(result) ? view->UIActivate(TRUE) : result;
    }
    // IOleClientSite
    STDMETHODIMP SaveObject() noexcept override { return S_OK; }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetContainer(IOleContainer** container) noexcept override
    {
        *container = nullptr;
        return E_NOINTERFACE;
    }
    STDMETHODIMP ShowObject() noexcept override { return S_OK; }
    STDMETHODIMP OnShowWindow(BOOL) noexcept override { return S_OK; }
    STDMETHODIMP RequestNewObjectLayout() noexcept override { return E_NOTIMPL; }
    // IOleInPlaceSite
    STDMETHODIMP GetWindow(HWND* window) noexcept override
    {
        if (whileAsked)
            whileAsked("GetWindow");
        *window = failsToGiveItsWindow ? nullptr : m_window;
        return failsToGiveItsWindow ? E_FAIL : S_OK;
    }
    STDMETHODIMP ContextSensitiveHelp(BOOL) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP CanInPlaceActivate() noexcept override { return S_OK; }
    STDMETHODIMP OnInPlaceActivate() noexcept override { return note("OnInPlaceActivate"); }
    STDMETHODIMP OnUIActivate() noexcept override { return note("OnUIActivate"); }
    STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, LPRECT position,
                                  LPRECT clip, LPOLEINPLACEFRAMEINFO) noexcept override
    {
        *frame = nullptr;
        *document = nullptr;
        *position = *clip = {0, 0, 320, 200};
        return S_OK;
    }
    STDMETHODIMP Scroll(SIZE) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP OnUIDeactivate(BOOL) noexcept override
    {
        note("OnUIDeactivate");
        if (duringUiDeactivate)
            duringUiDeactivate();
        return S_OK;
    }
    STDMETHODIMP OnInPlaceDeactivate() noexcept override { return note("OnInPlaceDeactivate"); }
    STDMETHODIMP DiscardUndoState() noexcept override { return E_NOTIMPL; }
    STDMETHODIMP DeactivateAndUndo() noexcept override { return E_NOTIMPL; }
    STDMETHODIMP OnPosRectChange(LPCRECT) noexcept override { return S_OK; }

private:
    HRESULT note(const char* what)
    {
        asked.push_back(what);
        if (whileAsked)
            whileAsked(what);
        return S_OK;
    }

    HWND m_window;
    com_ptr<IOleObject> m_object;
};

} // namespace velk::test
