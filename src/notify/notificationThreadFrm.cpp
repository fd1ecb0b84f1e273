#include "notify/notificationThreadFrm.h"

#include "backend/calls.h"
#include "backend/texts.h"
#include "notify/handlers.h"
#include "platform/boundary.h"
#include "platform/text.h"
#include "platform/unique_any.h"
#include "ui/messageBox.h"

namespace velk {
namespace {

constexpr UINT_PTR timerThread = 1;
constexpr UINT timerInterval = 100; // milliseconds
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

// A Backend that answers "failed, and there is more" for ever must not keep the IDE in one tick: the next one tries
// again. One that fails now and then is drained to the end.
class Failures {
public:
    void count(int32_t status) noexcept
    {
        if (status != 0)
            m_inARow = 0;
        else if (m_inARow++ == 0)
            m_since = GetTickCount();
    }
    bool areBearable() const noexcept
    {
        constexpr int most = 1000;
        constexpr DWORD longest = 1000; // milliseconds
        return m_inARow == 0 || (m_inARow < most && GetTickCount() - m_since < longest);
    }

private:
    int m_inARow = 0;
    DWORD m_since = 0;
};

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

notificationThreadFrm::notificationThreadFrm() : Window(L"velkviadd.notificationThreadFrm")
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
    m_IMMgr = {};
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
    if (m_depth >= deepest)
        return;
    // A message box in a handler lets the IDE disconnect the add-in; the tick must still have something to return to.
    const auto untilDone = shared_from_this();
    ++m_depth;
    const scope_exit left([this] { --m_depth; });
    const Session session = m_IMMgr.session();
    if (const auto failure = attempt([this] { drain(); }))
        tellFailure(session, tellError, *failure);
}

void notificationThreadFrm::drain()
{
    Failures failures;
    bool more = true;
    while (more && !isOver() && failures.areBearable()) {
        trzNotify notification;
        const int32_t status = RZGetNotification(notification, more);
        failures.count(status);
        if (!isOver())
            dispatch(notification);
    }
}

void notificationThreadFrm::dispatch(const trzNotify& notification)
{
    const IntegrationMgr manager = m_IMMgr; // the form may be unloaded meanwhile
    for (const NotificationRow& row : notificationRows) {
        if (row.type != notification.lNotifyType)
            continue;
        if (const auto failure = attempt([&] { row.handler(manager, notification); }))
            tellFailure(manager.session(), row.failureText, *failure);
    }
}

} // namespace velk
