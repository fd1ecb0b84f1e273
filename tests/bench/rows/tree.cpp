// Nodes of the tree.
#include "measure.h"
#include "screen.h"

#include "serverview/viewAPIs.h"

namespace velk::bench {
namespace {

constexpr int32_t nodes = 10000;
constexpr int32_t firstNode = 5000;

// The system's tree of the same style, size, font and pictures.
class BareTree {
public:
    explicit BareTree(HWND like)
    {
        RECT place{};
        GetClientRect(like, &place);
        m_host = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 300, place.right + 10, place.bottom + 10,
                                 nullptr, nullptr, nullptr, nullptr);
        const auto style = static_cast<DWORD>(GetWindowLongW(like, GWL_STYLE));
        m_tree = CreateWindowExW(static_cast<DWORD>(GetWindowLongW(like, GWL_EXSTYLE)), WC_TREEVIEWW, L"", style, 0, 0,
                                 place.right, place.bottom, m_host, nullptr, nullptr, nullptr);
        SendMessageW(m_tree, WM_SETFONT, static_cast<WPARAM>(SendMessageW(like, WM_GETFONT, 0, 0)), 0);
        SendMessageW(m_tree, TVM_SETIMAGELIST, TVSIL_NORMAL, SendMessageW(like, TVM_GETIMAGELIST, TVSIL_NORMAL, 0));
    }
    BareTree(const BareTree&) = delete;
    BareTree& operator=(const BareTree&) = delete;
    ~BareTree() { DestroyWindow(m_host); }

    // One node, the only one.
    void addRoot()
    {
        SendMessageW(m_tree, TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(TVI_ROOT));
        m_root = insert(TVI_ROOT, L"orders");
    }
    void addToRoot(const wchar_t* text) { insert(m_root, text); }

private:
    HTREEITEM insert(HTREEITEM parent, const wchar_t* text) const
    {
        TVINSERTSTRUCTW insertion{};
        insertion.hParent = parent;
        insertion.hInsertAfter = TVI_LAST;
        insertion.item.mask = TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_PARAM;
        insertion.item.pszText = const_cast<wchar_t*>(text);
        return reinterpret_cast<HTREEITEM>(
            SendMessageW(m_tree, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&insertion)));
    }

    HWND m_host = nullptr;
    HWND m_tree = nullptr;
    HTREEITEM m_root = nullptr;
};

Outcome addNodes(int32_t)
{
    Screen screen(1000);
    BareTree bare(screen.tree());
    return {runPairs({[] { addFolderNode(L"", L"5", L"K1", L"orders", L"True"); },
                      [] {
                          for (int32_t number = 0; number < nodes; ++number)
                              addFolderNode(L"K1", L"7", makeKey(firstNode + number), L"Stored Procedures", L"False");
                      }},
                     {[&] { bare.addRoot(); },
                      [&] {
                          for (int32_t number = 0; number < nodes; ++number)
                              bare.addToRoot(L"Stored Procedures");
                      }})};
}

// clang-format off
constexpr Row rows[] = {
    {"tree", "ms", 1.3, false, "adding 10,000 folder nodes", "the bare tree view", addNodes},
};
// clang-format on

} // namespace

std::span<const Row> treeRows()
{
    return rows;
}

} // namespace velk::bench
