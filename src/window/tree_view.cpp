// Tested in tests/forms/serverview/viewAPIsTest.cpp.
#include "window/tree_view.h"

#include "base/error.h"

#include <cstring>

namespace velk {

TreeView::TreeView(HWND parent)
    : Control(WC_TREEVIEWW, parent, WS_TABSTOP | TVS_HASLINES | TVS_HASBUTTONS | TVS_LINESATROOT | TVS_SHOWSELALWAYS,
              WS_EX_CLIENTEDGE)
{
}

void TreeView::setImages(HIMAGELIST images) const noexcept
{
    send(TVM_SETIMAGELIST, TVSIL_NORMAL, reinterpret_cast<LPARAM>(images));
}

void TreeView::addRoot(TreeNode node)
{
    insert(TVI_ROOT, std::move(node));
}

void TreeView::add(const std::wstring& parentKey, TreeNode node)
{
    insert(entry(parentKey).item, std::move(node));
}

void TreeView::insert(HTREEITEM parent, TreeNode node)
{
    const bool isFirst = m_nodes.empty();
    const auto [place, isNew] = m_nodes.try_emplace(node.key);
    if (!isNew)
        throw Error(errorKeyNotUnique);
    Entry& made = place->second;
    made.node = std::move(node);
    TVINSERTSTRUCTW insertion{};
    insertion.hParent = parent;
    insertion.hInsertAfter = TVI_LAST;
    insertion.item.mask = TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_PARAM;
    insertion.item.pszText = made.node.text.data();
    insertion.item.iImage = made.node.image;
    insertion.item.iSelectedImage = made.node.image;
    insertion.item.lParam = reinterpret_cast<LPARAM>(&made);
    m_isChanging = true;
    made.item = reinterpret_cast<HTREEITEM>(send(TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&insertion)));
    m_isChanging = false;
    if (!made.item) {
        m_nodes.erase(std::wstring(made.node.key));
        throw Error(errorOutOfMemory);
    }
    // No later node is selected by the system.
    if (!isFirst)
        return;
    m_selected.reset();
    // Last: whoever hears it may end this tree.
    if (related(TVGN_CARET, nullptr))
        tellSelection();
}

void TreeView::remove(const std::wstring& key)
{
    const HTREEITEM gone = entry(key).item;
    const HTREEITEM selection = related(TVGN_CARET, nullptr);
    const bool isSelectionGone = selection && isWithin(selection, gone);
    deleteItems(gone, isSelectionGone ? heirOf(gone) : selection);
    // Last: whoever hears it may end this tree.
    if (isSelectionGone)
        tellSelection();
}

void TreeView::clear()
{
    deleteItems(TVI_ROOT, nullptr);
    m_nodes.clear();
}

void TreeView::deleteItems(HTREEITEM items, HTREEITEM selection) noexcept
{
    m_isChanging = true;
    if (selection != related(TVGN_CARET, nullptr))
        send(TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(selection));
    send(TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(items));
    if (selection != related(TVGN_CARET, nullptr))
        send(TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(selection));
    m_isChanging = false;
}

void TreeView::tellSelection() const noexcept
{
    NMTREEVIEWW notification{};
    notification.hdr.hwndFrom = hwnd();
    notification.hdr.code = TVN_SELCHANGEDW;
    notification.action = TVC_UNKNOWN;
    SendMessageW(GetParent(hwnd()), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification));
}

HTREEITEM TreeView::related(UINT relation, HTREEITEM item) const noexcept
{
    return reinterpret_cast<HTREEITEM>(send(TVM_GETNEXTITEM, relation, reinterpret_cast<LPARAM>(item)));
}

bool TreeView::isWithin(HTREEITEM item, HTREEITEM branch) const noexcept
{
    while (item && item != branch)
        item = related(TVGN_PARENT, item);
    return item != nullptr;
}

HTREEITEM TreeView::heirOf(HTREEITEM item) const noexcept
{
    for (const UINT relation : {UINT{TVGN_NEXT}, UINT{TVGN_PREVIOUS}, UINT{TVGN_PARENT}})
        if (const HTREEITEM heir = related(relation, item))
            return heir;
    return nullptr;
}

