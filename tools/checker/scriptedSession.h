#pragma once

#include "checker/heard.h"

#include <functional>
#include <string>
#include <vector>

namespace velk::check {

// A session as the add-in leads it: asks for notifications, fetches what they bring, and keeps what it learns of the
// open project. What it hears is written down; the checks read that afterwards.
class ScriptedSession {
public:
    // Patience: how long nothing must come before it is thought that nothing will, in milliseconds.
    ScriptedSession(Probe& probe, Calls& calls, unsigned long patience)
        : m_probe(probe), m_calls(calls), m_patience(patience)
    {
    }
    ScriptedSession(const ScriptedSession&) = delete;
    ScriptedSession& operator=(const ScriptedSession&) = delete;

    Calls& calls() noexcept { return m_calls; }

    int32_t begin(const std::string& projectFile);
    int32_t end();
    // The project file that the session was begun with is opened, and all connections of it are waited for.
    void open();
    void open(const std::string& folder, const std::string& file);
    // The same, and no longer than until it is enough.
    void openQuickly(const std::function<bool()>& isEnough);
    // Each of these waits for the notification that belongs to it: false when it ought to have come and did not.
    bool select(int32_t folder, int32_t kind);
    bool refresh(int32_t folder);
    bool connect(int32_t connection) { return switchConnection(connection, actionConnect); }
    bool disconnect(int32_t connection) { return switchConnection(connection, actionDisconnect); }
    bool close();
    static constexpr const char* closingStep = "closing of the project";
    // What the object's action brings.
    int32_t act(int32_t handle, int32_t action);

    // Hears what comes until it is enough, for many times the patience; or until nothing comes any more.
    bool listen(const std::function<bool(const Heard&)>& isEnough);
    void listen();
    // Whether something had waited.
    bool hearsMore();
    // Takes one notification, if one waits, and what it brings.
    bool hearOne();
    std::vector<RecordCopy> enumerate(int32_t folder, int32_t kind);

    Fetching fetching;
    bool answersQuestions = true;
    size_t mostEnumerated = 0; // objects that are looked at one by one: E2 looks for the end of a folder

    const std::vector<Heard>& heard() const noexcept { return m_heard; }
    const std::vector<Notify>& empty() const noexcept { return m_empty; } // what came when nothing waited
    // The steps in which a call said that more wait and the next one had nothing.
    const std::vector<std::string>& brokenPromises() const noexcept { return m_brokenPromises; }
    bool isEndless() const noexcept { return m_isEndless; }
    int32_t project() const noexcept { return m_known.handle(); }
    int32_t beginAnswer() const noexcept { return m_beginAnswer; }
    int32_t openAnswer() const noexcept { return m_openAnswer; } // of the last opening of a project
    const std::vector<HeardConnection>& connections() const noexcept { return m_known.connections(); }

private:
    static constexpr size_t mostFetchedTwice = 500;
    static constexpr size_t mostAtOnce = 10'000;

    bool listenForContents(int32_t folder);
    bool switchConnection(int32_t connection, int32_t action);
    bool isConnectedNow(int32_t connection);
    void answerQuestion(const Heard& heard);

    Probe& m_probe;
    Calls& m_calls;
    unsigned long m_patience;
    std::string m_step;
    std::string m_projectFile;
    std::vector<Heard> m_heard;
    std::vector<Notify> m_empty;
    std::vector<std::string> m_brokenPromises;
    bool m_isPromised = false;
    int m_actings = 0;
    int m_pauses = 0;
    KnownProject m_known;
    int32_t m_beginAnswer = 0;
    int32_t m_openAnswer = 0;
    size_t m_withoutPause = 0;
    bool m_isEndless = false;
};

} // namespace velk::check
