#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velk {

// What is kept of the server view from one life to the next, beside the columns: values, and the texts that they are
// kept as. A text that is broken, of another version or out of bounds counts as absent.

// The width that the user gave the tree, in twips.
std::wstring keptTreeWidth(int width);
std::optional<int> treeWidthOf(std::wstring_view keptText);

std::wstring keptFlag(bool isSet);
std::optional<bool> flagOf(std::wstring_view keptText);

// A node by names: handles are of one session only. A project has one node without a connection.
struct KeptNode {
    int32_t kind = 0;
    std::wstring connection;
    friend bool operator==(const KeptNode&, const KeptNode&) = default;
};

// How the user left the tree of a project.
struct ProjectView {
    uint64_t lastUsed = 0; // the more recent the greater
    std::optional<KeptNode> selected;
    // Whether nodes are expanded that the user expanded or collapsed, by their connections; the project's own node has
    // none. There is an end to what can be kept.
    std::map<std::wstring, bool> expanded;

    void select(const KeptNode& node);
    void expand(const std::wstring& connection, bool isExpanded);
    friend bool operator==(const ProjectView&, const ProjectView&) = default;
};
std::wstring keptTextOf(const ProjectView& view);
std::optional<ProjectView> projectViewOf(std::wstring_view keptText);

// The longest kept text, in characters.
inline constexpr size_t longestKeptText = 32'000;

// A project that something is kept of, by its name there.
struct KnownProject {
    std::wstring name;
    uint64_t lastUsed = 0; // 0: nothing that can be read
};
inline constexpr size_t mostProjects = 50;
// Those that go, so that there are no more than that with the one in use: the least recently used ones.
std::vector<std::wstring> surplusProjects(std::vector<KnownProject> known, std::wstring_view inUse);

} // namespace velk
