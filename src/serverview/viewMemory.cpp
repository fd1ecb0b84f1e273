#include "serverview/viewMemory.h"

#include "serverview/keptText.h"
#include "serverview/splitterRules.h"

#include <algorithm>

namespace velk {
namespace {

constexpr int greatestTreeWidth = 120'000; // twips: 8,000 pixels at 96 dpi
constexpr size_t longestName = 255;
constexpr size_t mostNodes = 100;
constexpr uint64_t greatestTime = uint64_t{1} << 62;
// The least and greatest number that a kind of node can have.
constexpr uint64_t leastKind = 1;
constexpr uint64_t greatestKind = 99;

bool isName(std::wstring_view connection) noexcept
{
    return connection.size() <= longestName && connection.find(L'\0') == std::wstring_view::npos;
}

} // namespace

std::wstring keptTreeWidth(int width)
{
    return std::wstring(keptVersion) + keptNumber(static_cast<uint64_t>(width));
}

std::optional<int> treeWidthOf(std::wstring_view keptText)
{
    KeptReader reader(keptText);
    const auto width = static_cast<int>(reader.number(SplitterRules::treeRoom, greatestTreeWidth));
    return reader.isWhole() ? std::optional(width) : std::nullopt;
}

std::wstring keptFlag(bool isSet)
{
    return std::wstring(keptVersion) + (isSet ? L'1' : L'0');
}

std::optional<bool> flagOf(std::wstring_view keptText)
{
    KeptReader reader(keptText);
    const bool isSet = reader.number(0, 1) == 1;
    return reader.isWhole() ? std::optional(isSet) : std::nullopt;
}

void ProjectView::select(const KeptNode& node)
{
    if (isName(node.connection))
        selected = node;
    else
        selected.reset();
}

void ProjectView::expand(const std::wstring& connection, bool isExpanded)
{
    if (isName(connection) && (expanded.size() < mostNodes || expanded.contains(connection)))
        expanded.insert_or_assign(connection, isExpanded);
}

std::wstring keptTextOf(const ProjectView& view)
{
    std::wstring text(keptVersion);
    text += keptNumber(view.lastUsed) + L';';
    if (view.selected)
        text += keptNumber(static_cast<uint64_t>(view.selected->kind)) + L':' + keptTextOf(view.selected->connection);
    text += L';';
    for (const auto& [connection, isExpanded] : view.expanded)
        text += (isExpanded ? L'+' : L'-') + keptTextOf(connection);
    return text;
}

std::optional<ProjectView> projectViewOf(std::wstring_view keptText)
{
    KeptReader reader(keptText);
    ProjectView view;
    view.lastUsed = reader.number(1, greatestTime);
    reader.expect(L';');
    if (reader.isAtDigit()) {
        const auto kind = static_cast<int32_t>(reader.number(leastKind, greatestKind));
        reader.expect(L':');
        view.selected = KeptNode{kind, std::wstring(reader.text(longestName))};
    }
    reader.expect(L';');
    for (size_t nodes = 0; !reader.isAtEnd() && nodes < mostNodes; ++nodes) {
        const bool isExpanded = reader.take(L'+');
        if (!isExpanded)
            reader.expect(L'-');
        view.expand(std::wstring(reader.text(longestName)), isExpanded);
    }
    return reader.isWhole() ? std::optional(std::move(view)) : std::nullopt;
}

std::vector<std::wstring> surplusProjects(std::vector<KnownProject> known, std::wstring_view inUse)
{
    std::erase_if(known, [inUse](const KnownProject& project) { return project.name == inUse; });
    std::stable_sort(known.begin(), known.end(),
                     [](const KnownProject& a, const KnownProject& b) { return a.lastUsed > b.lastUsed; });
    std::vector<std::wstring> surplus;
    for (size_t place = mostProjects - 1; place < known.size(); ++place)
        surplus.push_back(std::move(known[place].name));
    return surplus;
}

} // namespace velk
