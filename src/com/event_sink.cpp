#include "com/event_sink.h"

#include "base/module.h"
#include "com/com_object.h"
#include "com/variant.h"

namespace velk {
namespace {

// Source interfaces of command bar events in the hosts of this family, tried when a source does not tell.
// clang-format off
constexpr IID knownSources[] = {
    {0x987FB893, 0xF96D, 0x11D0, {0xBB, 0xBB, 0x00, 0xA0, 0xC9, 0x0F, 0x27, 0x44}},
    {0x0002E131, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}},
    {0x00020400, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}}, // IDispatch itself
};
// clang-format on

// The arguments of Click(CommandBarControl, handled, CancelDefault), which come backwards.
enum FromTheEnd : UINT { controlArgument = 2, handledArgument = 1 };

// An argument without its reference; empty for one that is missing or refers to nothing.
variant argumentOf(const DISPPARAMS* arguments, FromTheEnd place)
{
    variant value;
    if (!arguments || place >= arguments->cArgs)
        return value;
    const VARIANTARG& raw = arguments->rgvarg[place];
    const bool refersToNothing = (raw.vt & VT_BYREF) && !raw.byref;
    if (!refersToNothing)
        VariantCopyInd(value.put(), const_cast<VARIANTARG*>(&raw));
    return value;
}

bool isTrue(const variant& value) noexcept
{
    bool truth = false;
    const auto unreadable = attempt([&] { truth = value.asBool(); });
    return !unreadable && truth;
}

// Answers to whatever event interface the source was found to have.
class Sink : public ComObject<Sink, IDispatch> {
public:
    Sink(REFIID iid, DISPID event, std::weak_ptr<const event_connection::Handler> handler)
        : m_iid(iid), m_event(event), m_handler(std::move(handler))
    {
    }
    void queryExtra(REFIID iid, void** out) noexcept
    {
        if (iid == m_iid)
            *out = static_cast<IDispatch*>(this);
    }
    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override
    {
        if (!count)
            return E_POINTER;
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override { return DISP_E_UNKNOWNNAME; }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*, EXCEPINFO*,
                        UINT*) noexcept override
    {
        if (id != m_event)
            return S_OK;
        // The handler may disconnect and so drop the last other reference to this sink, which holds it.
        const com_ptr<IUnknown> untilDone(identity());
        // A source that raises an event for all that listened when it began reaches those that left meanwhile, too.
        const auto handler = m_handler.lock();
        if (!handler)
            return S_OK;
        swallow(L"event sink", L"a host must not hear of our failures", [&] {
            (*handler)(
                {argumentOf(arguments, controlArgument).asObject(), isTrue(argumentOf(arguments, handledArgument))});
        });
        return S_OK;
    }

private:
    const IID m_iid;
    const DISPID m_event;
    const std::weak_ptr<const event_connection::Handler> m_handler; // gone with the connection
};

// A source that fails may say that it found a point and give none.
com_ptr<IConnectionPoint> findPoint(IConnectionPointContainer* container, IUnknown* source)
{
    com_ptr<IConnectionPoint> point;
    const auto isFound = [&](REFIID iid) {
        return SUCCEEDED(container->FindConnectionPoint(iid, point.put())) && point;
    };
    IID iid{};
    const auto classInfo = com_ptr<IUnknown>(source).tryAs<IProvideClassInfo2>();
    if (classInfo && SUCCEEDED(classInfo->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &iid)) && isFound(iid))
        return point;
    com_ptr<IEnumConnectionPoints> all;
    if (SUCCEEDED(container->EnumConnectionPoints(all.put())) && all && all->Next(1, point.put(), nullptr) == S_OK &&
        point)
        return point;
    for (const IID& known : knownSources)
        if (isFound(known))
            return point;
    throw Error::fromResult(CONNECT_E_NOCONNECTION);
}

} // namespace

void event_connection::connect(const com_ptr<IDispatch>& source, DISPID event, Handler handler)
{
    disconnect();
    if (!source)
        throw Error(errorObjectNotSet);
    const auto container = source.tryAs<IConnectionPointContainer>();
    if (!container)
        throw Error::fromResult(CONNECT_E_NOCONNECTION);
    const com_ptr<IConnectionPoint> point = findPoint(container.get(), source.get());
    IID iid{};
    throwIfFailed(point->GetConnectionInterface(&iid));
    auto shared = std::make_shared<const Handler>(std::move(handler));
    const com_ptr<Sink> sink = makeObject<Sink>(iid, event, shared);
    throwIfFailed(point->Advise(sink.get()->identity(), &m_cookie));
    m_point = point;
    m_handler = std::move(shared);
    // The host raises events only as long as somebody holds the source.
    m_source = source;
}

void event_connection::disconnect() noexcept
{
    m_handler.reset(); // first: the source may refuse to forget the sink
    if (const com_ptr<IConnectionPoint> point = std::move(m_point))
        point->Unadvise(std::exchange(m_cookie, 0));
    m_source.reset();
}

} // namespace velk
