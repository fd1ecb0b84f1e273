#pragma once

#include "serverview/viewParts.h"

#include <string>
#include <vector>

namespace velk {

// The node whose objects the list shows: the current folder of the tool, and the list's columns with it.
class CurrentFolder {
public:
    explicit CurrentFolder(ViewParts& parts) noexcept : m_parts(parts) {}

    // Fetches the header texts of all kinds of folders.
    void fillColumnSets();

    // The selection routine: makes the selected node's folder the current one of the tool, with its columns and an
    // empty list; the rows come with the folder's contents. Nothing when the node is the one of the last time, unless
    // forced.
    void selectNode(bool force);
    // The tree deletes a node; when it is the one of the last time the list is emptied.
    void nodeIsDeleted(const NMTREEVIEWW& notification);

private:
    const std::vector<std::wstring>& columnsOf(int32_t kind) const;
    void forgetNode();

    ViewParts& m_parts;
    std::vector<std::vector<std::wstring>> m_columnSets; // header texts, in the order of the folder kinds
    std::wstring m_previousNode;                         // key, empty: none
};

} // namespace velk
