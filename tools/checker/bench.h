#pragma once

#include "checker/counts.h"
#include "checker/scriptedSession.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace velk::check {

// What a process held before and after so many sessions.
struct Growth {
    int sessions = 0;
    Counts before, after;
};

// What the checks of one level share in the child: the library, and the sessions that several of them look at.
class Bench {
public:
    explicit Bench(Pad& pad) : m_pad(pad), probe(pad), library(probe), calls(probe, library) {}
    Bench(const Bench&) = delete;
    Bench& operator=(const Bench&) = delete;

private:
    Pad& m_pad;

public:
    Probe probe;
    Library library;
    Calls calls;

    const PadData& asked() const noexcept { return *m_pad.operator->(); }
    Pad& pad() noexcept { return m_pad; }
    // The project file in the ANSI code page; without one the check ends.
    std::string projectFile() const;
    // That, or a file that is not there, for a session that opens none.
    std::string anyProjectFile() const;
    unsigned long patience() const noexcept { return m_pad->patience; }

    // Objects of a folder that are looked at one by one.
    size_t mostEnumerated() const noexcept;

    // The library is loaded, or the check ends.
    void load();
    // A new session, with the project open, its connections connected, and each folder read once.
    ScriptedSession& newSession();
    ScriptedSession& opened();
    // The session of level 5, which opens, connects, selects, refreshes, asks for properties and closes.
    ScriptedSession& script();
    // Everything that brings a text and only reads: properties, sources, client code, data-environment objects.
    void askForTexts(ScriptedSession& session);
    void endSession();
    void forgetSession(); // which was ended behind its back
    // Leads the sessions of level 9, once.
    const Growth& growth();

    // The checks that came to their end in this process.
    void setDone(void (*check)(Bench& bench)) { m_done.push_back(check); }
    bool isDone(void (*check)(Bench& bench)) const
    {
        return std::find(m_done.begin(), m_done.end(), check) != m_done.end();
    }

    // What the first RZInitialize of all answered.
    std::optional<int32_t> firstAnswer;

    // What was done of the script, for the checks that look at a single step.
    struct Step {
        std::string name; // of the call that was made, with its arguments
        std::string arguments;
        bool isHeard;
    };
    const std::vector<Step>& selections() const noexcept { return m_selections; }
    const std::vector<Step>& connectings() const noexcept { return m_connectings; }
    bool isClosed() const noexcept { return m_isClosed; }
    bool isCloseHeard() const noexcept { return m_isCloseHeard; }

private:
    void beginScript(ScriptedSession& session);
    void walkFolders(ScriptedSession& session);
    void walkConnections(ScriptedSession& session);
    void leadSession(std::optional<size_t> connections);
    static Counts settledCounts(const Counts* before);

    std::vector<void (*)(Bench& bench)> m_done;
    std::unique_ptr<ScriptedSession> m_session;
    bool m_isScript = false;
    std::optional<size_t> m_connectionCount; // of the sessions so far
    std::optional<Growth> m_growth;
    bool m_isClosed = false;
    bool m_isCloseHeard = false;
    std::vector<Step> m_selections;
    std::vector<Step> m_connectings;
};

} // namespace velk::check
