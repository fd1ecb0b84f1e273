#pragma once

#include "com/com_ptr.h"

#include <cstdint>

namespace velk {

// The kinds of objects of the host that the add-in uses members of.
enum class HostObject {
#define HOST_OBJECT(name) name,
#define HOST_MEMBER(object, member, without)
#define HOST_OTHER_WAY(object, member, without)
#include "com/hostMembers.inc"
#undef HOST_OBJECT
#undef HOST_MEMBER
#undef HOST_OTHER_WAY
};

// What an unknown host can do, for the log's finer level; nothing at another level. Lines of the log:
//     host members: Windows has Count Item; lacks CreateToolWindow
//     host bars: 1 "Menu Bar", 2 "The ""Standard""", 3 ("why it has no name"); the entry goes to 13
// Each kind of object is told once, as the add-in comes upon it, until the reports begin anew. They hold their objects
// themselves: the host may end the add-in while it is asked.
void beginHostReports() noexcept;

// Which members of the object there are. It is asked for their numbers, and none is used.
void reportHost(HostObject kind, IDispatch* object) noexcept;

// The names of the command bars, which are read for that, and the number of the one that gets the entry.
void reportBars(IDispatch* bars, int32_t entryBar) noexcept;

} // namespace velk
