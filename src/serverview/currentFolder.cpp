#include "serverview/currentFolder.h"

#include "backend/calls.h"
#include "backend/texts.h"
#include "serverview/folderKinds.h"

#include <map>

namespace velk {

void CurrentFolder::fillColumnSets()
{
    std::map<int32_t, std::wstring> known; // headers that several kinds of folder share are fetched once
    const auto header = [&known](int32_t number) {
        const auto [found, isNew] = known.try_emplace(number);
        if (isNew)
            found->second = getRZString(number);
        return found->second;
    };
    std::vector<std::vector<std::wstring>> sets; // whole before a node can be selected in one of the fetches
    for (const FolderKindRow& row : folderKindRows()) {
        std::vector<std::wstring>& texts = sets.emplace_back();
        for (const int32_t number : row.headers)
            texts.push_back(header(number));
    }
    m_columnSets = std::move(sets);
}

const std::vector<std::wstring>& CurrentFolder::columnsOf(int32_t kind) const
{
    static const std::vector<std::wstring> none;
    const FolderKindRow* folder = folderKindRow(kind);
    if (!folder || m_columnSets.empty())
        return none;
    return m_columnSets[static_cast<size_t>(folder - folderKindRows().data())];
}

void CurrentFolder::selectNode(bool force)
{
    const TreeNode* node = m_parts.serverTreeView->selected();
    if (m_parts.life.isOver() || !node || (node->key == m_previousNode && !force))
        return;
    m_previousNode = node->key;
    const int32_t handle = keyToHandle(node->key);
    const int32_t kind = kindOf(node);
    m_parts.serverDetailsView->showColumns(kind, columnsOf(kind));
    m_parts.list().setName(node->text);
    askForContents(*m_parts.notice, m_parts.life, [&] { RZSetCurrentFolder(handle, kind); });
}

void CurrentFolder::forgetNode()
{
    m_previousNode.clear();
    m_parts.list().setName({});
    m_parts.serverDetailsView->showColumns(kindNone, {});
    m_parts.notice->leaveFolder();
}

void CurrentFolder::nodeIsDeleted(const NMTREEVIEWW& notification)
{
    const auto* node = reinterpret_cast<const TreeNode*>(notification.itemOld.lParam);
    const bool isRemembered = node && node->key == m_previousNode;
    m_parts.serverTreeView->onDeleteItem(notification);
    if (isRemembered)
        forgetNode();
}

} // namespace velk
