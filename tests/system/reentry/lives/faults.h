#pragma once

#include "devkit/contract/faultHook.h"
#include "pairs.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace velk::devkit {

// A way in which a call fails, and whether all calls behind it at the same door fail, too.
struct FaultManner {
    Fault fault = Fault::none;
    bool isLasting = false;
};

// "E_FAIL", or with "-from-here" behind it; nothing for another text.
std::optional<FaultManner> faultManner(const std::wstring& text);

// Lets calls fail: those of the IDE, of the Backend, of SourceSafe, and the add-in's allocations. What comes through
// one door counts from 1 on, in the order of a life, so that a call is a place like "Backend#17". One for the process,
// used on the user-interface thread.
class Faults {
public:
    // Begins to count anew.
    void plan(const CallPlace& place, FaultManner manner);
    void count();
    // No call fails any more; what was hit stays known.
    void rest() { m_place.reset(); }
    bool wasReached() const { return !m_hit.empty(); }
    // The first call that failed.
    const std::wstring& hit() const { return m_hit; }
    const std::map<std::wstring, int>& counts() const { return m_counts; }

    // Listens at the doors of what is there. SourceSafe stays loaded then.
    void hook();
    Fault pass(const wchar_t* door, const wchar_t* call) noexcept;

private:
    std::map<std::wstring, int> m_counts;
    std::optional<CallPlace> m_place;
    FaultManner m_manner;
    std::wstring m_hit;
};

Faults& faults();

// The calls of a life with the manners in which calls of their door fail, one call after the other: about so many of
// each door, or every one. Each list of all goes on behind the calls that were counted, so that its last ones are not
// reached.
std::vector<Pair> faultPairs(const std::map<std::wstring, int>& counts, size_t most);

} // namespace velk::devkit
