#pragma once

#include "facts.h"

#include <string>
#include <vector>

namespace velk::doctor {

// What is done in a process of its own, because it may end that.
enum class Step { loadAddin, askBackend, registerAddin };

struct ChildResult {
    ChildFacts load;  // of the library
    ChildFacts after; // of what was asked of it once it was loaded; its systemCode is the HRESULT of a registration
};
// Runs a step on a library in a child process, and ends that after so many seconds. Messages of this thread's windows
// are handled meanwhile.
ChildResult runInChild(Step step, const std::wstring& path, uint32_t seconds);

// The other side: true when the arguments are a child's. It ends the process.
bool isChild(const std::vector<std::wstring>& arguments) noexcept;
[[noreturn]] void beChild(const std::vector<std::wstring>& arguments) noexcept;

} // namespace velk::doctor
