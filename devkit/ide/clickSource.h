#pragma once

#include "devkit/ide/commandBars.h"

#include <map>

namespace velk::devkit {

// What Events.CommandBarEvents(control) hands out: the source of the control's clicks. It raises them only as long as
// somebody holds it, and only while the control has an action text.
class ClickSource : public AutomationObject {
public:
    explicit ClickSource(CommandBarControl* control);
    ~ClickSource() override;
    void raise();

protected:
    size_t memberCount() const override { return 0; }
    MemberName memberName(size_t) const override { return {L"", L""}; }
    variant read(size_t, const CallArguments&) override { return {}; }
    void write(size_t, const CallArguments&) override {}
    void* ownInterface(REFIID iid) noexcept override;

private:
    struct Point : IConnectionPoint {
        explicit Point(ClickSource& source) : owner(source) {}
        ClickSource& owner;
        STDMETHODIMP QueryInterface(REFIID iid, void** out) noexcept override;
        STDMETHODIMP_(ULONG) AddRef() noexcept override { return owner.AddRef(); }
        STDMETHODIMP_(ULONG) Release() noexcept override { return owner.Release(); }
        STDMETHODIMP GetConnectionInterface(IID* iid) noexcept override;
        STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) noexcept override;
        STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) noexcept override;
        STDMETHODIMP Unadvise(DWORD cookie) noexcept override;
        STDMETHODIMP EnumConnections(IEnumConnections**) noexcept override { return E_NOTIMPL; }
    };
    struct Container : IConnectionPointContainer {
        explicit Container(ClickSource& source) : owner(source) {}
        ClickSource& owner;
        STDMETHODIMP QueryInterface(REFIID iid, void** out) noexcept override { return owner.QueryInterface(iid, out); }
        STDMETHODIMP_(ULONG) AddRef() noexcept override { return owner.AddRef(); }
        STDMETHODIMP_(ULONG) Release() noexcept override { return owner.Release(); }
        STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints**) noexcept override { return E_NOTIMPL; }
        STDMETHODIMP FindConnectionPoint(REFIID iid, IConnectionPoint** point) noexcept override;
    };

    com_ptr<CommandBarControl> m_control;
    std::map<DWORD, com_ptr<IDispatch>> m_sinks;
    DWORD m_lastCookie = 0;
    Point m_point{*this};
    Container m_container{*this};
};

} // namespace velk::devkit
