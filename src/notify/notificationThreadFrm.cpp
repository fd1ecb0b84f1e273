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

std::wstring errorText(const Error& error)
{
    return numberText(error.number()) + L", " + error.description() + L", " + error.source();
}

void tellFailure(int32_t failureText, const Error& error) noexcept
{
    reportFailure(L"notification", L"the pump goes on with the next one", error);
    swallow(L"notification", L"there is no other way to tell the user", [&] {
        if (failureText != tellNothing)
            showMessage(failureText == tellError ? errorText(error) : getRZString(failureText));
    });
}

} // namespace

uint32_t notificationThreadFrm::s_generation = 0;

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
    m_isUnloaded = true;
    ++s_generation;
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
    if (const auto failure = attempt([this] { drain(); }))
        tellFailure(tellError, *failure);
}

void notificationThreadFrm::drain()
{
    bool more = true;
    while (more && !m_isUnloaded) {
        trzNotify notification;
        const int32_t status = RZGetNotification(notification, more);
        dispatch(notification);
        // A Backend that fails and still promises more would keep the IDE here for ever.
        if (status == 0)
            return;
    }
}

void notificationThreadFrm::dispatch(const trzNotify& notification)
{
    for (const NotificationRow& row : notificationRows) {
        if (row.type != notification.lNotifyType)
            continue;
        if (const auto failure = attempt([&] { row.handler(IntegrationMgr(m_IMMgr), notification); }))
            tellFailure(row.failureText, *failure);
    }
}

} // namespace velk
