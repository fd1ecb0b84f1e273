#pragma once

#include "life.h"
#include "watch.h"

namespace velk::devkit {

std::wstring solutionPath();

// What is wrong when a life is over: what was seen, what is left in the process, what the Backend was asked at the
// wrong time, and what is not as before in the IDE.
std::vector<std::wstring> wrongAfter(Life& life, SessionWatch& watch);
// The same of a life in which calls failed. The IDE and the Backend have forgotten what they were told then, so it is
// no fault of the add-in's that they are not as before.
std::vector<std::wstring> wrongAfterFault(Life& life, SessionWatch& watch);
// A brief life that nothing disturbs, or that the host ends by letting go of the add-in; what is wrong with it.
enum class Ending { disconnected, letGo };
std::vector<std::wstring> cleanLife(SessionWatch& watch, Ending ending = Ending::disconnected);

// The objects of the IDE that somebody holds.
long heldObjects();
// SourceSafe says that somebody holds objects of its own.
bool isSourceSafeHeld();

} // namespace velk::devkit
