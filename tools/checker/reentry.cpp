#include "checker/reentry.h"

namespace velk::check {
namespace {

constexpr wchar_t className[] = L"velkcheckReentry";
constexpr UINT askAgain = WM_APP + 1;

void select(Calls& calls, const HeardConnection& one)
{
    calls.plain(Fn::RZSetCurrentFolder, one.folders[0], folderKinds()[0].folder);
}
void refresh(Calls& calls, const HeardConnection& one)
{
    calls.plain(Fn::RZObjectDoAction, one.folders[0], actionRefresh);
}
void properties(Calls& calls, const HeardConnection& one)
{
    calls.plain(Fn::RZObjectDoAction, one.handle, actionProperties);
}
void hear(Calls& calls, const HeardConnection&)
{
    calls.next();
}
void text(Calls& calls, const HeardConnection&)
{
    constexpr int32_t anyText = 200;
    calls.text(anyText);
}
void fetchConnection(Calls& calls, const HeardConnection& one)
{
    WireRecord record = fetchOfKind(kindConnection)->record();
    calls.fill(Fn::RZConnectionGet, one.handle, record);
}
void enumerate(Calls& calls, const HeardConnection& one)
{
    const FolderKind& tables = folderKinds()[3];
    const EnumBegin begun = calls.enumBegin(tables.begin, one.folders[3]);
    calls.plain(tables.end, begun.enumeration);
}

using Outer = void (*)(Calls&, const HeardConnection&);
constexpr Outer outers[] = {select, refresh, properties, hear, text, fetchConnection, enumerate};

} // namespace

Reentry::~Reentry()
{
    m_bench.library.beforeCall = nullptr;
    if (m_window)
        DestroyWindow(m_window);
}

LRESULT CALLBACK Reentry::procedure(HWND window, UINT message, WPARAM first, LPARAM second) noexcept
{
    if (message != askAgain)
        return DefWindowProcW(window, message, first, second);
    auto* const self = reinterpret_cast<Reentry*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self && self->m_bench.library.depth() == 1)
        self->happen();
    return 0;
}

void Reentry::makeWindow()
{
    WNDCLASSW type{};
    type.lpfnWndProc = procedure;
    type.hInstance = GetModuleHandleW(nullptr);
    type.lpszClassName = className;
    RegisterClassW(&type);
    m_window = CreateWindowExW(0, className, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, type.hInstance, nullptr);
    SetWindowLongPtrW(m_window, GWLP_USERDATA, static_cast<LONG>(reinterpret_cast<uintptr_t>(this)));
    m_bench.library.beforeCall = [this] {
        MSG message{};
        if (!PeekMessageW(&message, m_window, askAgain, askAgain, PM_NOREMOVE))
            PostMessageW(m_window, askAgain, 0, 0);
    };
}

// Inside a call of the library, as a tick, a user or an IDE that closes.
void Reentry::happen()
{
    ++m_times;
    const bool isFetching = m_bench.probe.lastCall.name == rowOf(Fn::RZGetNotification).name;
    switch (m_isEnded ? hears : m_inner) {
    case hears: // a fetch is never made inside a fetch
        if (!isFetching && !m_isEnded)
            m_bench.calls.next();
        return;
    case selects:
        m_bench.calls.plain(Fn::RZSetCurrentFolder, m_connection.folders[1], folderKinds()[1].folder);
        return;
    case acts:
        m_bench.calls.plain(Fn::RZObjectDoAction, m_connection.handle, actionProperties);
        return;
    case enumerates: {
        const EnumBegin open = m_bench.calls.enumBegin(folderKinds()[0].begin, m_connection.folders[0]);
        m_bench.calls.plain(folderKinds()[0].end, open.enumeration);
        return;
    }
    default:
        m_isEnded = true;
        m_bench.calls.terminate();
    }
}

void Reentry::open(Inner inner)
{
    m_bench.library.beforeCall = nullptr;
    ScriptedSession& session = m_bench.opened();
    if (session.connections().empty())
        throw NotChecked{"the project has no connection"};
    m_connection = session.connections().front();
    m_inner = inner;
    m_isEnded = false;
    makeWindow();
}

void Reentry::settle()
{
    m_bench.library.beforeCall = nullptr;
    DestroyWindow(m_window);
    m_window = nullptr;
    if (m_isEnded)
        m_bench.forgetSession();
}

// Every kind of call, with the same thing inside of each.
void Reentry::tryAll(Inner inner)
{
    for (const Outer outer : outers)
        if (m_bench.probe.step()) {
            open(inner);
            outer(m_bench.calls, m_connection);
            settle();
        }
}

bool Reentry::run()
{
    for (int inner = hears; inner < innerCount; ++inner)
        tryAll(static_cast<Inner>(inner));
    m_bench.endSession();
    return m_times > 0;
}

} // namespace velk::check
