#pragma once

#include "base/session.h"
#include "com/com_ptr.h"
#include "com/event_sink.h"

#include <memory>
#include <span>
#include <string>
#include <vector>

namespace velk {

class EntryFaces;
struct EntryRow; // an entry of the add-in's tables

// The add-in's toolbar and menu entries on the IDE's command bars, from the start of a session to its end. Each
// building step throws; what it made until then stays and is removed with the rest.
class RZCommandBars {
public:
    // The session's end inside one of the IDE's calls stops the building step with Error 5.
    RZCommandBars(com_ptr<IDispatch> ide, Session session = {});
    RZCommandBars(const RZCommandBars&) = delete;
    RZCommandBars& operator=(const RZCommandBars&) = delete;
    ~RZCommandBars();

    void addToolbar();
    void addViews();
    void addTools();
    void addHelp();
    // The building is over: what the user had on the clipboard comes back, if the entries' faces went that way.
    void finish() noexcept;
    // The entries of the views group are enabled and visible.
    void showViews();
    // Takes everything away again, in reverse; each step is attempted.
    void remove() noexcept;

private:
    struct OwnControl {
        com_ptr<IDispatch> control;
        std::unique_ptr<event_connection> clicks; // none for a popup
    };
    std::shared_ptr<EntryFaces> faces();
    com_ptr<IDispatch> commandBars();
    com_ptr<IDispatch> events();
    void addButton(const com_ptr<IDispatch>& control, const EntryRow& row);
    void addGroup(std::span<const EntryRow> rows);
    com_ptr<IDispatch> menuNamed(const std::wstring& caption);
    com_ptr<IDispatch> findOrAddMenu(const std::wstring& caption);

    com_ptr<IDispatch> m_ide;
    Session m_session;
    // What the IDE was asked for once and answers the same each time.
    com_ptr<IDispatch> m_commandBars;
    com_ptr<IDispatch> m_events;
    std::wstring m_menuName;
    com_ptr<IDispatch> m_menu; // of that name

    std::shared_ptr<EntryFaces> m_faces; // while entries are built; shared with the step that is under way
    com_ptr<IDispatch> m_toolbar;
    std::vector<OwnControl> m_entries;
    std::vector<com_ptr<IDispatch>> m_views;
};

// Carries out the action text of an entry: the about box, one of the tool's applications, or one of the database
// product's tools. A text that is no number ends it quietly.
void launchAction(const std::wstring& action) noexcept;

} // namespace velk
