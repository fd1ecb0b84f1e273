// Tested in tests/forms/serverview/ViewKeeperTest.cpp.
#include "serverview/KeptTree.h"

#include "base/unique_any.h"
#include "serverview/folderKinds.h"

namespace velk {

void KeptTree::begin(ProjectView before)
{
    m_view = std::move(before);
    m_toExpand = m_view.expanded;
    m_toSelect = m_view.selected;
    m_selectedAgain.clear();
}

std::optional<KeptNode> KeptTree::nameOf(const TreeNode* node) const
{
    if (!node)
        return std::nullopt;
    const int32_t kind = kindOf(node);
    const TreeNode* const connection = kind == kindConnection ? node
                                       : folderKindRow(kind)  ? m_parts.serverTreeView->parentOf(node->key)
                                                              : nullptr;
    if (kind != kindProject && (!connection || connection->text.empty()))
        return std::nullopt;
    return KeptNode{kind, connection ? connection->text : std::wstring()};
}

bool KeptTree::isCollapsed(const std::wstring& connection) const
{
    const auto known = m_view.expanded.find(connection);
    return known != m_view.expanded.end() && !known->second;
}

void KeptTree::connectionCame(const std::wstring& key, bool isConnected)
{
    if (m_parts.life.isOver() || (m_toExpand.empty() && !m_toSelect && m_selectedAgain.empty()))
        return;
    TreeView& tree = *m_parts.serverTreeView;
    if (!tree.has(key))
        return;
    collapseSelectedAgain();
    restoreExpansion(tree.parentOf(key));
    restoreExpansion(&tree.node(key));
    // What comes expands the selected node, whoever selected it.
    restoreExpansion(tree.selected());
    restoreSelection(tree.node(key), isConnected);
}

void KeptTree::connectionChanged(const std::wstring& key, bool isConnected)
{
    if (!m_parts.life.isOver() && m_toSelect && m_parts.serverTreeView->has(key))
        restoreSelection(m_parts.serverTreeView->node(key), isConnected);
}

void KeptTree::restoreExpansion(const TreeNode* node)
{
    const std::optional<KeptNode> name = nameOf(node);
    if (!name || folderKindRow(name->kind))
        return;
    if (const auto known = m_toExpand.find(name->connection); known != m_toExpand.end())
        m_parts.serverTreeView->expand(std::wstring(node->key), known->second);
}

// What comes expands the selected node; nobody asked for that of a connection that was selected for the user.
void KeptTree::collapseSelectedAgain()
{
    TreeView& tree = *m_parts.serverTreeView;
    const TreeNode* const selected = tree.selected();
    const std::optional<KeptNode> name = nameOf(selected);
    if (name && name->kind == kindConnection && selected->key == m_selectedAgain &&
        !m_view.expanded.contains(name->connection))
        tree.expand(m_selectedAgain, false);
}

void KeptTree::restoreSelection(const TreeNode& connection, bool isConnected)
{
    if (!m_toSelect)
        return;
    TreeView& tree = *m_parts.serverTreeView;
    const TreeNode* const project = tree.parentOf(connection.key);
    if (m_toSelect->kind == kindProject && project)
        return select(std::wstring(project->key));
    if (m_toSelect->connection != connection.text || isCollapsed(L""))
        return;
    if (m_toSelect->kind == kindConnection)
        return select(std::wstring(connection.key));
    // A folder of a connection that is not connected has nothing to show, and the tool would ask to connect.
    if (!isConnected || isCollapsed(connection.text))
        return;
    for (const TreeNode* folder : tree.childrenOf(connection.key))
        if (kindOf(folder) == m_toSelect->kind)
            return select(std::wstring(folder->key));
}

void KeptTree::select(const std::wstring& key)
{
    m_toSelect.reset();
    m_selectedAgain = key;
    // The tool is told of the folder, and this may be gone when it comes back.
    const std::shared_ptr<bool> isRestoring = m_isRestoring;
    *isRestoring = true;
    const scope_exit done([isRestoring] { *isRestoring = false; });
    m_parts.serverTreeView->select(key);
}

void KeptTree::onSelected(const NMTREEVIEWW& notification)
{
    // The tree itself tells, without an item, what it selected instead of a node that went. Some systems select the
    // first node that comes.
    const bool isUsers = notification.action == TVC_BYMOUSE || notification.action == TVC_BYKEYBOARD;
    if (*m_isRestoring || !notification.itemNew.hItem)
        return;
    const std::optional<KeptNode> name = nameOf(m_parts.serverTreeView->selected());
    if (!name || (name->kind == kindProject && !isUsers))
        return;
    onUsed();
    m_toExpand.erase(name->connection);
    if (m_view.selected == name)
        return;
    m_view.select(*name);
    if (m_listener)
        m_listener();
}

void KeptTree::onUsed() noexcept
{
    m_toSelect.reset();
    m_selectedAgain.clear();
    std::erase_if(m_toExpand, [](const auto& node) { return node.first.empty(); });
}

void KeptTree::onExpanded(const NMTREEVIEWW& notification)
{
    if (*m_isRestoring || m_parts.serverTreeView->isExpanding())
        return;
    const auto* node = reinterpret_cast<const TreeNode*>(notification.itemNew.lParam);
    const std::optional<KeptNode> name = nameOf(node);
    if (!name || folderKindRow(name->kind))
        return;
    const bool isExpanded = (notification.action & TVE_EXPAND) != 0;
    m_toExpand.erase(name->connection);
    m_view.expand(name->connection, isExpanded);
    // With its branch the selection went up to the node.
    const bool isWithin =
        m_view.selected && (name->kind == kindProject || m_view.selected->connection == name->connection);
    if (!isExpanded && isWithin)
        m_view.select(*name);
    if (m_listener)
        m_listener();
}

} // namespace velk
