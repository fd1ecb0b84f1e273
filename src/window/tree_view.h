#pragma once

#include "base/unique_any.h"
#include "window/control.h"

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace velk {

// What a node of a tree carries beside its place.
struct TreeNode {
    std::wstring key;
    std::wstring tag;
    std::wstring text;
    int image = 0;
};

// A tree whose nodes are found by key. A key that is taken is error 35602, one that is missing 35601. Adding, finding
// and removing a node take time that does not depend on the number of nodes (removing: on those below it).
class TreeView : public Control {
public:
    explicit TreeView(HWND parent);

    void setImages(HIMAGELIST images) const noexcept;
    // Add a node as the last root, or as the last child of a node that is there. A system's tree may select its first
    // node while it is inserted; that too is told once, when all is done.
    void addRoot(TreeNode node);
    void add(const std::wstring& parentKey, TreeNode node);
    // When the selected node goes, the next sibling is selected instead, else the one before, else the node above. That
    // is settled before anything is deleted, and told to the parent window once, when all is done: how a system's tree
    // would move its selection while nodes go does not matter.
    void remove(const std::wstring& key);
    void clear();
    // While true, notifications of a changed selection mean nothing: nodes are on their way in or out.
    bool isChanging() const noexcept { return m_isChanging; }
    size_t size() const noexcept { return m_nodes.size(); }

    bool has(const std::wstring& key) const { return m_nodes.contains(key); }
    const TreeNode& node(const std::wstring& key) const { return entry(key).node; }
    void setText(const std::wstring& key, const std::wstring& text);
    void setImage(const std::wstring& key, int image);
    void expand(const std::wstring& key, bool isExpanded = true) const;
    // While true, what the tree tells of nodes that are expanded or collapsed is not the user's doing.
    bool isExpanding() const noexcept { return m_isExpanding; }
    void select(const std::wstring& key) const;
    // The selected node, null when there is none. Valid until the tree changes.
    const TreeNode* selected() const noexcept;
    // The node above, null for a root; and the nodes below, from the first on. Valid until the tree changes.
    const TreeNode* parentOf(const std::wstring& key) const;
    std::vector<const TreeNode*> childrenOf(const std::wstring& key) const;
    // The node at a place of the control (pixels), null when there is none; and where the selected node's text stands.
    const TreeNode* nodeAt(POINT place) const noexcept;
    RECT placeOfSelected() const noexcept;
    void bringSelectedIntoView() const noexcept;

    // To be held by the parent window while it hears a notification of the tree, whatever it tells. Without one no
    // selection moves but by this object; within one it may be on its way to something else.
    [[nodiscard]] auto hearing() const noexcept
    {
        m_selected.reset();
        return scope_exit([this] { m_selected.reset(); });
    }
    // To be called by the parent window for the tree's notifications of this kind: the tree forgets deleted nodes.
    void onDeleteItem(const NMTREEVIEWW& notification) noexcept;

private:
    struct Entry {
        TreeNode node;
        HTREEITEM item = nullptr;
    };
    void insert(HTREEITEM parent, TreeNode node);
    Entry& entry(const std::wstring& key);
    const Entry& entry(const std::wstring& key) const;
    const Entry* entryOf(HTREEITEM item) const noexcept;
    HTREEITEM related(UINT relation, HTREEITEM item) const noexcept;
    bool isWithin(HTREEITEM item, HTREEITEM branch) const noexcept;
    HTREEITEM heirOf(HTREEITEM item) const noexcept;
    void deleteItems(HTREEITEM items, HTREEITEM selection) noexcept;
    void tellSelection() const noexcept;

    std::unordered_map<std::wstring, Entry> m_nodes;
    bool m_isChanging = false;
    mutable bool m_isExpanding = false;
    // The selection as the control told it, until it tells of something or is given something to do.
    mutable std::optional<const Entry*> m_selected;
};

} // namespace velk
