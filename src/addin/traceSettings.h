#pragma once

namespace velk {

// Begins the log if the user switched it on, and has every failure told to it: by the environment variable
// VELKVIADD_TRACE, or the value "Trace" under HKEY_CURRENT_USER\Software\Velk\velkviadd. Both hold the file's path;
// ";2" behind it adds every call of the Backend and of the IDE.
void beginTrace() noexcept;
void endTrace() noexcept;

} // namespace velk
