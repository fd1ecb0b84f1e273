#pragma once

#include "checker/library.h"
#include "checker/wireRecord.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace velk::check {

// A notification as it came, with what the call answered and said of more.
struct Notify {
    int32_t answer = 0;
    int16_t more = 0;
    int32_t type = 0, project = 0, connection = 0, kind = 0, handle = 0;
};

// A text by number.
struct TextAnswer {
    int32_t answer = 0;
    bool hasNul = false;
    std::string text; // before the first NUL of the buffer, or all of it
    CallText call;
    bool areCounted = true; // what the parameters' variables hold afterwards
};

struct EnumBegin {
    int32_t answer = 0;
    int32_t enumeration = 0;
};

// The library's functions as the add-in calls them, with everything that they may write in guarded memory. What a call
// does to that is looked at here.
class Calls {
public:
    Calls(Probe& probe, Library& library) : m_probe(probe), m_library(library) {}
    Calls(const Calls&) = delete;
    Calls& operator=(const Calls&) = delete;

    Library& library() noexcept { return m_library; }

    int32_t initialize(std::string_view projectFile);
    int32_t terminate();
    static constexpr int32_t usualCapacity = 1024;
    TextAnswer text(int32_t number, int32_t capacity = usualCapacity);
    // With one parameter, or with two.
    TextAnswer text(int32_t number, std::string_view parameter);
    TextAnswer text(int32_t number, std::string_view first, std::string_view second);
    Notify next();
    int32_t button(std::string_view text, int32_t answer);
    // Functions of a handle and a record.
    int32_t fill(Fn function, int32_t handle, WireRecord& record);
    EnumBegin enumBegin(Fn function, int32_t container);
    // Functions of numbers alone.
    int32_t plain(Fn function, int32_t first);
    int32_t plain(Fn function, int32_t first, int32_t second);
    int32_t access(std::string_view first, std::string_view second, int32_t mode);
    int32_t getAdo(int32_t handle, int32_t language, std::string_view project, std::string_view component);
    int32_t connectionDe(int32_t handle, std::string_view project, std::string_view environment,
                         std::string_view connection);
    int32_t commandDe(int32_t handle, std::string_view project, std::string_view environment,
                      std::string_view connection, std::string_view command);

private:
    void checkString(const CountedBuffer& text);
    void checkRecord(const WireRecord& record, bool isFilled);
    void checkField(const WireRecord& record, const FieldRow& row);
    void checkNumber(const GuardedBytes& number);

    Probe& m_probe;
    Library& m_library;
};

} // namespace velk::check
