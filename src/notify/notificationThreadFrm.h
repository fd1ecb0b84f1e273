#pragma once

#include "backend/library.h"
#include "backend/records.h"
#include "model/IntegrationMgr.h"
#include "window/window.h"

#include <memory>

namespace velk {

// The hidden form whose timer drains the tool's notifications, ten times a second, and carries each of them out. A tick
// that has worked for a tenth of a second leaves the rest to the next, which is due by then, and lets the IDE answer
// what waits. The form is the only reader of the queue. Ticks come on the user-interface thread; one can begin inside
// another only while a message box of the outer one runs its own message loop, and that is harmless.
class notificationThreadFrm : public Window, public std::enable_shared_from_this<notificationThreadFrm> {
public:
    // Makes the form; its timer runs from then on. The form lives as long as its owner, or as a tick that is still
    // on the stack when the owner lets go.
    static std::shared_ptr<notificationThreadFrm> load();
    ~notificationThreadFrm() override;

    // The integration manager, to be set before the first tick finds a notification. What the pump does belongs to the
    // manager's session: nothing more is fetched, carried out or told once that is over.
    void setIMMgr(IntegrationMgr manager) { m_IMgr = std::move(manager); }
    // Ends the form: no Backend call follows, also not from a tick that waits in a message box.
    void unload() noexcept;

    void timerThread_Timer() noexcept;
    // Whether the last tick left something to the next.
    bool hasRest() const noexcept { return m_hasRest; }

protected:
    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    // A Backend that answers "failed, and there is more" for ever must not keep the IDE in one tick: the next one tries
    // again, for a moment only until something succeeds. One that fails now and then is drained to the end.
    class Failures {
    public:
        void beginDrain() noexcept { m_inARow = 0; }
        void count(int32_t status) noexcept;
        bool areBearable() noexcept;

    private:
        int m_inARow = 0; // in this tick, and those that left it a rest
        DWORD m_since = 0;
        bool m_isGivenUp = false; // by an earlier tick, with no success since
    };

    notificationThreadFrm();
    void drain();
    void dispatch(const trzNotify& notification);
    bool isOver() const noexcept { return !hwnd() || m_IMgr.session().isOver() || isBackendGivenUp(); }

    IntegrationMgr m_IMgr;
    Failures m_failures;
    int m_depth = 0; // of ticks within ticks
    bool m_hasRest = false;
};

} // namespace velk
