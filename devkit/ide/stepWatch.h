#pragma once

#include <string>
#include <vector>

namespace velk::devkit {

// Looks at a window with a progress bar that comes, goes on and goes while the shell's thread is busy, so that no
// script command could catch it: before each step of its bar, and before it goes, its picture and its text are kept.

// Begins to watch windows of the class; call on the shell's thread. The pictures are FILE-1.png, FILE-2.png and so on;
// none without a file name.
void watchSteps(std::wstring className, std::wstring file);

// Ends the watch and gives the texts of the window's first label, one for each step.
std::vector<std::wstring> endStepWatch();

} // namespace velk::devkit
