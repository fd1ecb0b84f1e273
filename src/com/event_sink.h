#pragma once

#include "com/com_ptr.h"

#include <functional>
#include <memory>

namespace velk {

// What a command bar's click tells its handlers. What a source left out, or gave in a form that nobody can read, is
// null or false.
struct click_event {
    com_ptr<IDispatch> control;
    bool isHandled = false; // another add-in has dealt with it: who hears of it now does nothing
};

// A connection to an object's events. Disconnected before the source is released, at the latest by the destructor. From
// then on the handler hears nothing, whatever the source still sends.
class event_connection {
public:
    event_connection() = default;
    event_connection(const event_connection&) = delete;
    event_connection& operator=(const event_connection&) = delete;
    ~event_connection() { disconnect(); }

    // Connects to the source's default event interface, found at run time, because the kin of a host differ in its
    // identity. The handler hears of each event of that number; what it throws is reported and swallowed. Throws when
    // the source has no events.
    using Handler = std::function<void(const click_event& click)>;
    void connect(const com_ptr<IDispatch>& source, DISPID event, Handler handler);
    void disconnect() noexcept;

private:
    com_ptr<IDispatch> m_source;
    com_ptr<IConnectionPoint> m_point;
    std::shared_ptr<const Handler> m_handler; // shared with its calls that are under way
    DWORD m_cookie = 0;
};

} // namespace velk
