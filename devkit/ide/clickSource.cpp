#include "devkit/ide/clickSource.h"

#include "com/com_boundary.h"

#include "devkit/automation/faults.h"
#include "devkit/ide/recorder.h"
#include "devkit/ide/reentry.h"

#include <algorithm>

namespace velk::devkit {
namespace {

// The source interface of command bar events in this family of environments.
constexpr IID clickEvents{0x987FB893, 0xF96D, 0x11D0, {0xBB, 0xBB, 0x00, 0xA0, 0xC9, 0x0F, 0x27, 0x44}};
constexpr DISPID click = 1;

} // namespace

ClickSource::ClickSource(CommandBarControl* control) : AutomationObject(L"CommandBarEvents"), m_control(control)
{
    control->sources.push_back(this);
}

ClickSource::~ClickSource()
{
    std::erase(m_control->sources, this);
}

void* ClickSource::ownInterface(REFIID iid) noexcept
{
    return iid == IID_IConnectionPointContainer ? &m_container : nullptr;
}

void ClickSource::raise()
{
    const auto sinks = m_sinks; // a sink may disconnect while it is called
    VARIANT_BOOL handled = VARIANT_FALSE;
    VARIANT_BOOL cancel = VARIANT_FALSE;
    for (const auto& [cookie, sink] : sinks) {
        VARIANTARG arguments[3]{};
        arguments[0].vt = VT_BYREF | VT_BOOL;
        arguments[0].pboolVal = &cancel;
        arguments[1].vt = VT_BYREF | VT_BOOL;
        arguments[1].pboolVal = &handled;
        arguments[2].vt = VT_DISPATCH;
        arguments[2].pdispVal = m_control.get();
        DISPPARAMS parameters{arguments, nullptr, 3, 0};
        sink->Invoke(click, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr);
    }
}

HRESULT ClickSource::Container::FindConnectionPoint(REFIID iid, IConnectionPoint** point) noexcept
{
    *point = nullptr;
    if (const auto fault = faultOf(L"CommandBarEvents.FindConnectionPoint"))
        return *fault;
    if (iid != clickEvents)
        return CONNECT_E_NOCONNECTION;
    *point = &owner.m_point;
    owner.AddRef();
    return S_OK;
}

HRESULT ClickSource::Point::QueryInterface(REFIID iid, void** out) noexcept
{
    if (iid != IID_IConnectionPoint && iid != IID_IUnknown)
        return owner.QueryInterface(iid, out);
    *out = static_cast<IConnectionPoint*>(this);
    owner.AddRef();
    return S_OK;
}

HRESULT ClickSource::Point::GetConnectionInterface(IID* iid) noexcept
{
    if (const auto fault = faultOf(L"CommandBarEvents.GetConnectionInterface"))
        return *fault;
    *iid = clickEvents;
    return S_OK;
}

HRESULT ClickSource::Point::GetConnectionPointContainer(IConnectionPointContainer** container) noexcept
{
    *container = &owner.m_container;
    owner.AddRef();
    return S_OK;
}

HRESULT ClickSource::Point::Advise(IUnknown* sink, DWORD* cookie) noexcept
{
    return atBoundary(L"Advise", [&] {
        const com_ptr<AutomationObject> untilDone(&owner);
        const CallScope inside(L"CommandBarEvents.Advise");
        if (const auto fault = faultOf(L"CommandBarEvents.Advise"))
            return *fault;
        const auto dispatch = com_ptr<IUnknown>(sink).tryAs<IDispatch>(clickEvents);
        if (!dispatch)
            return CONNECT_E_CANNOTCONNECT;
        *cookie = ++owner.m_lastCookie;
        owner.m_sinks[*cookie] = dispatch;
        recorder().write(owner.m_control->label() + L" click connected");
        return S_OK;
    });
}

HRESULT ClickSource::Point::Unadvise(DWORD cookie) noexcept
{
    return atBoundary(L"Unadvise", [&] {
        const com_ptr<AutomationObject> untilDone(&owner);
        const CallScope inside(L"CommandBarEvents.Unadvise");
        if (const auto fault = faultOf(L"CommandBarEvents.Unadvise"))
            return *fault;
        if (!owner.m_sinks.erase(cookie))
            return CONNECT_E_NOCONNECTION;
        recorder().write(owner.m_control->label() + L" click disconnected");
        return S_OK;
    });
}

} // namespace velk::devkit
