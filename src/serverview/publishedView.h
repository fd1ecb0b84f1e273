#pragma once

#include "model/IntegrationMgr.h"
#include "platform/image_list.h"
#include "platform/tree_view.h"
#include "serverview/DetailsList.h"

namespace velk {

// The server view that viewAPIs works on. Published by the control's set-up, withdrawn by its end; empty in between.
struct PublishedView {
    tree_view* serverTreeView = nullptr;
    DetailsList* serverDetailsView = nullptr;
    const image_list* ImageList1 = nullptr;
    IntegrationMgr IMgr;
    Session life = Session::none(); // over with the control at the latest
};
PublishedView& publishedView();

} // namespace velk
