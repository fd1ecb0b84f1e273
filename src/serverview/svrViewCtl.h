#pragma once

#include "model/IntegrationMgr.h"
#include "serverview/CellTips.h"
#include "serverview/contextMenus.h"
#include "serverview/currentFolder.h"
#include "serverview/HeaderMenu.h"
#include "serverview/RowDrag.h"
#include "serverview/shortcutKeys.h"
#include "serverview/splitter.h"
#include "serverview/systemLook.h"
#include "serverview/ViewKeeper.h"
#include "serverview/viewParts.h"
#include "window/window.h"

#include <memory>

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
    // Whether the key was used.
    bool translateKey(const MSG& message);

    TreeView& serverTreeView() noexcept { return *m_parts.serverTreeView; }
    DetailsList& serverDetailsView() noexcept { return *m_parts.serverDetailsView; }
    HWND splitPane() const noexcept { return m_splitter->bar(); }
    FilterStrip& filterStrip() noexcept { return *m_parts.filterStrip; }
    PopupMenus& menus() noexcept { return m_contextMenus.menus(); }

    // The selection routine, and what the user's choice of a menu item does.
    void selectNode(bool force) { m_folder.selectNode(force); }
    void clickMenuItem(MenuItem item) noexcept { m_contextMenus.clickMenuItem(item); }

protected:
    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    void UserControl_Initialize();
    void UserControl_Resize();
    void endLife() noexcept;
    void focusPane() noexcept;
    void onDoubleClick(const NMITEMACTIVATE& click);
    void onContextMenu(HWND pane, LPARAM place) noexcept;
    void onDestroy();
    LRESULT onNotify(const NMHDR& header, LPARAM lParam);
    LRESULT onTreeNotify(const NMHDR& header, LPARAM lParam);
    LRESULT onListNotify(const NMHDR& header, LPARAM lParam);

    ViewParts m_parts;
    SystemLook m_look{m_parts};
    std::unique_ptr<Splitter> m_splitter;
    std::unique_ptr<ListFoot> m_foot;
    std::unique_ptr<CellTips> m_tips;
    CurrentFolder m_folder{m_parts};
    ViewKeeper m_keeper{m_parts};
    ContextMenus m_contextMenus{m_parts, m_folder};
    HeaderMenu m_headerMenu{m_parts};
    ShortcutKeys m_keys{m_parts, m_contextMenus};
    RowDrag m_rowDrag{m_parts};
    bool m_wasInList = false; // the pane that had the focus last
    int m_treeTells = 0;      // things that are being heard
};

} // namespace velk
