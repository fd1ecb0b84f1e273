#pragma once

#include "devkit/ide/reentry.h"
#include "devkit/ide/shell.h"

#include <set>
#include <string>
#include <vector>

namespace velk::devkit {

// Watches that the rules of a session are kept in whatever order its calls come: one RZInitialize, one RZTerminate, and
// from the moment RZTerminate begins nothing else but texts until the next RZInitialize.
class SessionWatch {
public:
    SessionWatch();
    SessionWatch(const SessionWatch&) = delete;
    SessionWatch& operator=(const SessionWatch&) = delete;
    ~SessionWatch();

    // What was done wrong since it was asked last, also what the Backend itself saw.
    std::vector<std::wstring> takeProblems();
    bool isOpen() const { return m_isOpen; }
    // Ends a session that was left open, so that the next life finds none.
    void closeForNext();

private:
    void hear(const std::wstring& call, CallMoment moment);

    std::set<std::wstring> m_problems;
    bool m_isOpen = false;
    bool m_isOver = false;
    int m_breaches = 0;
};

// How the stand-in Backend counts: breaches since it was loaded, and whether its own thread has work.
int backendBreaches();
bool backendIsWorking();

// Everything on the bars of an IDE, and its windows, as text.
std::wstring furniture(Shell& shell);

// What of the add-in is still in this process: its windows, its window classes, its library. Asks COM to unload what
// may go.
std::vector<std::wstring> leftInProcess();

} // namespace velk::devkit
