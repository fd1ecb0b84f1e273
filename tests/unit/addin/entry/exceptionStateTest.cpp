// Threads that throw, more of them than there are places for what the run-time keeps of a thread's exceptions.
#include "base/unique_any.h"
#include "devkit/base/thread.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velk {
namespace {

constexpr int places = 64;

// Throws and catches on a thread of its own, and says what came.
std::string caughtOnAThread(const std::string& thrown)
{
    std::string caught;
    devkit::Thread([&]() noexcept {
        try {
            throw thrown;
        } catch (const std::string& text) {
            caught = text;
        }
    }).join();
    return caught;
}

DWORD WINAPI endInsideAHandler(LPVOID) noexcept
{
    try {
        throw 1;
    } catch (int) {
        ExitThread(0);
    }
}

// Its number is not given to another one as long as it is open.
unique_kernel_handle threadThatEndedInsideAHandler()
{
    unique_kernel_handle thread(CreateThread(nullptr, 0, &endInsideAHandler, nullptr, 0, nullptr));
    throwLastErrorUnless(static_cast<bool>(thread));
    WaitForSingleObject(thread.get(), INFINITE);
    return thread;
}

// Stays inside a handler until it may go on, and throws what it caught once more.
class WaitingInAHandler {
public:
    WaitingInAHandler()
        : m_thread([this]() noexcept {
              try {
                  try {
                      throw std::string("mine");
                  } catch (const std::string&) {
                      m_caught.give();
                      m_mayGoOn.wait();
                      throw;
                  }
              } catch (const std::string& text) {
                  m_text = text;
              }
          })
    {
        m_caught.wait();
    }
    ~WaitingInAHandler() { m_mayGoOn.give(); }
    std::string goOn()
    {
        m_mayGoOn.give();
        m_thread.join();
        return m_text;
    }

private:
    devkit::Signal m_caught;
    devkit::Signal m_mayGoOn;
    std::string m_text;
    devkit::Thread m_thread;
};

TEST(ExceptionState, threadsThatComeAndGo_useOnePlaceAgain)
{
    for (int thread = 0; thread < 3 * places; ++thread)
        ASSERT_EQ(caughtOnAThread("thread " + std::to_string(thread)), "thread " + std::to_string(thread));
}

TEST(ExceptionState, moreThreadsThanPlacesEndedInsideAHandler_leaveThoseWhoComeAndThoseWhoWaitTheirs)
{
    WaitingInAHandler waiting;
    std::vector<unique_kernel_handle> ended;
    for (int thread = 0; thread < 2 * places; ++thread)
        ended.push_back(threadThatEndedInsideAHandler());
    EXPECT_EQ(caughtOnAThread("another"), "another");
    EXPECT_EQ(waiting.goOn(), "mine");
}

} // namespace
} // namespace velk
