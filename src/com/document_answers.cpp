// The part of a hosted object that only answers questions: which interfaces, which extents, which state.
// Tested in tests/forms/serverview/serverViewDocTest.cpp.

#include "com/com_boundary.h"
#include "com/dispatch.h"
#include "com/document_object.h"

namespace velk {
namespace {

constexpr DWORD miscStatus =
    OLEMISC_RECOMPOSEONRESIZE | OLEMISC_INSIDEOUT | OLEMISC_ACTIVATEWHENVISIBLE | OLEMISC_SETCLIENTSITEFIRST;

template <class Interface, class... Interfaces>
void* firstOf(DocumentObject* object, REFIID iid) noexcept
{
    if (iid == __uuidof(Interface))
        return static_cast<Interface*>(object);
    if constexpr (sizeof...(Interfaces) > 0)
        return firstOf<Interfaces...>(object, iid);
    else
        return nullptr;
}

} // namespace

void* DocumentObject::hostedInterface(REFIID iid) noexcept
{
    if (iid == IID_IOleWindow)
        return static_cast<IOleWindow*>(static_cast<IOleInPlaceObject*>(this));
    if (iid == IID_IPersist)
        return static_cast<IPersist*>(static_cast<IPersistStreamInit*>(this));
    if (iid == IID_IViewObject)
        return static_cast<IViewObject*>(this);
    if (iid == IID_IProvideClassInfo)
        return static_cast<IProvideClassInfo*>(this);
    return firstOf<IOleInPlaceObject, IOleInPlaceActiveObject, IOleControl, IViewObject2, IPersistStreamInit,
                   IPersistStorage, IProvideClassInfo2, IOleDocument, IOleDocumentView>(this, iid);
}

// clang-format off
HRESULT DocumentObject::SetHostNames(LPCOLESTR, LPCOLESTR) noexcept { return S_OK; }
HRESULT DocumentObject::SetMoniker(DWORD, IMoniker*) noexcept { return E_NOTIMPL; }
HRESULT DocumentObject::GetMoniker(DWORD, DWORD, IMoniker**) noexcept { return E_NOTIMPL; }
HRESULT DocumentObject::InitFromData(IDataObject*, BOOL, DWORD) noexcept { return E_NOTIMPL; }
HRESULT DocumentObject::GetClipboardData(DWORD, IDataObject**) noexcept { return E_NOTIMPL; }
HRESULT DocumentObject::EnumVerbs(IEnumOLEVERB**) noexcept { return OLE_S_USEREG; }
HRESULT DocumentObject::Update() noexcept { return S_OK; }
HRESULT DocumentObject::IsUpToDate() noexcept { return S_OK; }
HRESULT DocumentObject::GetUserClassID(CLSID* id) noexcept { return GetClassID(id); }
HRESULT DocumentObject::GetUserType(DWORD, LPOLESTR*) noexcept { return OLE_S_USEREG; }
HRESULT DocumentObject::SetColorScheme(LOGPALETTE*) noexcept { return E_NOTIMPL; }
HRESULT DocumentObject::ContextSensitiveHelp(BOOL) noexcept { return E_NOTIMPL; }
HRESULT DocumentObject::ReactivateAndUndo() noexcept { return E_NOTIMPL; }
HRESULT DocumentObject::OnFrameWindowActivate(BOOL) noexcept { return S_OK; }
HRESULT DocumentObject::OnDocWindowActivate(BOOL) noexcept { return S_OK; }
HRESULT DocumentObject::ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) noexcept { return S_OK; }
HRESULT DocumentObject::EnableModeless(BOOL) noexcept { return S_OK; }
HRESULT DocumentObject::OnMnemonic(LPMSG) noexcept { return S_OK; }
HRESULT DocumentObject::OnAmbientPropertyChange(DISPID) noexcept { return S_OK; }
HRESULT DocumentObject::FreezeEvents(BOOL) noexcept { return S_OK; }
HRESULT DocumentObject::GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC, LOGPALETTE**) noexcept { return E_NOTIMPL; }
HRESULT DocumentObject::Freeze(DWORD, LONG, void*, DWORD*) noexcept { return E_NOTIMPL; }
HRESULT DocumentObject::Unfreeze(DWORD) noexcept { return E_NOTIMPL; }
HRESULT DocumentObject::IsDirty() noexcept { return S_FALSE; }
HRESULT DocumentObject::Save(IStream*, BOOL) noexcept { return S_OK; }
HRESULT DocumentObject::Save(IStorage*, BOOL) noexcept { return S_OK; }
HRESULT DocumentObject::SaveCompleted(IStorage*) noexcept { return S_OK; }
HRESULT DocumentObject::HandsOffStorage() noexcept { return S_OK; }
HRESULT DocumentObject::Load(IStream*) noexcept { return InitNew(); }
HRESULT DocumentObject::Load(IStorage*) noexcept { return InitNew(); }
HRESULT DocumentObject::InitNew(IStorage*) noexcept { return InitNew(); }
HRESULT DocumentObject::SetRectComplex(LPRECT, LPRECT, LPRECT, LPRECT) noexcept { return E_NOTIMPL; }
HRESULT DocumentObject::Open() noexcept { return E_NOTIMPL; }
HRESULT DocumentObject::SaveViewState(IStream*) noexcept { return E_NOTIMPL; }
HRESULT DocumentObject::ApplyViewState(IStream*) noexcept { return E_NOTIMPL; }
HRESULT DocumentObject::Clone(IOleInPlaceSite*, IOleDocumentView**) noexcept { return E_NOTIMPL; }
// clang-format on

