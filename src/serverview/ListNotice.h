#pragma once

#include "base/session.h"
#include "base/unique_any.h"
#include "serverview/DetailsList.h"
#include "serverview/EmptyText.h"
#include "serverview/ListFoot.h"
#include "window/tree_view.h"

#include <string>

namespace velk {

// Why the list is empty, told in its own area: painted by the list when it paints itself. That it is not complete is
// told below it.
class ListNotice {
public:
    ListNotice(TreeView& tree, DetailsList& list, ListFoot& foot) noexcept : m_tree(tree), m_list(list), m_foot(foot) {}
    ListNotice(const ListNotice&) = delete;
    ListNotice& operator=(const ListNotice&) = delete;

    // The tool is asked for the contents of the selected folder; what came of it. Contents that were awaited and cannot
    // be asked for are unreadable.
    void await() noexcept;
    void giveUp() noexcept;
    void setContents(FolderContents contents) noexcept;

    // No folder is selected any more whose contents could be incomplete.
    void leaveFolder() noexcept;
    // How many objects of the folder have come so far is told at once, without a message of the thread's queue.
    void tellNumber(size_t objects) noexcept;
    // The user ended that by Esc; the time is that of the system's messages.
    void endStopped(size_t objects, DWORD now) noexcept;
    // Whether a key message belongs to the press of Esc that ended a reading, and may do nothing more.
    bool takesKey(const MSG& message) noexcept;

    // Something else that the text depends on may have changed: the selection, a connection.
    void refresh() noexcept;
    // A message that the list is about to get.
    void onListMessage(UINT message, LPARAM lParam) noexcept;
    // What the list answers when it is asked about its drawing, and what is to be added to that.
    LRESULT onCustomDraw(const NMLVCUSTOMDRAW& draw, LRESULT answerOfList) noexcept;

private:
    ListSituation situation() const;
    std::wstring text() const;
    RECT area() const noexcept;
    void wrapAnew() noexcept;

    TreeView& m_tree;
    DetailsList& m_list;
    ListFoot& m_foot;
    FolderContents m_contents = FolderContents::read;
    std::wstring m_progress; // of a reading that takes long
    std::wstring m_painted;
    std::optional<DWORD> m_stopped; // by a press of Esc that may not be over
};

// Asks the tool for the contents of the selected folder. The view may be gone when it has answered, or failed.
template <class Ask>
void askForContents(ListNotice& notice, const Session life, Ask&& ask)
{
    notice.await();
    scope_exit refused([&] {
        if (!life.isOver())
            notice.giveUp();
    });
    ask();
    refused.release();
}

} // namespace velk
