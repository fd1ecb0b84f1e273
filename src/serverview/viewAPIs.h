#pragma once

#include "backend/records.h"
#include "serverview/DetailsList.h"
#include "serverview/objectKeys.h"
#include "window/tree_view.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace velk {

// Puts the tool's objects into the published server view. All but the conversions end quietly when the
// controls refuse (a key that is taken or missing, no view, nothing selected); what was done before stays.

// The kind of a node; without one it is kindNone.
int32_t kindOf(const TreeNode* node);

// A node of the kind that the tag names, "True" or "False" telling whether it is the root. A root empties the tree.
void addFolderNode(const std::wstring& parentKey, const std::wstring& tag, const std::wstring& key,
                   std::wstring_view text, const std::wstring& isRoot) noexcept;
void addConnectionNode(const std::wstring& projectKey, const trzConnection& connection) noexcept;
void removeNode(const std::wstring& key) noexcept;
void setFolderFiltered(const std::wstring& key, bool filtered) noexcept;
void updateProjectNode(const trzProject& project) noexcept;
void updateConnectionNode(const trzConnection& connection) noexcept;
void expandSelected() noexcept;
bool selectedNodeKindIs(int32_t kind) noexcept;

void addProcedureRow(const trzProcedure& procedure) noexcept;
void addFunctionRow(const trzFunction& function) noexcept;
void addTriggerRow(const trzTrigger& trigger) noexcept;
void addTableRow(const trzTable& table) noexcept;
void addViewRow(const trzView& view) noexcept;
void updateProcedureRow(const trzProcedure& procedure) noexcept;
void updateFunctionRow(const trzFunction& function) noexcept;
// Removes the row only while a folder of that kind of object is selected.
void removeListRow(const std::wstring& objectKind, const std::wstring& key) noexcept;
void removeListRow(int32_t objectKind, int32_t handle) noexcept;
void clearListRows() noexcept;

// Rows added while it lives are shown together at its end; harmless without a view.
class ListFilling {
public:
    ListFilling() noexcept;
    // The rows that were to come are not wanted any more: another folder was selected, or the view is gone.
    bool isOvertaken() const noexcept { return m_filling.isOvertaken(); }

private:
    DetailsList::Filling m_filling;
};

} // namespace velk
