#pragma once

#include "model/IntegrationMgr.h"
#include "serverview/DetailsList.h"
#include "serverview/keptRecords.h"
#include "serverview/ListNotice.h"
#include "window/image_list.h"
#include "window/tree_view.h"

namespace velk {

class ViewKeeper;

// The server view that viewAPIs works on. Published by the control's set-up, withdrawn by its end; empty in between.
struct PublishedView {
    TreeView* serverTreeView = nullptr;
    DetailsList* serverDetailsView = nullptr;
    ListNotice* notice = nullptr;
    const ImageList* ImageList1 = nullptr;
    IntegrationMgr IMgr;
    Session life = Session::none(); // over with the control at the latest
    std::shared_ptr<KeptRecords> records;
    ViewKeeper* keeper = nullptr;
};
PublishedView& publishedView();

// Its parts; error 91 when no view is published.
TreeView& publishedTree();
DetailsList& publishedList();
// The number of a picture; error 35601 for a key that names none.
int pictureOf(const wchar_t* key);

// Whether a command's work is for nobody: its manager's session is over, or the view that was published at its begin
// is gone. To be made before the first call that leaves the house: what is published afterwards may be something else.
class CommandLife {
public:
    explicit CommandLife(const IntegrationMgr& manager) : m_session(manager.session()), m_view(publishedView().life) {}
    bool isOver() const noexcept { return m_session.isOver() || m_view.isOver(); }

private:
    Session m_session;
    Session m_view;
};

} // namespace velk
