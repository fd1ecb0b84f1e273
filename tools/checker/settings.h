#pragma once

#include "base/win32.h"

#include <string>

namespace velk::check {

// What belongs to the whole process or thread and a library may leave changed.
struct Settings {
    std::wstring folder;
    UINT errorMode = 0;
    LCID threadLocale = 0;
    std::string runTimeLocale;

    static Settings now();
    // Names what differs from now, as it was and as it is; empty when nothing does.
    std::string differences(const Settings& later) const;
    void restore() const;
    bool operator==(const Settings&) const = default;
};

} // namespace velk::check
