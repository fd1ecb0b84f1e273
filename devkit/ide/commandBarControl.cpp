// A single control: its members, its click and its face.
#include "devkit/ide/clickSource.h"
#include "devkit/ide/commandBars.h"

#include <algorithm>

namespace velk::devkit {
namespace {

using Self = CommandBarControl;
using Arguments = const CallArguments&;

int32_t placeOf(const Self& control)
{
    const auto& all = control.parent->controls;
    const auto found = std::find_if(all.begin(), all.end(), [&](const auto& one) { return one.get() == &control; });
    return static_cast<int32_t>(found - all.begin()) + 1;
}

variant controlsOf(Self& control, Arguments)
{
    return asVariant(makeObject<CommandBarControls>(control.menu.get()).get());
}

} // namespace

CommandBarControl::CommandBarControl(CommandBar* bar, int32_t controlType, bool isTemporary)
    : Automated(L"CommandBarControl"), type(controlType), temporary(isTemporary), parent(bar)
{
    if (type == controlPopup)
        menu = makeObject<CommandBar>(L"", barTypePopup, false);
}

std::wstring CommandBarControl::label() const
{
    return (type == controlPopup ? L"CommandBarPopup \"" : L"CommandBarButton \"") + caption + L"\"";
}

bool CommandBarControl::offers(std::wstring_view member) const
{
    if (member == L"Controls" || member == L"CommandBar")
        return type == controlPopup;
    if (member == L"PasteFace" || member == L"FaceId" || member == L"State" || member == L"Style")
        return type == controlButton;
    return true;
}

std::span<const Member<Self>> CommandBarControl::members()
{
    // clang-format off
    static const Member<Self> rows[] = {
        {L"Caption",     readField<&Self::caption>,    writeField<&Self::caption>},
        {L"OnAction",    readField<&Self::onAction>,   writeField<&Self::onAction>},
        {L"Enabled",     readField<&Self::enabled>,    writeField<&Self::enabled>},
        {L"Visible",     readField<&Self::visible>,    writeField<&Self::visible>},
        {L"Tag",         readField<&Self::tag>,        writeField<&Self::tag>},
        {L"TooltipText", readField<&Self::tooltip>,    writeField<&Self::tooltip>},
        {L"Parameter",   readField<&Self::parameter>,  writeField<&Self::parameter>},
        {L"BeginGroup",  readField<&Self::beginGroup>, writeField<&Self::beginGroup>},
        {L"FaceId",      readField<&Self::faceId>,     writeField<&Self::faceId>},
        {L"Style",       readField<&Self::style>,      writeField<&Self::style>},
        {L"State",       readField<&Self::state>,      writeField<&Self::state>},
        {L"Type",        readField<&Self::type>},
        {L"Id",          readField<&Self::id>},
        {L"Index",       [](Self& self, Arguments) { return variant(self.parent ? placeOf(self) : 0); }},
        {L"Parent",      [](Self& self, Arguments) { return asVariant(self.parent); }},
        {L"Controls",    controlsOf},
        {L"CommandBar",  [](Self& self, Arguments) { return asVariant(self.menu.get()); }},
        {L"PasteFace",   [](Self& self, Arguments) { self.pasteFace(); return variant(); }},
        {L"Execute",     [](Self& self, Arguments) { self.execute(); return variant(); }},
        {L"Delete",      [](Self& self, Arguments) { self.remove(); return variant(); }, nullptr, L"Temporary"},
    };
    // clang-format on
    return rows;
}

void CommandBarControl::execute()
{
    if (!enabled || !parent)
        throw Error(errorInvalidCall, caption + L" is disabled or gone");
    const com_ptr<CommandBarControl> untilDone(this);
    if (builtIn)
        builtIn();
    if (onAction.empty())
        return; // the environment raises no click for a control without an action
    std::vector<com_ptr<ClickSource>> listening;
    for (ClickSource* source : sources)
        listening.emplace_back(source);
    for (const com_ptr<ClickSource>& source : listening)
        source->raise();
}

void CommandBarControl::remove()
{
    if (!parent)
        throw Error(errorInvalidCall, L"the control is gone already");
    const com_ptr<CommandBarControl> untilDone(this);
    std::erase_if(std::exchange(parent, nullptr)->controls, [this](const auto& one) { return one.get() == this; });
    barsChanged();
}

void CommandBarControl::pasteFace()
{
    if (!OpenClipboard(nullptr))
        throw Error::fromWin32(GetLastError());
    const scope_exit closed([] { CloseClipboard(); });
    const HANDLE picture = GetClipboardData(CF_BITMAP);
    if (!picture)
        throw Error(errorInvalidCall, L"there is no picture on the clipboard");
    face.reset(static_cast<HBITMAP>(CopyImage(picture, IMAGE_BITMAP, 0, 0, 0)));
    barsChanged();
}

} // namespace velk::devkit
