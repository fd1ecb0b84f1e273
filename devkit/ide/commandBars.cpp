#include "devkit/ide/commandBars.h"

#include "base/never_destroyed.h"
#include "com/com_boundary.h"

#include <algorithm>
#include <cwchar>

namespace velk::devkit {
namespace {

using Arguments = const CallArguments&;

std::function<void()>& observer()
{
    static never_destroyed<std::function<void()>> only;
    return only.get();
}

struct BuiltInBar {
    const wchar_t* name;
    bool visible;
};

// The environment's own bars, in its order. The first is the menu bar; what an add-in finds by number counts from 1.
// clang-format off
constexpr BuiltInBar builtInBars[] = {
    {L"MenuBar", true}, {L"Standard", true}, {L"Edit", false}, {L"View", false}, {L"Debug", false}, {L"Design", false},
    {L"HTML", false}, {L"Build", false}, {L"Database", false}, {L"Query", false}, {L"Table", false},
    {L"Window UI", false}, {L"Add-Ins", true}, {L"Fullscreen", false},
};
constexpr const wchar_t* menus[] = {L"&File", L"&Edit", L"&View", L"&Project", L"&Tools", L"&Add-Ins", L"&Window", L"&Help"};
// clang-format on

size_t numbered(const VARIANT& index, size_t count)
{
    variant number;
    throwIfFailed(VariantChangeType(number.put(), const_cast<VARIANT*>(&index), 0, VT_I4));
    const auto place = static_cast<size_t>(number.asLong());
    if (place < 1 || place > count)
        throw Error(errorInvalidCall);
    return place - 1;
}

} // namespace

void setBarsObserver(std::function<void()> heard)
{
    observer() = std::move(heard);
}

void barsChanged()
{
    if (observer())
        observer()();
}

std::wstring withoutMarks(const std::wstring& caption)
{
    std::wstring plain = caption;
    std::erase(plain, L'&');
    return plain;
}

std::wstring CommandBarControls::label() const
{
    return m_bar->label() + L".Controls";
}

std::span<const Member<CommandBarControls>> CommandBarControls::members()
{
    using Self = CommandBarControls;
    // clang-format off
    static const Member<Self> rows[] = {
        {L"Item",     [](Self& self, Arguments arguments) { return asVariant(self.m_bar->find(arguments)); }, nullptr, L"Index"},
        {L"Count",    [](Self& self, Arguments) { return variant(static_cast<int32_t>(self.m_bar->controls.size())); }},
        {L"_NewEnum", [](Self& self, Arguments) { return enumerate(self.m_bar->controls); }},
        {L"Parent",   [](Self& self, Arguments) { return asVariant(self.m_bar.get()); }},
        {L"Add",      [](Self& self, Arguments arguments) {
             return asVariant(self.m_bar->add(arguments.number(0, controlButton),
                                              static_cast<size_t>(arguments.number(3, 0)), arguments.truth(4, false)));
         }, nullptr, L"Type Id Parameter Before Temporary"},
    };
    // clang-format on
    return rows;
}

CommandBar::CommandBar(std::wstring barName, int32_t barType, bool isBuiltIn)
    : Automated(L"CommandBar"), name(std::move(barName)), type(barType), builtIn(isBuiltIn)
{
}

CommandBar::~CommandBar()
{
    for (const auto& control : controls)
        control->parent = nullptr;
}

std::span<const Member<CommandBar>> CommandBar::members()
{
    using Self = CommandBar;
    // clang-format off
    static const Member<Self> rows[] = {
        {L"Name",     readField<&Self::name>,     writeField<&Self::name>},
        {L"Visible",  readField<&Self::visible>,  writeField<&Self::visible>},
        {L"Enabled",  readField<&Self::enabled>,  writeField<&Self::enabled>},
        {L"Position", readField<&Self::position>, writeField<&Self::position>},
        {L"Type",     readField<&Self::type>},
        {L"BuiltIn",  readField<&Self::builtIn>},
        {L"Controls", [](Self& self, Arguments) { return asVariant(makeObject<CommandBarControls>(&self).get()); }},
        {L"Delete",   [](Self& self, Arguments) { self.remove(); return variant(); }},
    };
    // clang-format on
    return rows;
}

CommandBarControl* CommandBar::add(int32_t controlType, size_t before, bool isTemporary)
{
    if (deleted)
        throw Error(errorInvalidCall, L"the bar is gone");
    if (controlType != controlButton && controlType != controlPopup)
        throw Error(errorInvalidCall);
    const size_t place = before == 0 ? controls.size() : std::min(before - 1, controls.size());
    auto made = makeObject<CommandBarControl>(this, controlType, isTemporary);
    controls.insert(controls.begin() + static_cast<ptrdiff_t>(place), made);
    barsChanged();
    return made.get();
}

CommandBarControl* CommandBar::findCaption(const std::wstring& caption) const
{
    for (const auto& control : controls)
        if (_wcsicmp(withoutMarks(control->caption).c_str(), withoutMarks(caption).c_str()) == 0)
            return control.get();
    return nullptr;
}

CommandBarControl* CommandBar::find(const CallArguments& arguments) const
{
    if (arguments.raw(0).vt != VT_BSTR)
        return controls[numbered(arguments.raw(0), controls.size())].get();
    if (CommandBarControl* found = findCaption(arguments.text(0)))
        return found;
    throw Error(errorInvalidCall);
}

CommandBar& CommandBar::menu(const std::wstring& caption)
{
    CommandBarControl* popup = findCaption(caption);
    if (!popup) {
        popup = add(controlPopup, 0, false);
        popup->caption = caption;
    }
    return *popup->menu.get();
}

void CommandBar::addCommand(const std::wstring& caption, std::function<void()> command)
{
    CommandBarControl* control = add(controlButton, 0, false);
    control->caption = caption;
    control->id = 2; // anything but 1: a command of the environment's own
    control->builtIn = std::move(command);
}

void CommandBar::remove()
{
    if (builtIn || deleted)
        throw Error(errorInvalidCall, L"the bar cannot be deleted");
    deleted = true;
    visible = false;
    barsChanged();
}

CommandBars::CommandBars() : Automated(L"CommandBars")
{
    for (const BuiltInBar& row : builtInBars) {
        m_bars.push_back(makeObject<CommandBar>(row.name, m_bars.empty() ? barTypeMenu : barTypeNormal, true));
        m_bars.back()->visible = row.visible;
    }
    menuBar().position = barMenu;
    for (const wchar_t* caption : menus)
        menuBar().menu(caption);
}

std::span<const Member<CommandBars>> CommandBars::members()
{
    using Self = CommandBars;
    // clang-format off
    static const Member<Self> rows[] = {
        {L"Item",          [](Self& self, Arguments arguments) { return asVariant(self.item(arguments)); }, nullptr, L"Index"},
        {L"Count",         [](Self& self, Arguments) { return variant(static_cast<int32_t>(self.living().size())); }},
        {L"_NewEnum",      [](Self& self, Arguments) { return enumerate(self.living()); }},
        {L"ActiveMenuBar", [](Self& self, Arguments) { return asVariant(&self.menuBar()); }},
        {L"Add",           [](Self& self, Arguments arguments) {
             return asVariant(self.add(arguments.text(0), arguments.number(1, barFloating)));
         }, nullptr, L"Name Position MenuBar Temporary"},
    };
    // clang-format on
    return rows;
}

std::vector<com_ptr<CommandBar>> CommandBars::living() const
{
    std::vector<com_ptr<CommandBar>> bars;
    for (const auto& bar : m_bars)
        if (!bar->deleted)
            bars.push_back(bar);
    return bars;
}

CommandBar* CommandBars::find(const std::wstring& name) const
{
    for (const auto& bar : m_bars)
        if (!bar->deleted && _wcsicmp(bar->name.c_str(), name.c_str()) == 0)
            return bar.get();
    return nullptr;
}

CommandBar* CommandBars::item(const CallArguments& arguments) const
{
    const auto bars = living();
    if (arguments.raw(0).vt != VT_BSTR)
        return bars[numbered(arguments.raw(0), bars.size())].get();
    if (CommandBar* found = find(arguments.text(0)))
        return found;
    throw Error(errorInvalidCall);
}

CommandBar* CommandBars::add(const std::wstring& name, int32_t position)
{
    if (!name.empty() && find(name))
        throw Error(errorInvalidCall, L"there is a bar of that name");
    const auto made = makeObject<CommandBar>(name.empty() ? L"Custom" : name,
                                             position == barPopup ? barTypePopup : barTypeNormal, false);
    made->position = position;
    m_bars.push_back(made);
    barsChanged();
    return made.get();
}

} // namespace velk::devkit
