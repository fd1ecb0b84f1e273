#pragma once

#include "base/unique_any.h"
#include "com/com_ptr.h"

namespace velk {

// The OLE half of an object that a host shows as a control or as a document: activation in place, extents, persistence
// without state, one view. The class on top brings reference counting and asks hostedInterface() for the rest.
//
// Containers are not to be trusted: some never deactivate before they close, some ask for no document site, some give
// extents that fit nothing. The rectangle that counts is the site's window context, then whatever the host sets.
class DocumentObject : public IOleObject,
                       public IOleInPlaceObject,
                       public IOleInPlaceActiveObject,
                       public IOleControl,
                       public IViewObject2,
                       public IPersistStreamInit,
                       public IPersistStorage,
                       public IProvideClassInfo2,
                       public IOleDocument,
                       public IOleDocumentView {
public:
    using Described = IOleObject;

    // IOleObject
    STDMETHODIMP SetClientSite(IOleClientSite* site) noexcept override;
    STDMETHODIMP GetClientSite(IOleClientSite** site) noexcept override;
    STDMETHODIMP SetHostNames(LPCOLESTR, LPCOLESTR) noexcept override;
    STDMETHODIMP Close(DWORD saveOption) noexcept override;
    STDMETHODIMP SetMoniker(DWORD, IMoniker*) noexcept override;
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) noexcept override;
    STDMETHODIMP InitFromData(IDataObject*, BOOL, DWORD) noexcept override;
    STDMETHODIMP GetClipboardData(DWORD, IDataObject**) noexcept override;
    STDMETHODIMP DoVerb(LONG verb, LPMSG, IOleClientSite*, LONG, HWND, LPCRECT) noexcept override;
    STDMETHODIMP EnumVerbs(IEnumOLEVERB**) noexcept override;
    STDMETHODIMP Update() noexcept override;
    STDMETHODIMP IsUpToDate() noexcept override;
    STDMETHODIMP GetUserClassID(CLSID* id) noexcept override;
    STDMETHODIMP GetUserType(DWORD, LPOLESTR*) noexcept override;
    STDMETHODIMP SetExtent(DWORD aspect, SIZEL* extent) noexcept override;
    STDMETHODIMP GetExtent(DWORD aspect, SIZEL* extent) noexcept override;
    STDMETHODIMP Advise(IAdviseSink*, DWORD*) noexcept override;
    STDMETHODIMP Unadvise(DWORD) noexcept override;
    STDMETHODIMP EnumAdvise(IEnumSTATDATA**) noexcept override;
    STDMETHODIMP GetMiscStatus(DWORD aspect, DWORD* status) noexcept override;
    STDMETHODIMP SetColorScheme(LOGPALETTE*) noexcept override;
    // IOleWindow, IOleInPlaceObject
    STDMETHODIMP GetWindow(HWND* window) noexcept override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) noexcept override;
    STDMETHODIMP InPlaceDeactivate() noexcept override;
    STDMETHODIMP UIDeactivate() noexcept override;
    STDMETHODIMP SetObjectRects(LPCRECT position, LPCRECT clip) noexcept override;
    STDMETHODIMP ReactivateAndUndo() noexcept override;
    // IOleInPlaceActiveObject
    STDMETHODIMP TranslateAccelerator(LPMSG message) noexcept override;
    STDMETHODIMP OnFrameWindowActivate(BOOL) noexcept override;
    STDMETHODIMP OnDocWindowActivate(BOOL) noexcept override;
    STDMETHODIMP ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) noexcept override;
    STDMETHODIMP EnableModeless(BOOL) noexcept override;
    // IOleControl
    STDMETHODIMP GetControlInfo(CONTROLINFO* info) noexcept override;
    STDMETHODIMP OnMnemonic(LPMSG) noexcept override;
    STDMETHODIMP OnAmbientPropertyChange(DISPID) noexcept override;
    STDMETHODIMP FreezeEvents(BOOL) noexcept override;
    // IViewObject2
    STDMETHODIMP Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC target, LPCRECTL bounds, LPCRECTL,
                      BOOL(CALLBACK*)(ULONG_PTR), ULONG_PTR) noexcept override;
    STDMETHODIMP GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC, LOGPALETTE**) noexcept override;
    STDMETHODIMP Freeze(DWORD, LONG, void*, DWORD*) noexcept override;
    STDMETHODIMP Unfreeze(DWORD) noexcept override;
    STDMETHODIMP SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) noexcept override;
    STDMETHODIMP GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) noexcept override;
    STDMETHODIMP GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*, LPSIZEL extent) noexcept override;
    // IPersist, IPersistStreamInit, IPersistStorage
    STDMETHODIMP GetClassID(CLSID* id) noexcept override;
    STDMETHODIMP IsDirty() noexcept override;
    STDMETHODIMP Load(IStream*) noexcept override;
    STDMETHODIMP Save(IStream*, BOOL) noexcept override;
    STDMETHODIMP GetSizeMax(ULARGE_INTEGER* size) noexcept override;
    STDMETHODIMP InitNew() noexcept override;
    STDMETHODIMP InitNew(IStorage*) noexcept override;
    STDMETHODIMP Load(IStorage*) noexcept override;
    STDMETHODIMP Save(IStorage*, BOOL) noexcept override;
    STDMETHODIMP SaveCompleted(IStorage*) noexcept override;
    STDMETHODIMP HandsOffStorage() noexcept override;
    // IProvideClassInfo2
    STDMETHODIMP GetClassInfo(ITypeInfo** info) noexcept override;
    STDMETHODIMP GetGUID(DWORD kind, GUID* guid) noexcept override;
    // IOleDocument
    STDMETHODIMP CreateView(IOleInPlaceSite* site, IStream*, DWORD, IOleDocumentView** view) noexcept override;
    STDMETHODIMP GetDocMiscStatus(DWORD* status) noexcept override;
    STDMETHODIMP EnumViews(IEnumOleDocumentViews** views, IOleDocumentView** single) noexcept override;
    // IOleDocumentView
    STDMETHODIMP SetInPlaceSite(IOleInPlaceSite* site) noexcept override;
    STDMETHODIMP GetInPlaceSite(IOleInPlaceSite** site) noexcept override;
    STDMETHODIMP GetDocument(IUnknown** document) noexcept override;
    STDMETHODIMP SetRect(LPRECT rect) noexcept override;
    STDMETHODIMP GetRect(LPRECT rect) noexcept override;
    STDMETHODIMP SetRectComplex(LPRECT, LPRECT, LPRECT, LPRECT) noexcept override;
    STDMETHODIMP Show(BOOL show) noexcept override;
    STDMETHODIMP UIActivate(BOOL activate) noexcept override;
    STDMETHODIMP Open() noexcept override;
    STDMETHODIMP CloseView(DWORD) noexcept override;
    STDMETHODIMP SaveViewState(IStream*) noexcept override;
    STDMETHODIMP ApplyViewState(IStream*) noexcept override;
    STDMETHODIMP Clone(IOleInPlaceSite*, IOleDocumentView**) noexcept override;

