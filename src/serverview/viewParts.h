#pragma once

#include "model/IntegrationMgr.h"
#include "serverview/DetailsList.h"
#include "serverview/FilterStrip.h"
#include "serverview/ListNotice.h"
#include "serverview/viewAPIs.h"
#include "window/tree_view.h"

#include <memory>

namespace velk {

// What the parts of the server view's control have in common: its two panes, which are there from the control's
// initialisation on, the manager, and the control's life.
struct ViewParts {
    std::unique_ptr<TreeView> serverTreeView;
    std::unique_ptr<DetailsList> serverDetailsView;
    IntegrationMgr IMgr;
    // A part of the manager's session, over with the control's window at the latest: what waits in a menu or a dialog
    // looks at a copy before it goes on, and no gesture of the user reaches a tool that is going.
    Session life;
    std::unique_ptr<FilterStrip> filterStrip{}; // above the list
    std::unique_ptr<ListNotice> notice{};       // of the two panes, as long as they are there

    ListView& list() const noexcept { return serverDetailsView->view(); }
    // The kind of the tree's selected node.
    int32_t selectedKind() const { return kindOf(serverTreeView->selected()); }
};

} // namespace velk
