#pragma once

#include "com/com_object.h"
#include "com/variant.h"

#include <span>

namespace velk::test {

// A source of command bar events with one connection, as an IDE hands it out for a control.
class FakeEvents : public ComObject<FakeEvents, IDispatch, IConnectionPointContainer, IConnectionPoint> {
public:
    // What the IDE does when the user clicks; nothing when nobody listens. Handled: by another add-in, before.
    void click(IDispatch* control, bool isHandled = false)
    {
        VARIANT_BOOL handled = isHandled ? VARIANT_TRUE : VARIANT_FALSE;
        VARIANT_BOOL cancel = VARIANT_FALSE;
        VARIANTARG arguments[3]{};
        arguments[0].vt = VT_BYREF | VT_BOOL;
        arguments[0].pboolVal = &cancel;
        arguments[1].vt = VT_BYREF | VT_BOOL;
        arguments[1].pboolVal = &handled;
        arguments[2].vt = VT_DISPATCH;
        arguments[2].pdispVal = control;
        raise(1, arguments);
    }
    // An event with these arguments, backwards as automation has them.
    void raise(DISPID event, std::span<VARIANTARG> backwards)
    {
        DISPPARAMS parameters{backwards.data(), nullptr, static_cast<UINT>(backwards.size()), 0};
        raise(event, &parameters);
    }
    void raise(DISPID event, DISPPARAMS* parameters)
    {
        // Not held during the call: a sink has to look after itself.
        if (IDispatch* sink = m_sink.get())
            sink->Invoke(event, IID_NULL, 0, DISPATCH_METHOD, parameters, nullptr, nullptr, nullptr);
    }
    bool isConnected() const { return static_cast<bool>(m_sink); }
    bool keepsSink = false;  // as one does that raises its events from a list that it made before
    bool losesPoint = false; // it says that it found its point, and gives none

    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP FindConnectionPoint(REFIID iid, IConnectionPoint** point) noexcept override
    {
        *point = nullptr;
        if (losesPoint)
            return S_OK;
        if (iid != source)
            return CONNECT_E_NOCONNECTION;
        com_ptr<IConnectionPoint>(this).copyTo(point);
        return S_OK;
    }
    STDMETHODIMP GetConnectionInterface(IID* iid) noexcept override
    {
        *iid = source;
        return S_OK;
    }
    STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) noexcept override
    {
        com_ptr<IConnectionPointContainer>(this).copyTo(container);
        return S_OK;
    }
    STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) noexcept override
    {
        m_sink = com_ptr<IUnknown>(sink).tryAs<IDispatch>(source);
        *cookie = 7;
        return m_sink ? S_OK : CONNECT_E_CANNOTCONNECT;
    }
    STDMETHODIMP Unadvise(DWORD cookie) noexcept override
    {
        if (cookie != 7 || keepsSink)
            return CONNECT_E_NOCONNECTION;
        m_sink.reset();
        return S_OK;
    }
    STDMETHODIMP EnumConnections(IEnumConnections**) noexcept override { return E_NOTIMPL; }

    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override
    {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override { return DISP_E_UNKNOWNNAME; }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) noexcept override
    {
        return DISP_E_MEMBERNOTFOUND;
    }

private:
    static constexpr IID source{0x987FB893, 0xF96D, 0x11D0, {0xBB, 0xBB, 0x00, 0xA0, 0xC9, 0x0F, 0x27, 0x44}};
    com_ptr<IDispatch> m_sink;
};

} // namespace velk::test
