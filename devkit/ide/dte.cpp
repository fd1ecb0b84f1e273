#include "devkit/ide/dte.h"

#include "devkit/ide/clickSource.h"

namespace velk::devkit {
namespace {

using Arguments = const CallArguments&;

variant clicksOf(Events&, Arguments arguments)
{
    auto* control = dynamic_cast<CommandBarControl*>(ownObject(arguments.object(0).get()));
    if (!control)
        throw Error(errorInvalidCall);
    return asVariant(makeObject<ClickSource>(control).get());
}

} // namespace

std::span<const Member<Solution>> Solution::members()
{
    using Self = Solution;
    // clang-format off
    static const Member<Self> rows[] = {
        {L"Count",    [](Self& self, Arguments) { return variant(self.m_fullName.empty() ? 0 : 1); }},
        {L"FullName", readField<&Self::m_fullName>},
        {L"Open",     [](Self& self, Arguments arguments) { self.open(arguments.text(0)); return variant(); }},
        {L"Close",    [](Self& self, Arguments) { self.close(); return variant(); }},
    };
    // clang-format on
    return rows;
}

void Solution::open(const std::wstring& path)
{
    m_fullName = path;
    if (onChange)
        onChange();
}

void Solution::close()
{
    open(L"");
}

std::span<const Member<Events>> Events::members()
{
    static const Member<Events> rows[] = {{L"CommandBarEvents", clicksOf, nullptr, L"CommandBarControl"}};
    return rows;
}

std::span<const Member<AddIn>> AddIn::members()
{
    // clang-format off
    static const Member<AddIn> rows[] = {
        {L"ProgID",      readField<&AddIn::progId>},
        {L"Description", readField<&AddIn::friendlyName>},
        {L"Connect",     readField<&AddIn::connected>},
    };
    // clang-format on
    return rows;
}

std::span<const Member<AddIns>> AddIns::members()
{
    // clang-format off
    static const Member<AddIns> rows[] = {
        {L"Count", [](AddIns& self, Arguments) { return variant(static_cast<int32_t>(self.all.size())); }},
        {L"Item",  [](AddIns& self, Arguments arguments) {
             const auto place = static_cast<size_t>(arguments.number(0, 0));
             if (place < 1 || place > self.all.size())
                 throw Error(errorInvalidCall);
             return asVariant(self.all[place - 1].get());
         }},
    };
    // clang-format on
    return rows;
}

std::span<const Member<Dte>> Dte::members()
{
    using Self = Dte;
    // clang-format off
    static const Member<Self> rows[] = {
        {L"MainWindow",  [](Self& self, Arguments) { return asVariant(self.mainWindow.get()); }},
        {L"Windows",     [](Self& self, Arguments) { return asVariant(self.windows.get()); }},
        {L"Solution",    [](Self& self, Arguments) { return asVariant(self.solution.get()); }},
        {L"Events",      [](Self& self, Arguments) { return asVariant(self.events.get()); }},
        {L"CommandBars", [](Self& self, Arguments) { return asVariant(self.bars.get()); }},
        {L"AddIns",      [](Self& self, Arguments) { return asVariant(self.addIns.get()); }},
        {L"ActiveWindow",[](Self& self, Arguments) { return asVariant(self.mainWindow.get()); }},
    };
    // clang-format on
    return rows;
}

} // namespace velk::devkit
