#pragma once

#include "window/dialog.h"
#include "window/list_view.h"
#include "window/tree_view.h"

#include <vector>

// What forms, trees and lists show, asked of the system's controls themselves.
namespace velk::test {

inline std::wstring captionOf(const Dialog& form)
{
    std::wstring text(256, L'\0');
    text.resize(static_cast<size_t>(GetWindowTextW(form.hwnd(), text.data(), static_cast<int>(text.size()))));
    return text;
}

// The node of a control's item.
inline const TreeNode* nodeOf(const TreeView& tree, HTREEITEM item)
{
    TVITEMW asked{};
    asked.mask = TVIF_PARAM;
    asked.hItem = item;
    tree.send(TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&asked));
    return reinterpret_cast<const TreeNode*>(asked.lParam); // the node is what an entry begins with
}

inline HTREEITEM related(const TreeView& tree, UINT relation, HTREEITEM item)
{
    return reinterpret_cast<HTREEITEM>(tree.send(TVM_GETNEXTITEM, relation, reinterpret_cast<LPARAM>(item)));
}

// The item of a node that is there, looked for among the children of an item and below them.
inline HTREEITEM itemOf(const TreeView& tree, const std::wstring& key, HTREEITEM above = TVI_ROOT)
{
    for (HTREEITEM item = related(tree, TVGN_CHILD, above); item; item = related(tree, TVGN_NEXT, item)) {
        if (nodeOf(tree, item)->key == key)
            return item;
        if (const HTREEITEM below = itemOf(tree, key, item))
            return below;
    }
    return nullptr;
}

// The key of the node above, empty for a root.
inline std::wstring parentOf(const TreeView& tree, const std::wstring& key)
{
    const HTREEITEM parent = related(tree, TVGN_PARENT, itemOf(tree, key));
    return parent ? nodeOf(tree, parent)->key : std::wstring();
}

inline bool isExpanded(const TreeView& tree, const std::wstring& key)
{
    const auto item = reinterpret_cast<WPARAM>(itemOf(tree, key));
    return (tree.send(TVM_GETITEMSTATE, item, TVIS_EXPANDED) & TVIS_EXPANDED) != 0;
}

// The arrow in a header by its picture: the line at its foot is wider than the one at its head in an arrow that points
// up.
inline ListView::SortMark sortMark(const ListView& list, int column)
{
    HDITEMW item{};
    item.mask = HDI_FORMAT | HDI_BITMAP;
    SendMessageW(reinterpret_cast<HWND>(list.send(LVM_GETHEADER)), HDM_GETITEMW, static_cast<WPARAM>(column),
                 reinterpret_cast<LPARAM>(&item));
    if (!(item.fmt & HDF_BITMAP))
        return ListView::SortMark::none;
    BITMAP picture{};
    GetObjectW(item.hbm, sizeof picture, &picture);
    const unique_memory_dc dc(CreateCompatibleDC(nullptr));
    const HGDIOBJ before = SelectObject(dc.get(), item.hbm);
    const bool isEmptyAtTheHead = GetPixel(dc.get(), 0, 0) != GetPixel(dc.get(), 0, picture.bmHeight - 1) &&
                                  GetPixel(dc.get(), 0, 0) == GetSysColor(COLOR_BTNFACE);
    SelectObject(dc.get(), before);
    return isEmptyAtTheHead ? ListView::SortMark::up : ListView::SortMark::down;
}

} // namespace velk::test