HRESULT DocumentObject::InitNew() noexcept
{
    return atBoundary(L"IPersistStreamInit.InitNew", [this] { initProperties(); });
}

HRESULT DocumentObject::GetClassID(CLSID* id) noexcept
{
    if (!id)
        return E_POINTER;
    *id = clsid();
    return S_OK;
}

HRESULT DocumentObject::GetSizeMax(ULARGE_INTEGER* size) noexcept
{
    if (!size)
        return E_POINTER;
    size->QuadPart = 0;
    return S_OK;
}

HRESULT DocumentObject::SetExtent(DWORD aspect, SIZEL* extent) noexcept
{
    if (!extent || aspect != DVASPECT_CONTENT)
        return E_INVALIDARG;
    m_extent = *extent;
    return S_OK;
}

HRESULT DocumentObject::GetExtent(DWORD aspect, SIZEL* extent) noexcept
{
    if (!extent || aspect != DVASPECT_CONTENT)
        return E_INVALIDARG;
    *extent = m_extent;
    return S_OK;
}

HRESULT DocumentObject::GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*, LPSIZEL extent) noexcept
{
    return GetExtent(aspect, extent);
}

HRESULT DocumentObject::Advise(IAdviseSink* sink, DWORD* cookie) noexcept
{
    if (!m_advises && FAILED(CreateOleAdviseHolder(m_advises.put())))
        return E_OUTOFMEMORY;
    return m_advises->Advise(sink, cookie);
}

HRESULT DocumentObject::Unadvise(DWORD cookie) noexcept
{
    return m_advises ? m_advises->Unadvise(cookie) : OLE_E_NOCONNECTION;
}

HRESULT DocumentObject::EnumAdvise(IEnumSTATDATA** connections) noexcept
{
    if (!connections)
        return E_POINTER;
    *connections = nullptr;
    return m_advises ? m_advises->EnumAdvise(connections) : S_OK;
}

HRESULT DocumentObject::GetMiscStatus(DWORD aspect, DWORD* status) noexcept
{
    if (!status)
        return E_POINTER;
    *status = aspect == DVASPECT_CONTENT ? miscStatus : 0;
    return S_OK;
}

HRESULT DocumentObject::GetControlInfo(CONTROLINFO* info) noexcept
{
    if (!info)
        return E_POINTER;
    info->hAccel = nullptr;
    info->cAccel = 0;
    info->dwFlags = 0;
    return S_OK;
}

HRESULT DocumentObject::Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC target, LPCRECTL bounds, LPCRECTL,
                             BOOL(CALLBACK*)(ULONG_PTR), ULONG_PTR) noexcept
{
    if (aspect != DVASPECT_CONTENT || !bounds)
        return DV_E_DVASPECT;
    // The living window paints itself; a picture of an inactive object is an empty pane.
    const RECT area{bounds->left, bounds->top, bounds->right, bounds->bottom};
    FillRect(target, &area, GetSysColorBrush(COLOR_WINDOW));
    return S_OK;
}

HRESULT DocumentObject::SetAdvise(DWORD, DWORD, IAdviseSink* sink) noexcept
{
    m_viewSink = sink;
    return S_OK;
}

HRESULT DocumentObject::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) noexcept
{
    if (aspects)
        *aspects = DVASPECT_CONTENT;
    if (flags)
        *flags = 0;
    if (sink)
        m_viewSink.copyTo(sink);
    return S_OK;
}

HRESULT DocumentObject::GetClassInfo(ITypeInfo** info) noexcept
{
    if (!info)
        return E_POINTER;
    *info = nullptr;
    return atBoundary(L"IProvideClassInfo.GetClassInfo",
                      [&] { *info = typeInfoOf(TypeLibrary::published, clsid()).detach(); });
}

HRESULT DocumentObject::GetGUID(DWORD, GUID* guid) noexcept
{
    if (!guid)
        return E_POINTER;
    *guid = GUID_NULL; // no events of our own
    return E_INVALIDARG;
}

HRESULT DocumentObject::GetDocMiscStatus(DWORD* status) noexcept
{
    if (!status)
        return E_POINTER;
    *status = DOCMISC_CANTOPENEDIT | DOCMISC_NOFILESUPPORT;
    return S_OK;
}

HRESULT DocumentObject::EnumViews(IEnumOleDocumentViews** views, IOleDocumentView** single) noexcept
{
    if (!views || !single)
        return E_POINTER;
    *views = nullptr;
    com_ptr<IOleDocumentView>(this).copyTo(single);
    return S_OK;
}

} // namespace velk
