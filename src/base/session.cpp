#include "base/session.h"

#include "base/error.h"
#include "base/never_destroyed.h"

namespace velk {

Session::Session() : m_life(std::make_shared<Life>())
{
}

// Not in the header: each place that copies one would have the counting of references written out.
Session::Session(const Session& other) noexcept = default;
Session& Session::operator=(const Session& other) noexcept = default;
Session::~Session() = default;

Session Session::none() noexcept
{
    static never_destroyed<Life> endless;
    // Nobody owns it: no memory is taken that could be missing, or stay behind.
    return Session(std::shared_ptr<Life>(std::shared_ptr<Life>(), &endless.get()));
}

bool Session::isOver() const noexcept
{
    for (const Life* life = m_life.get(); life; life = life->whole.get())
        if (life->state >= SessionState::ending)
            return true;
    return false;
}

void Session::throwIfOver() const
{
    if (isOver())
        throw Error(errorInvalidCall);
}

Session Session::part() const
{
    Session within;
    within.m_life->whole = m_life;
    return within;
}

} // namespace velk