void TreeView::setText(const std::wstring& key, const std::wstring& text)
{
    Entry& changed = entry(key);
    changed.node.text = text;
    TVITEMW item{};
    item.mask = TVIF_TEXT;
    item.hItem = changed.item;
    item.pszText = changed.node.text.data();
    send(TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
}

void TreeView::setImage(const std::wstring& key, int image)
{
    Entry& changed = entry(key);
    changed.node.image = image;
    TVITEMW item{};
    item.mask = TVIF_IMAGE | TVIF_SELECTEDIMAGE;
    item.hItem = changed.item;
    item.iImage = image;
    item.iSelectedImage = image;
    send(TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
}

void TreeView::expand(const std::wstring& key, bool isExpanded) const
{
    const HTREEITEM item = entry(key).item;
    m_isExpanding = true;
    send(TVM_EXPAND, isExpanded ? TVE_EXPAND : TVE_COLLAPSE, reinterpret_cast<LPARAM>(item));
    m_isExpanding = false;
    m_selected.reset(); // it goes up with a branch that is collapsed, and not every system tells
}

const TreeNode* TreeView::parentOf(const std::wstring& key) const
{
    const HTREEITEM above = related(TVGN_PARENT, entry(key).item);
    const Entry* found = above ? entryOf(above) : nullptr;
    return found ? &found->node : nullptr;
}

std::vector<const TreeNode*> TreeView::childrenOf(const std::wstring& key) const
{
    std::vector<const TreeNode*> children;
    for (HTREEITEM item = related(TVGN_CHILD, entry(key).item); item; item = related(TVGN_NEXT, item))
        if (const Entry* found = entryOf(item))
            children.push_back(&found->node);
    return children;
}

void TreeView::select(const std::wstring& key) const
{
    send(TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(entry(key).item));
}

const TreeNode* TreeView::selected() const noexcept
{
    if (m_selected)
        return *m_selected ? &(*m_selected)->node : nullptr;
    const HTREEITEM item = related(TVGN_CARET, nullptr);
    m_selected = item ? entryOf(item) : nullptr;
    return *m_selected ? &(*m_selected)->node : nullptr;
}

const TreeNode* TreeView::nodeAt(POINT place) const noexcept
{
    TVHITTESTINFO test{};
    test.pt = place;
    send(TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&test));
    // What a user sees of a node. The room beside it in its line looks empty, and is.
    constexpr UINT onTheNode = TVHT_ONITEM | TVHT_ONITEMBUTTON;
    const Entry* found = test.hItem && (test.flags & onTheNode) ? entryOf(test.hItem) : nullptr;
    return found ? &found->node : nullptr;
}

RECT TreeView::placeOfSelected() const noexcept
{
    RECT place{};
    // The message takes the item where it leaves the rectangle.
    const HTREEITEM item = related(TVGN_CARET, nullptr);
    std::memcpy(&place, &item, sizeof item);
    if (!send(TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&place)))
        place = {};
    return place;
}

void TreeView::bringSelectedIntoView() const noexcept
{
    if (const HTREEITEM item = related(TVGN_CARET, nullptr))
        send(TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(item));
}

void TreeView::onDeleteItem(const NMTREEVIEWW& notification) noexcept
{
    const auto* gone = reinterpret_cast<const Entry*>(notification.itemOld.lParam);
    if (gone)
        m_nodes.erase(m_nodes.find(gone->node.key));
}

TreeView::Entry& TreeView::entry(const std::wstring& key)
{
    const auto found = m_nodes.find(key);
    if (found == m_nodes.end())
        throw Error(errorElementNotFound);
    return found->second;
}

const TreeView::Entry& TreeView::entry(const std::wstring& key) const
{
    return const_cast<TreeView*>(this)->entry(key);
}

const TreeView::Entry* TreeView::entryOf(HTREEITEM item) const noexcept
{
    TVITEMW asked{};
    asked.mask = TVIF_PARAM;
    asked.hItem = item;
    return send(TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&asked)) ? reinterpret_cast<const Entry*>(asked.lParam)
                                                                   : nullptr;
}

} // namespace velk
