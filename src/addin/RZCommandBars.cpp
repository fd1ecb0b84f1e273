#include "addin/RZCommandBars.h"

#include "addin/commandBarEntry.h"
#include "addin/ownToolbar.h"
#include "backend/texts.h"
#include "base/boundary.h"
#include "base/unique_any.h"
#include "com/automation.h"

#include <cwchar>
#include <span>

namespace velk {

struct EntryRow {
    int32_t caption;
    int face;
    const wchar_t* action;
};

namespace {

constexpr int32_t toolbarNameText = 300;
constexpr int32_t menuNameText = 201;

// clang-format off
constexpr EntryRow toolbarRows[] = {
    {301, 115, L"1"}, // the first tool's face is another one on its menu; both have been so from the start
    {303, 103, L"3"},
    {304, 105, L"2"},
    {305, 107, L"4"},
    {302, 109, L"5"},
    {314, 113, L"10"},
    {306, 111, L"6"},
};

constexpr int32_t viewsPopupText = 202;
constexpr EntryRow viewRows[] = {
    {203, noFace, L"8"},
    {204, noFace, L"7"},
};
constexpr EntryRow toolRows[] = {
    {206, 100, L"1"},
    {208, 103, L"3"},
    {209, 105, L"2"},
    {210, 107, L"4"},
    {207, 109, L"5"},
    {219, 113, L"10"},
};
constexpr EntryRow helpRows[] = {
    {212, noFace, L"12"},
    {211, 111,    L"6"},
    {213, noFace, L"30"},
};
// clang-format on

std::wstring plainCaption(std::wstring caption)
{
    std::erase(caption, L'&');
    return caption;
}

com_ptr<IDispatch> controlsOf(const com_ptr<IDispatch>& bar)
{
    return automation::getObject(bar, L"Controls");
}

com_ptr<IDispatch> addTo(const com_ptr<IDispatch>& controls, int32_t type)
{
    return automation::call(controls, L"Add", {{}, {{L"Type", variant(type)}, {L"temporary", variant(true)}}})
        .asObject();
}

} // namespace

RZCommandBars::RZCommandBars(com_ptr<IDispatch> ide, Session session)
    : m_ide(std::move(ide)), m_session(std::move(session))
{
}

RZCommandBars::~RZCommandBars()
{
    remove();
}

std::shared_ptr<EntryFaces> RZCommandBars::faces()
{
    if (!m_faces)
        m_faces = std::make_shared<EntryFaces>(m_session);
    return m_faces;
}

void RZCommandBars::finish() noexcept
{
    m_faces.reset();
}

com_ptr<IDispatch> RZCommandBars::commandBars()
{
    if (!m_commandBars)
        m_commandBars = automation::getObject(m_ide, L"CommandBars");
    return m_commandBars;
}

com_ptr<IDispatch> RZCommandBars::events()
{
    if (!m_events)
        m_events = automation::getObject(m_ide, L"Events");
    return m_events;
}

void RZCommandBars::addButton(const com_ptr<IDispatch>& control, const EntryRow& row)
{
    OwnControl& entry = m_entries.emplace_back(OwnControl{control, std::make_unique<event_connection>()});
    m_session.throwIfOver();
    const std::shared_ptr<EntryFaces> faces = this->faces(); // the IDE may end the session, and what this holds with it
    dressEntry(m_session, control, row.caption, *faces, row.face, row.action);
    m_session.throwIfOver();
    swallow(L"RZCommandBars.addButton", L"a toolbar that a crash leaves behind is not known again",
            [&] { automation::put(control, L"Tag", variant(ownControlTag)); });
    m_session.throwIfOver();
    const com_ptr<IDispatch> source = automation::getObject(events(), L"CommandBarEvents", {variant(control)});
    m_session.throwIfOver();
    // What the handler does may take the entry away: it works on copies.
    entry.clicks->connect(source, clickEvent, [control, session = m_session](const click_event& click) {
        if (click.isHandled || session.isOver())
            return;
        const std::wstring action = automation::get(control, L"OnAction").asText();
        if (!session.isOver())
            launchAction(action);
    });
    m_session.throwIfOver();
}

void RZCommandBars::addToolbar()
{
    const com_ptr<IDispatch> bars = commandBars();
    const std::wstring name = getRZString(toolbarNameText);
    m_session.throwIfOver();
    m_toolbar = ownToolbar(bars, name, m_session);
    m_session.throwIfOver();
    // The buttons that could be made are shown although one of them fails.
    const scope_exit shown([this] {
        if (m_session.isOver())
            return;
        swallow(L"RZCommandBars.addToolbar", L"the menus have the same entries",
                [this] { automation::put(m_toolbar, L"Visible", variant(true)); });
    });
    const com_ptr<IDispatch> controls = controlsOf(m_toolbar);
    for (const EntryRow& row : toolbarRows)
        addButton(automation::call(controls, L"Add", {variant(controlTypeButton)}).asObject(), row);
}

com_ptr<IDispatch> RZCommandBars::menuNamed(const std::wstring& caption)
{
    if (m_menu && m_menuName == caption)
        return m_menu;
    m_menu = findOrAddMenu(caption);
    m_menuName = caption;
    return m_menu;
}

com_ptr<IDispatch> RZCommandBars::findOrAddMenu(const std::wstring& caption)
{
    const com_ptr<IDispatch> bars = commandBars();
    const com_ptr<IDispatch> menuBar = automation::getObject(bars, L"ActiveMenuBar");
    const com_ptr<IDispatch> controls = controlsOf(menuBar);
    const int32_t count = automation::get(controls, L"Count").asLong();
    for (int32_t number = 1; number <= count; ++number) {
        m_session.throwIfOver();
        const com_ptr<IDispatch> menu = automation::getObject(controls, L"Item", {variant(number)});
        const std::wstring found = automation::get(menu, L"Caption").asText();
        if (_wcsicmp(plainCaption(found).c_str(), plainCaption(caption).c_str()) == 0)
            return menu;
    }
    m_session.throwIfOver();
    const com_ptr<IDispatch> added = addTo(controls, controlTypePopup);
    m_entries.push_back({added, nullptr});
    m_session.throwIfOver();
    automation::put(added, L"Caption", variant(std::wstring_view(caption)));
    return added;
}

void RZCommandBars::addViews()
{
    const com_ptr<IDispatch> viewsMenu = menuNamed(getRZString(menuNameText));
    m_session.throwIfOver();
    const com_ptr<IDispatch> views = addTo(controlsOf(viewsMenu), controlTypePopup);
    m_entries.push_back({views, nullptr});
    m_views.push_back(views);
    const std::wstring caption = getRZString(viewsPopupText);
    m_session.throwIfOver();
    automation::put(views, L"Caption", variant(std::wstring_view(caption)));
    m_session.throwIfOver();
    automation::put(views, L"BeginGroup", variant(true));
    const com_ptr<IDispatch> controls = controlsOf(views);
    for (const EntryRow& row : viewRows) {
        m_views.push_back(addTo(controls, controlTypeButton));
        addButton(m_views.back(), row);
    }
}

void RZCommandBars::addGroup(std::span<const EntryRow> rows)
{
    // Each group asks for the name of the menu that it extends.
    const com_ptr<IDispatch> menu = menuNamed(getRZString(menuNameText));
    const com_ptr<IDispatch> controls = controlsOf(menu);
    for (const EntryRow& row : rows) {
        const com_ptr<IDispatch> button = addTo(controls, controlTypeButton);
        addButton(button, row);
        if (&row == rows.data())
            automation::put(button, L"BeginGroup", variant(true));
    }
}

void RZCommandBars::addTools()
{
    addGroup(toolRows);
}

void RZCommandBars::addHelp()
{
    addGroup(helpRows);
}

void RZCommandBars::showViews()
{
    const Session session = m_session;
    const std::vector<com_ptr<IDispatch>> views = m_views; // the IDE may end the session, and this with it
    for (const com_ptr<IDispatch>& view : views)
        for (const wchar_t* state : {L"Enabled", L"Visible"}) {
            session.throwIfOver();
            automation::put(view, state, variant(true));
        }
}

void RZCommandBars::remove() noexcept
{
    constexpr wchar_t why[] = L"the other entries are still removed";
    finish();
    m_views.clear();
    while (!m_entries.empty()) {
        const OwnControl entry = std::move(m_entries.back());
        m_entries.pop_back();
        if (entry.clicks)
            entry.clicks->disconnect();
        // For this session only: the IDE is not to remember it as a change that the user made.
        swallow(L"RZCommandBars.remove", why, [&] { automation::call(entry.control, L"Delete", {variant(true)}); });
    }
    if (const com_ptr<IDispatch> toolbar = std::move(m_toolbar))
        swallow(L"RZCommandBars.remove", why, [&] { automation::call(toolbar, L"Delete"); });
    m_menu.reset();
    m_events.reset();
    m_commandBars.reset();
    m_ide.reset();
}

} // namespace velk
