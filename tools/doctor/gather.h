#pragma once

#include "facts.h"
#include "options.h"

namespace velk::doctor {

// Looks at all of the machine, one area after the other; one that cannot be looked at is a failure of that area alone.
Facts gather(const Options& options);

inline constexpr wchar_t backendName[] = L"velkvsadd.dll";

// Whether a class, by its identifier with braces, is registered for this user with a server that is there.
bool hasServer(const std::wstring& clsid);

// Whether a program of the IDE's name is the IDE: later ones have the same.
bool isIdeProgram(const std::wstring& path, const Options& options);

// The areas. They throw; what they need of each other stands in the facts already, in this order.
void gatherSystem(Facts& facts, const Options& options);
void gatherRegistration(Facts& facts, const Options& options);
void gatherIde(Facts& facts, const Options& options);
void gatherInstalled(Facts& facts, const Options& options);
void gatherAddin(Facts& facts, const Options& options);
void gatherRunning(Facts& facts, const Options& options);
void gatherBackend(Facts& facts, const Options& options);
void gatherSourceSafe(Facts& facts, const Options& options);
void gatherOdbc(Facts& facts, const Options& options);
void gatherLanguage(Facts& facts, const Options& options);
void gatherLog(Facts& facts, const Options& options);

} // namespace velk::doctor
