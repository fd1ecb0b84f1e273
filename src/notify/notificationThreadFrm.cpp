#include "notify/notificationThreadFrm.h"

#include "backend/calls.h"
#include "backend/texts.h"
#include "base/boundary.h"
#include "base/text.h"
#include "base/unique_any.h"
#include "notify/handlers.h"
#include "ui/messageBox.h"

#include <product.h>

namespace velk {
namespace {

constexpr UINT_PTR timerThread = 1;
constexpr UINT timerInterval = 100; // milliseconds
constexpr DWORD longestTick = 100;  // milliseconds; the timer is due again by then
constexpr int deepest = 30;

using Handler = void (*)(const IntegrationMgr& manager, const trzNotify& notification);

// How a handler's failure is told to the user: by a text of the tool, by the error itself, or not at all.
constexpr int32_t tellError = 0;
constexpr int32_t tellNothing = -1;

struct NotificationRow {
    int32_t type;
    Handler handler;
    int32_t failureText;
};

// clang-format off
constexpr NotificationRow notificationRows[] = {
    { 2, handleText,           tellNothing},
    { 3, handleSQLText,        659},
    { 4, handleADOText,        660},
    { 5, handleFolderContents, tellNothing},
    { 6, handleObjectChanged,  tellError},
    { 7, handleObjectRemoved,  658},
    { 8, handleObjectAdded,    657},
    { 9, handleConnectionDE,   655},
    {10, handleCommandDE,      656},
};
// clang-format on

std::wstring errorText(const Error& error)
{
    return numberText(error.number()) + L", " + error.description() + L", " + error.source();
}

void tellFailure(const Session& session, int32_t failureText, const Error& error) noexcept
{
    reportFailure(L"notification", L"the pump goes on with the next one", error);
    if (failureText == tellNothing)
        return;
    swallow(L"notification", L"there is no other way to tell the user", [&] {
        const std::wstring told = failureText == tellError ? errorText(error) : getRZString(failureText);
        // What fails because the session went is no news to anybody, and its host may be closing.
        if (!session.isOver())
            showMessage(told);
    });
}

} // namespace

void notificationThreadFrm::Failures::count(int32_t status) noexcept
{
    if (status != 0)
        *this = {};
    else
        ++m_inARow;
}

bool notificationThreadFrm::Failures::areBearable() noexcept
{
    struct Allowance {
        int calls;
        DWORD time; // milliseconds
    };
    constexpr Allowance first{1000, 1000};
    constexpr Allowance further{50, 50};
    const Allowance most = m_isGivenUp ? further : first;
    if (m_inARow == 0)
        m_since = GetTickCount(); // before the call that may be the first to fail, which may be slow
    if (m_inARow == 0 || (m_inARow < most.calls && GetTickCount() - m_since < most.time))
        return true;
    m_isGivenUp = true;
    return false;
}

notificationThreadFrm::notificationThreadFrm() : Window(VELK_OWN_NAME("notificationThreadFrm"))
{
    create({HWND_MESSAGE});
    throwLastErrorUnless(SetTimer(hwnd(), timerThread, timerInterval, nullptr) != 0);
}

std::shared_ptr<notificationThreadFrm> notificationThreadFrm::load()
{
    return std::shared_ptr<notificationThreadFrm>(new notificationThreadFrm);
}

notificationThreadFrm::~notificationThreadFrm()
{
    destroy();
}

void notificationThreadFrm::unload() noexcept
{
    destroy(); // and the timer with it
    m_IMgr = {};
}

LRESULT notificationThreadFrm::handle(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message != WM_TIMER)
        return handleDefault(message, wParam, lParam);
    timerThread_Timer();
    return 0; // the form may be gone by now
}

void notificationThreadFrm::timerThread_Timer() noexcept
{
    // Each box that a handler shows lets further ticks run above it. A user who is away must not find the stack full.
    // Nor is a tool that works off messages while it is asked for a notification asked for another one in between.
    if (m_depth >= deepest || m_isFetching)
        return;
    // A message box in a handler lets the IDE disconnect the add-in; the tick must still have something to return to.
    const auto untilDone = shared_from_this();
    ++m_depth;
    const scope_exit left([this] { --m_depth; });
    const Session session = m_IMgr.session();
    if (const auto failure = attempt([this] { drain(); }))
        tellFailure(session, tellError, *failure);
}

void notificationThreadFrm::drain()
{
    if (!std::exchange(m_hasRest, false))
        m_failures.beginDrain();
    const DWORD begun = GetTickCount();
    bool more = true;
    while (more && !isOver() && m_failures.areBearable()) {
        m_hasRest = GetTickCount() - begun >= longestTick;
        if (m_hasRest)
            return;
        trzNotify notification;
        const int32_t status = fetch(notification, more);
        m_failures.count(status);
        if (!isOver())
            dispatch(notification);
    }
}

int32_t notificationThreadFrm::fetch(trzNotify& notification, bool& more)
{
    m_isFetching = true;
    const scope_exit fetched([this] { m_isFetching = false; });
    return RZGetNotification(notification, more);
}

void notificationThreadFrm::dispatch(const trzNotify& notification)
{
    const IntegrationMgr manager = m_IMgr; // the form may be unloaded meanwhile
    for (const NotificationRow& row : notificationRows) {
        if (row.type != notification.lNotifyType)
            continue;
        if (const auto failure = attempt([&] { row.handler(manager, notification); }))
            tellFailure(manager.session(), row.failureText, *failure);
    }
}

} // namespace velk
