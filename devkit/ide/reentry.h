#pragma once

#include "devkit/contract/callMoment.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velk::devkit {

// One moment of one call: which function or member ("RZInitialize", "Windows.CreateToolWindow", "Window.Visible=" when
// it is set), its how manieth use from 1 on, and whether before or after its work.
struct CallPlace {
    std::wstring call;
    int occurrence = 1;
    CallMoment moment = CallMoment::begins;

    bool operator==(const CallPlace&) const = default;
};

// "Windows.CreateToolWindow#1", or with ".end" behind it; nothing when the text is no place.
std::optional<CallPlace> callPlace(const std::wstring& text);
std::wstring placeText(const CallPlace& place);

// Counts what an add-in asks of the IDE and, once the Backend is hooked, of the Backend, and does at one chosen place
// what a user or the IDE does when the one that was asked waits inside the call. One for the process, used on the
// user-interface thread.
class Reentry {
public:
    // Begins to count anew. The action is carried out once, inside the call; what it throws ends there.
    void plan(const CallPlace& place, std::function<void()> action);
    void count();
    bool wasReached() const { return m_isReached; }
    const std::map<std::wstring, int>& counts() const { return m_counts; }

    // The thread's messages are worked off inside every member of the automation tree.
    void setPumping(bool pumping) { m_isPumping = pumping; }
    // Somebody who watches all calls; null for nobody.
    void setObserver(std::function<void(const std::wstring& call, CallMoment moment)> observer);
    // Loads the stand-in Backend from the program's folder, once, and hears of its calls, too. The library stays.
    void hookBackend();

    void begin(const std::wstring& call) noexcept;
    void end() noexcept;

private:
    void pass(const CallPlace& here);

    std::map<std::wstring, int> m_counts;
    std::vector<CallPlace> m_open; // the calls that are under way, the innermost last
    std::optional<CallPlace> m_place;
    std::function<void()> m_action;
    std::function<void(const std::wstring&, CallMoment)> m_observer;
    bool m_isReached = false;
    bool m_isPumping = false;
};

Reentry& reentry();

// One use of a member.
class CallScope {
public:
    explicit CallScope(const std::wstring& call) noexcept { reentry().begin(call); }
    CallScope(const CallScope&) = delete;
    CallScope& operator=(const CallScope&) = delete;
    ~CallScope() { reentry().end(); }
};

} // namespace velk::devkit
