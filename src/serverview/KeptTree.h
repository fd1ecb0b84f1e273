#pragma once

#include "serverview/viewMemory.h"
#include "serverview/viewParts.h"

#include <functional>
#include <memory>
#include <string>

namespace velk {

// The tree of a project as the user left it: he expanded and collapsed nodes, and selected one. What is kept comes back
// as its nodes come, without more calls of the tool than the user's own clicks would make.
class KeptTree {
public:
    explicit KeptTree(ViewParts& parts) : m_parts(parts) {}

    // Called when something is to be kept; and what that is.
    void setListener(std::function<void()> listener) { m_listener = std::move(listener); }
    const ProjectView& view() const noexcept { return m_view; }

    // A project came, as it was left before.
    void begin(ProjectView before);
    // A connection came with all its folders, or changed: connected or not. The folder that was selected is selected
    // once its connection is there and connected, unless the user has selected something himself since the project
    // came. Last in whatever is done then: the tool is called.
    void connectionCame(const std::wstring& key, bool isConnected);
    void connectionChanged(const std::wstring& key, bool isConnected);

    // The tree's notifications of what the user, or somebody else from outside, did in it.
    void onSelected(const NMTREEVIEWW& notification);
    void onExpanded(const NMTREEVIEWW& notification);
    // He did something with a node that the tree does not tell as his: its menu, which selects it.
    void onUsed() noexcept;

private:
    std::optional<KeptNode> nameOf(const TreeNode* node) const;
    bool isCollapsed(const std::wstring& connection) const;
    void restoreExpansion(const TreeNode* node);
    void restoreSelection(const TreeNode& connection, bool isConnected);
    void collapseSelectedAgain();
    void select(const std::wstring& key);

    ViewParts& m_parts;
    ProjectView m_view;
    std::map<std::wstring, bool> m_toExpand; // as the user left it before, by connection
    std::optional<KeptNode> m_toSelect;
    std::wstring m_selectedAgain; // the node that was, by its key, until the user uses the tree; empty: none
    std::shared_ptr<bool> m_isRestoring = std::make_shared<bool>(false);
    std::function<void()> m_listener;
};

} // namespace velk
