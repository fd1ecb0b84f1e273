#pragma once

namespace velk {

// Writes what makes the add-in known: its classes and their names, its type library, and the entry in the IDE's list
// of add-ins. Machine-wide, as the IDE expects it. Throws when a part cannot be written; what was written before
// is taken back then.
void registerAddin();

// Removes exactly what registerAddin writes; parts that are not there count as removed. Each part is attempted,
// whatever became of the others; then the first failure is thrown.
void unregisterAddin();

} // namespace velk
