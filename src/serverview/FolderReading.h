#pragma once

#include "base/session.h"
#include "base/win32.h"
#include "serverview/viewAPIs.h"

#include <cstddef>

namespace velk {

// What a reading of a folder looks at beside the folder. Tests put others in their place.
struct ReadingSenses {
    DWORD (*now)() noexcept; // milliseconds
    bool (*isKeyDown)(int key) noexcept;
};
ReadingSenses& readingSenses() noexcept;

// The reading of a folder's objects, which may take long. From 300 ms on the pointer is the wait pointer and the list's
// area tells how many objects have come, which Esc in the view ends. No message of the thread's queue is carried out
// meanwhile; the system is shown that the thread lives, so that it does not take the IDE's windows for dead.
class FolderReading {
public:
    // The list's filling, which is under way as long.
    explicit FolderReading(const ListFilling& filling) noexcept;
    FolderReading(const FolderReading&) = delete;
    FolderReading& operator=(const FolderReading&) = delete;
    ~FolderReading();

    // One more object has come. Leaves the house at times: the view may be gone afterwards.
    void count() noexcept
    {
        ++m_objects;
        if (const DWORD now = readingSenses().now(); now != m_lastLook)
            look(now);
    }
    // Whether the user ended it, or its rows are not wanted any more.
    bool isOver() const noexcept { return m_isStopped || isForNobody(); }
    // The objects were enumerated to the end, or as far as the user wanted. Otherwise they could not be read.
    void succeed() noexcept { m_hasSucceeded = true; }

private:
    bool isForNobody() const noexcept { return m_life.isOver() || m_filling.isOvertaken(); }
    bool isShown() const noexcept;
    void look(DWORD now) noexcept;
    void lookAtKey() noexcept;
    void tell(DWORD now) noexcept;
    void showLife(DWORD now) noexcept;

    const ListFilling& m_filling;
    const Session m_life; // the view's
    DWORD m_begun;
    DWORD m_lastLook;
    DWORD m_keyLook;  // of the last look at the key
    DWORD m_told = 0; // when the number was shown
    DWORD m_shownLife;
    size_t m_objects = 0;
    bool m_wasKeyDown; // since the begin: only what is pressed meanwhile is meant for us
    bool m_isStopped = false;
    bool m_isTold = false;
    bool m_hasSucceeded = false;
    HCURSOR m_pointer = nullptr; // that of before the wait pointer
};

} // namespace velk
