#include "serverview/FolderReading.h"

#include "serverview/publishedView.h"

namespace velk {
namespace {

// Milliseconds.
constexpr DWORD untilTold = 300;
constexpr DWORD betweenNumbers = 100;
constexpr DWORD betweenKeyLooks = 50;
constexpr DWORD betweenSignsOfLife = 1000; // the system waits for five seconds

// The key is meant for us in the view alone, and while nobody else is in front: no message tells this thread of a
// window that came there meanwhile.
bool hasAttention(HWND list) noexcept
{
    const DWORD inFront = GetWindowThreadProcessId(GetForegroundWindow(), nullptr);
    return inFront == GetCurrentThreadId() && IsChild(GetParent(list), GetFocus());
}

} // namespace

ReadingSenses& readingSenses() noexcept
{
    static ReadingSenses senses{[]() noexcept { return GetTickCount(); },
                                [](int key) noexcept { return GetAsyncKeyState(key) < 0; }};
    return senses;
}

FolderReading::FolderReading(const ListFilling& filling) noexcept
    : m_filling(filling), m_life(publishedView().life), m_begun(readingSenses().now()), m_lastLook(m_begun),
      m_keyLook(m_begun), m_shownLife(m_begun), m_wasKeyDown(readingSenses().isKeyDown(VK_ESCAPE))
{
    if (isShown())
        publishedView().notice->await();
}

// Another view may have taken the place of the one that the rows come to.
bool FolderReading::isShown() const noexcept
{
    return !isForNobody() && publishedView().life == m_life;
}

FolderReading::~FolderReading()
{
    if (m_isTold)
        SetCursor(m_pointer);
    if (!isShown())
        return; // the list is somebody else's, or gone
    ListNotice& notice = *publishedView().notice;
    if (m_isStopped)
        notice.endStopped(m_objects, readingSenses().now());
    else
        notice.setContents(m_hasSucceeded ? FolderContents::read : FolderContents::unreadable);
}

void FolderReading::look(DWORD now) noexcept
{
    m_lastLook = now;
    if (now - m_begun >= untilTold && (!m_isTold || now - m_told >= betweenNumbers))
        tell(now);
    if (now - m_shownLife >= betweenSignsOfLife)
        showLife(now);
    if (now - m_keyLook >= betweenKeyLooks) {
        m_keyLook = now;
        lookAtKey();
    }
}

void FolderReading::lookAtKey() noexcept
{
    const bool isDown = readingSenses().isKeyDown(VK_ESCAPE);
    m_wasKeyDown = isDown && m_wasKeyDown;
    m_isStopped = m_isStopped || (isDown && !m_wasKeyDown && m_isTold && isShown() &&
                                  hasAttention(publishedView().serverDetailsView->view().hwnd()));
}

void FolderReading::tell(DWORD now) noexcept
{
    if (!isShown())
        return;
    m_told = now;
    if (!std::exchange(m_isTold, true))
        m_pointer = SetCursor(LoadCursorW(nullptr, IDC_WAIT));
    publishedView().notice->tellNumber(m_objects);
}

// The system takes a window for dead when its thread has not asked for messages for five seconds. This asks for none
// that could be there, takes none away, and leaves those alone that are sent, where the system can tell them apart.
void FolderReading::showLife(DWORD now) noexcept
{
    m_shownLife = now;
    if (!isShown())
        return; // by something that the painting led to
    MSG none;
    PeekMessageW(&none, publishedView().serverDetailsView->view().hwnd(), WM_APP, WM_APP,
                 PM_NOREMOVE | PM_NOYIELD | PM_QS_POSTMESSAGE);
}

} // namespace velk
