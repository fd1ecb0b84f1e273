#pragma once

#include "base/unique_any.h"
#include "model/IntegrationMgr.h"
#include "serverview/DetailsList.h"
#include "serverview/popupMenus.h"
#include "serverview/splitter.h"
#include "window/image_list.h"
#include "window/tree_view.h"
#include "window/window.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace velk {

// The control that fills the server view: the project's tree, the details list of the selected folder, and a splitter
// between them. Sizes in its public face are pixels.
class svrViewCtl : public Window, public std::enable_shared_from_this<svrViewCtl> {
public:
    svrViewCtl();
    ~svrViewCtl() override;

    // Makes the control's windows as a child of the parent.
    void create(HWND parent, const RECT& place);
    void setIMgr(IntegrationMgr manager);
    // Fonts, column sets, and the references by which the tool's objects reach tree and list. May be repeated.
    void setupGUI();
    void resize(int width, int height);
    // Whether the key was used: Tab moves between tree and list, and their own keys stay theirs.
    bool translateKey(const MSG& message);

    tree_view& serverTreeView() noexcept { return *m_serverTreeView; }
    DetailsList& serverDetailsView() noexcept { return *m_serverDetailsView; }
    HWND splitPane() const noexcept { return m_splitPane->hwnd(); }

    // The selection routine: makes the selected node's folder the current one of the tool, with its columns and an
    // empty list; the rows come with the folder's contents. Nothing when the node is the one of the last time, unless
    // forced.
    void selectNode(bool force);

    PopupMenus& menus() noexcept { return m_menus; }
    // What the user's choice of a menu item does. A failure is told in a message box.
    void clickMenuItem(MenuItem item);
    // Carries out an item's action code on the tree's selected node, or on the list's selected row. A failure is told
    // in a message box.
    void doMenuCommand(MenuItem item, bool fromTree) noexcept;

protected:
    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    void UserControl_Initialize();
    void UserControl_Resize();
    void UserControl_MouseMove(bool isButtonDown, int x, int y); // twips
    void UserControl_MouseUp(int x, int y);                      // twips
    void resizeGUI();
    void fillColumnSets();
    void forgetNode();
    void endLife() noexcept;
    LRESULT onNotify(const NMHDR& header, LPARAM lParam);
    LRESULT onTreeNotify(const NMHDR& header, LPARAM lParam);
    LRESULT onListNotify(const NMHDR& header, LPARAM lParam);
    void notePane(const NMHDR& header) noexcept;
    void onContextMenu(HWND source, POINT place, bool isByKeyboard); // pixels of the screen
    void serverTreeView_MouseUp(POINT place, bool isByKeyboard);
    void serverDetailsView_MouseUp(POINT place, bool isByKeyboard);
    void popUp(PopupMenu menu, POINT place);
    int32_t selectedKind() const;
    std::optional<PopupMenu> menuOfSelectedRow();
    bool useKey(WPARAM key);
    bool useFirstItem();
    bool useRemoveOfRow();
    bool useRemoveOfNode();
    void projSaveAsMnuItem_Click();
    void scmPropsMnuItem_Click();
    void devObjAddFileMnuItem_Click();
    void devObjChkOutMnuItem_Click();
    void devObjChkInMnuItem_Click();
    using FileOperation = void (*)(const std::wstring& path);
    void onObjectsFile(MenuItem clicked, FileOperation operation);
    void runCommand(int32_t code, int32_t handle);
    SplitterRules rules() const noexcept;
    int toTwips(int pixels) const noexcept;
    int toPixels(int twips) const noexcept;
    void endDrag() noexcept;

    std::unique_ptr<image_list> ImageList1;
    std::unique_ptr<tree_view> m_serverTreeView;
    std::unique_ptr<DetailsList> m_serverDetailsView;
    std::unique_ptr<Control> m_splitPane;
    unique_font m_font;
    IntegrationMgr m_IMgr;
    PopupMenus m_menus;
    // A part of the manager's session, over with the control's window at the latest: what waits in a menu or a dialog
    // looks at a copy before it goes on, and no gesture of the user reaches a tool that is going.
    Session m_life;
    std::map<int32_t, std::vector<std::wstring>> m_columnSets; // header texts by folder kind
    std::wstring m_previousNode;                               // key, empty: none
    int m_treeWidth;                                           // twips
    int m_barLeft;                                             // twips, while dragged elsewhere than the tree's edge
    bool m_isDragging = false;
    bool m_wasInList = false; // the pane that had the focus last
};

} // namespace velk
