#pragma once

#include "base/unique_any.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace velk::check {

inline constexpr size_t mostRules = 256;

// What parent and child write for each other, in memory that both have. The child's own state is there, too, so that
// the parent knows what it was about when it ended.
struct PadData {
    // asked by the parent
    wchar_t library[1024];
    wchar_t project[1024]; // empty: none
    int32_t level;
    uint32_t seed;
    uint32_t patience; // milliseconds
    int32_t sessions;  // of level 9
    int32_t steps;     // of level 10
    int32_t objects;   // that make a folder without an end
    int32_t ruleCount;
    int16_t rules[mostRules]; // rows of the table, in the order in which they are to be checked
    int32_t first;            // which of them comes first
    int32_t skip;             // of that one: steps that were begun before

    // told by the child
    volatile LONG current; // of the rules
    volatile LONG begun;   // steps of it
    volatile LONG hasEnded;
    volatile LONG isInCall;
    volatile LONG isActing;    // the call is one that may take its time
    volatile LONG lastChanged; // ticks at which a call began or ended
    char call[64];
    char arguments[1024];
    char progress[128];
    volatile LONG messageBytes;
    char messages[1 << 20];
};

// One thing that the child has to say: a letter for what it is, and texts.
struct PadMessage {
    char kind = ' ';
    std::vector<std::string> texts;
};

// As bytes that stand behind each other. A byte that separates texts does not stand in them.
std::string packed(const PadMessage& message);
std::vector<PadMessage> unpacked(std::string_view bytes);

class Pad {
public:
    Pad(); // new memory, whose handle a child inherits
    explicit Pad(HANDLE memory);
    Pad(const Pad&) = delete;
    Pad& operator=(const Pad&) = delete;
    ~Pad();

    HANDLE handle() const noexcept { return m_memory.get(); }
    PadData* operator->() const noexcept { return m_data; }

    // The child says something; what finds no room any more is lost. Findings leave room for what is said of each rule.
    void say(const PadMessage& message) noexcept;
    void enterCall(const char* name, std::string_view arguments, bool isActing) noexcept;
    void leaveCall() noexcept;
    // The last finding of a process may have the room that is left, too.
    void useAllRoom() noexcept { m_kept = 0; }
    void showProgress(std::string_view text) noexcept;

private:
    void map();

    unique_kernel_handle m_memory;
    PadData* m_data = nullptr;
    size_t m_kept = 1 << 16; // of the messages: for all but findings
};

} // namespace velk::check
