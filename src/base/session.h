#pragma once

#include <memory>

namespace velk {

// How far a session has come. It only goes forwards; a start that comes to nothing leads back to loaded.
enum class SessionState { loaded, starting, running, ending, ended };

// The answer to "is the add-in's session over?". A value: its copies speak of the same session. The host may end a
// session inside any call that leaves the house (its own objects, the tool's library, a message box), so whoever holds
// one looks at it after each such call, before it goes on.
class Session {
public:
    Session();
    Session(const Session& other) noexcept; // and so for moves: none may be left without a life
    Session& operator=(const Session& other) noexcept;
    ~Session();

    // One that never ends, for what belongs to none. Unlike a new session it takes no memory.
    static Session none() noexcept;

    SessionState state() const noexcept { return m_life->state; }
    // Whether the end has begun, of this session or of the one that it is a part of.
    bool isOver() const noexcept;
    // Throws Error 5 when it is over: what would follow is work for nobody.
    void throwIfOver() const;
    void enter(SessionState state) const noexcept { m_life->state = state; }

    // A session within this one, for something that can go earlier than the whole, such as a window.
    Session part() const;
    // Whether both are the same session.
    bool operator==(const Session& other) const noexcept { return m_life == other.m_life; }

private:
    struct Life {
        SessionState state = SessionState::loaded;
        std::shared_ptr<const Life> whole;
    };
    explicit Session(std::shared_ptr<Life> life) noexcept : m_life(std::move(life)) {}
    std::shared_ptr<Life> m_life; // never null
};

} // namespace velk