protected:
    DocumentObject() = default;
    ~DocumentObject() = default;

    // One of the interfaces above by its IID, null for others.
    void* hostedInterface(REFIID iid) noexcept;
    // The object takes the focus inside its host.
    void activateUi();
    // The content goes for good: the object is over although its host keeps it.
    void dropContent() noexcept;
    // The object is at its end: whatever its windows set going while they go does not activate it any more.
    void beginEnd() noexcept { m_isLeaving = true; }
    // The content's window went with the window of the host.
    void contentIsGone() noexcept { m_content = nullptr; }

    // What the class on top brings. All may throw but the last two.
    virtual void initProperties() = 0;
    // The window of the object's content. It outlives a deactivation, hidden, and is shown again by the next one.
    virtual HWND createContent(HWND parent, const RECT& place) = 0;
    virtual void destroyContent() noexcept = 0;
    virtual void terminate() noexcept = 0; // the host is done with the object; may come more than once
    virtual bool translateKey(const MSG& message) = 0;
    virtual IUnknown* outer() noexcept = 0;
    virtual const CLSID& clsid() const noexcept = 0;

private:
    void activate(bool withUi);
    void enterSite();
    // The host may close the object, or move it elsewhere, inside the calls that activate it.
    void throwUnlessAt(const com_ptr<IOleInPlaceSite>& site) const;
    // Until its end nothing activates the object: a window that goes with the focus in it makes its parents ask for
    // that. Nor does the object go, whatever its host lets go of in the calls that it gets.
    auto leaving() noexcept
    {
        return scope_exit([this, untilDone = com_ptr<IUnknown>(outer()), before = std::exchange(m_isLeaving, true)] {
            m_isLeaving = before;
        });
    }
    bool activateAsDocument();
    void placeContent(const RECT& place) noexcept;
    void leaveSite() noexcept;

    com_ptr<IOleClientSite> m_clientSite;
    com_ptr<IOleInPlaceSite> m_inPlaceSite;
    com_ptr<IOleInPlaceFrame> m_frame;
    com_ptr<IOleAdviseHolder> m_advises;
    com_ptr<IAdviseSink> m_viewSink;
    HWND m_content = nullptr;
    SIZEL m_extent{8000, 5000}; // himetric, until the host says otherwise
    bool m_isActive = false;
    bool m_isUiActive = false;
    bool m_isLeaving = false;
};

} // namespace velk
