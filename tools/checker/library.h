#pragma once

#include "checker/callTimes.h"
#include "checker/functions.h"
#include "checker/probe.h"

#include "base/unique_any.h"

#include <functional>
#include <initializer_list>
#include <string>

namespace velk::check {

struct CallState;

// The library in this process. Each call of it is written down before it is made, and looked at afterwards: whatever
// rule holds for every call is checked here.
class Library {
public:
    explicit Library(Probe& probe) : m_probe(probe) {}
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    // False with the reason when it does not load. The current directory is another one meanwhile, as the add-in has
    // it.
    bool load(std::string& reason);
    bool unload();
    bool isLoaded() const noexcept { return static_cast<bool>(m_module); }
    bool has(Fn function) const noexcept { return address(function) != nullptr; }

    // Ends the check with NotChecked when the library has no such function.
    int32_t call(Fn function, std::initializer_list<uint32_t> arguments, const std::string& shownArguments);

    // Runs before each call that is made while none is under way: there a test of re-entry begins.
    std::function<void()> beforeCall;
    int depth() const noexcept { return m_depth; }
    int actings() const noexcept { return m_actings; } // calls so far that do more than ask
    CallTimes times;

private:
    void* address(Fn function) const noexcept;
    void checkState(const CallState& state, size_t arguments);
    void checkSettings(const struct Settings& before);

    Probe& m_probe;
    unique_module m_module;
    int m_depth = 0;
    int m_actings = 0;
};

} // namespace velk::check
