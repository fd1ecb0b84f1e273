#pragma once

#include "devkit/backend/database.h"

#include <array>
#include <memory>
#include <unordered_map>
#include <vector>

namespace velk::devkit {

struct FolderState {
    int32_t handle = 0;
    int32_t kind = 0;
    std::vector<int32_t> objects; // in the order in which they are shown
    std::unordered_map<std::wstring, int32_t> byKey;
    std::vector<int32_t> leaving; // objects that went away without word: their handles end with the next contents
    std::wstring mark;            // of the contents that were read last
    std::wstring pattern;         // of the names that are shown; empty: all
};

struct ConnectionState {
    int32_t handle = 0;
    Database database;
    std::array<FolderState, std::size(folderKinds)> folders{};
    bool isAnnounced = false;
    int32_t attempt = 0; // the number of the attempt to connect that is under way; 0: none is
};

struct ProjectState {
    int32_t handle = 0;
    ProjectFacts facts;
    std::wstring filter; // the pattern that "Filter" proposes
    std::vector<std::unique_ptr<ConnectionState>> connections;
};

} // namespace velk::devkit
