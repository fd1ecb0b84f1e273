// Tested in tests/forms/serverview/serverViewDocTest.cpp.
#include "com/document_object.h"

#include "com/com_boundary.h"

namespace velk {

void DocumentObject::activate(bool withUi)
{
    if (m_isLeaving)
        throw Error::fromResult(E_UNEXPECTED);  // asked for by what the end itself sets going
    const com_ptr<IUnknown> untilDone(outer()); // the host may let go of the object in any of the calls
    if (m_isActive && !m_content)
        leaveSite(); // the host's window went without a word, and the content with it
    if (!m_isActive && !activateAsDocument()) {
        if (const auto failure = attempt([this] { enterSite(); })) {
            leaveSite(); // or the next attempt would take the object for active
            throw *failure;
        }
    }
    if (m_content)
        ShowWindow(m_content, SW_SHOWNA); // the host may have hidden it
    if (withUi)
        activateUi();
}

void DocumentObject::enterSite()
{
    if (!m_inPlaceSite)
        m_inPlaceSite = m_clientSite.tryAs<IOleInPlaceSite>();
    const com_ptr<IOleInPlaceSite> site = m_inPlaceSite;
    if (!site || site->CanInPlaceActivate() != S_OK)
        throw Error::fromResult(E_FAIL);
    throwUnlessAt(site);
    // Without this some containers never report a later change of size.
    throwIfFailed(site->OnInPlaceActivate());
    throwUnlessAt(site);
    m_isActive = true;
    HWND parent = nullptr;
    throwIfFailed(site->GetWindow(&parent));
    throwUnlessAt(site);
    com_ptr<IOleInPlaceFrame> frame;
    com_ptr<IOleInPlaceUIWindow> documentWindow;
    OLEINPLACEFRAMEINFO frameInfo{};
    frameInfo.cb = sizeof frameInfo;
    RECT position{};
    RECT clip{};
    throwIfFailed(site->GetWindowContext(frame.put(), documentWindow.put(), &position, &clip, &frameInfo));
    throwUnlessAt(site);
    m_frame = std::move(frame);
    if (m_content) {
        // Kept from an earlier activation, with all that it shows.
        SetParent(m_content, parent);
        placeContent(position);
    } else {
        m_content = createContent(parent, position);
    }
    if (m_inPlaceSite != site)
        dropContent(); // closed while it was being made, when there was none yet that could go
    throwUnlessAt(site);
    if (const com_ptr<IOleClientSite> clientSite = m_clientSite)
        clientSite->ShowObject();
}

void DocumentObject::throwUnlessAt(const com_ptr<IOleInPlaceSite>& site) const
{
    if (m_inPlaceSite != site)
        throw Error::fromResult(E_UNEXPECTED);
}

bool DocumentObject::activateAsDocument()
{
    // A view that already has its site is being shown by a document host: the host asked for this activation itself.
    if (m_inPlaceSite)
        return false;
    const auto documentSite = m_clientSite.tryAs<IOleDocumentSite>();
    return documentSite && SUCCEEDED(documentSite->ActivateMe(this));
}

void DocumentObject::activateUi()
{
    if (m_isUiActive || !m_inPlaceSite || m_isLeaving)
        return;
    const com_ptr<IUnknown> untilDone(outer()); // as in activate()
    const com_ptr<IOleInPlaceSite> site = m_inPlaceSite;
    throwIfFailed(site->OnUIActivate());
    throwUnlessAt(site);
    m_isUiActive = true;
    if (const com_ptr<IOleInPlaceFrame> frame = m_frame)
        frame->SetActiveObject(this, nullptr);
    if (m_inPlaceSite == site && m_content && !IsChild(m_content, GetFocus()))
        SetFocus(m_content);
}

void DocumentObject::placeContent(const RECT& place) noexcept
{
    if (m_content)
        SetWindowPos(m_content, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
                     SWP_NOZORDER | SWP_NOACTIVATE);
}

void DocumentObject::leaveSite() noexcept
{
    const auto left = leaving();
    UIDeactivate();
    const bool wasActive = std::exchange(m_isActive, false);
    if (m_content) {
        ShowWindow(m_content, SW_HIDE);
        SetParent(m_content, HWND_MESSAGE); // the host's window may go before it makes the next one
    }
    const com_ptr<IOleInPlaceSite> site = std::move(m_inPlaceSite);
    m_frame.reset();
    if (wasActive && site)
        site->OnInPlaceDeactivate();
}

void DocumentObject::dropContent() noexcept
{
    const auto left = leaving();
    UIDeactivate();
    if (std::exchange(m_content, nullptr))
        destroyContent();
}

HRESULT DocumentObject::SetClientSite(IOleClientSite* site) noexcept
{
    const com_ptr<IUnknown> untilDone(outer()); // as in activate()
    if (!site)
        leaveSite();
    m_clientSite = site;
    return S_OK;
}

HRESULT DocumentObject::GetClientSite(IOleClientSite** site) noexcept
{
    if (!site)
        return E_POINTER;
    m_clientSite.copyTo(site);
    return S_OK;
}

HRESULT DocumentObject::Close(DWORD) noexcept
{
    // Letting go of the host and of the product's references may release the last reference to this object.
    const com_ptr<IUnknown> untilDone(outer());
    leaveSite();
    dropContent();
    if (m_advises)
        m_advises->SendOnClose();
    terminate();
    return S_OK;
}

HRESULT DocumentObject::DoVerb(LONG verb, LPMSG, IOleClientSite*, LONG, HWND, LPCRECT) noexcept
{
    return atBoundary(L"IOleObject.DoVerb", [&]() -> HRESULT {
        switch (verb) {
        case OLEIVERB_PRIMARY:
        case OLEIVERB_SHOW:
        case OLEIVERB_UIACTIVATE:
            activate(true);
            return S_OK;
        case OLEIVERB_INPLACEACTIVATE:
            activate(false);
            return S_OK;
        case OLEIVERB_HIDE:
            return Show(FALSE);
        default:
            return verb > 0 ? OLEOBJ_S_INVALIDVERB : E_NOTIMPL;
        }
    });
}

HRESULT DocumentObject::GetWindow(HWND* window) noexcept
{
    if (!window)
        return E_POINTER;
    *window = m_isActive ? m_content : nullptr;
    return *window ? S_OK : E_FAIL;
}

HRESULT DocumentObject::InPlaceDeactivate() noexcept
{
    leaveSite();
    return S_OK;
}

HRESULT DocumentObject::UIDeactivate() noexcept
{
    if (!std::exchange(m_isUiActive, false))
        return S_OK;
    const com_ptr<IUnknown> untilDone(outer()); // as in activate()
    if (const com_ptr<IOleInPlaceFrame> frame = m_frame)
        frame->SetActiveObject(nullptr, nullptr);
    if (const com_ptr<IOleInPlaceSite> site = m_inPlaceSite)
        site->OnUIDeactivate(FALSE);
    return S_OK;
}

HRESULT DocumentObject::SetObjectRects(LPCRECT position, LPCRECT) noexcept
{
    if (!position)
        return E_INVALIDARG;
    placeContent(*position);
    return S_OK;
}

HRESULT DocumentObject::TranslateAccelerator(LPMSG message) noexcept
{
    if (!message)
        return E_POINTER;
    return atBoundary(L"IOleInPlaceActiveObject.TranslateAccelerator", [&]() -> HRESULT {
        // Keys that belong to other windows of the IDE are none of our business.
        const bool isOurs = m_content && (message->hwnd == m_content || IsChild(m_content, message->hwnd));
        return isOurs && translateKey(*message) ? S_OK : S_FALSE;
    });
}

HRESULT DocumentObject::CreateView(IOleInPlaceSite* site, IStream*, DWORD, IOleDocumentView** view) noexcept
{
    if (!view)
        return E_POINTER;
    *view = nullptr;
    if (m_inPlaceSite && m_inPlaceSite.get() != site)
        return E_FAIL; // one view only
    if (site)
        SetInPlaceSite(site);
    com_ptr<IOleDocumentView>(this).copyTo(view);
    return S_OK;
}

HRESULT DocumentObject::SetInPlaceSite(IOleInPlaceSite* site) noexcept
{
    const com_ptr<IUnknown> untilDone(outer()); // as in activate()
    if (m_inPlaceSite && m_inPlaceSite.get() != site)
        leaveSite();
    m_inPlaceSite = site;
    return S_OK;
}

HRESULT DocumentObject::GetInPlaceSite(IOleInPlaceSite** site) noexcept
{
    if (!site)
        return E_POINTER;
    m_inPlaceSite.copyTo(site);
    return S_OK;
}

HRESULT DocumentObject::GetDocument(IUnknown** document) noexcept
{
    if (!document)
        return E_POINTER;
    com_ptr<IUnknown>(outer()).copyTo(document);
    return S_OK;
}

HRESULT DocumentObject::SetRect(LPRECT rect) noexcept
{
    return SetObjectRects(rect, rect);
}

HRESULT DocumentObject::GetRect(LPRECT rect) noexcept
{
    if (!rect)
        return E_POINTER;
    *rect = {};
    if (m_content) {
        GetWindowRect(m_content, rect);
        MapWindowPoints(nullptr, GetParent(m_content), reinterpret_cast<POINT*>(rect), 2);
    }
    return S_OK;
}

HRESULT DocumentObject::Show(BOOL show) noexcept
{
    return atBoundary(L"IOleDocumentView.Show", [&] {
        if (show)
            return activate(false);
        const auto left = leaving();
        UIDeactivate();
        if (m_content)
            ShowWindow(m_content, SW_HIDE);
    });
}

HRESULT DocumentObject::UIActivate(BOOL shall) noexcept
{
    return atBoundary(L"IOleDocumentView.UIActivate", [&]() -> HRESULT {
        if (!shall)
            return UIDeactivate();
        activate(true);
        return S_OK;
    });
}

HRESULT DocumentObject::CloseView(DWORD) noexcept
{
    leaveSite();
    return S_OK;
}

} // namespace velk
