#pragma once

#include "base/unique_any.h"
#include "devkit/ide/automated.h"

#include <functional>

namespace velk::devkit {

// clang-format off
enum ControlType  : int32_t { controlButton = 1, controlPopup = 10 };
enum BarPosition  : int32_t { barTop = 1, barFloating = 4, barPopup = 5, barMenu = 6 };
enum BarType      : int32_t { barTypeNormal = 0, barTypeMenu = 1, barTypePopup = 2 };
// clang-format on

class ClickSource;
class CommandBar;

// Hears of every change of what the bars show. One for the process.
void setBarsObserver(std::function<void()> observer);
void barsChanged();

// A button or a popup menu on a bar. Owned by its bar; a deleted one lives on as an empty shell in the hands of those
// who still hold it, as in the real IDE.
class CommandBarControl : public Automated<CommandBarControl> {
public:
    CommandBarControl(CommandBar* parent, int32_t type, bool temporary);
    static std::span<const Member<CommandBarControl>> members();
    std::wstring label() const override;

    // What the user's click does: error 5 while it is disabled, the event if it has an action, or the IDE's own
    // command.
    void execute();
    void remove();
    void pasteFace();
    void changed() const { barsChanged(); }

    std::wstring caption;
    std::wstring onAction;
    std::wstring tag;
    std::wstring tooltip;
    std::wstring parameter;
    int32_t style = 0;
    int32_t state = 0;
    bool enabled = true;
    bool visible = true;
    bool beginGroup = false;
    const int32_t type;
    const bool temporary;
    int32_t id = 1;
    int32_t faceId = 0;
    unique_bitmap face;
    std::function<void()> builtIn;
    CommandBar* parent;                // null when deleted
    com_ptr<CommandBar> menu;          // of a popup
    std::vector<ClickSource*> sources; // those alive

protected:
    bool offers(std::wstring_view member) const override;
};

// The controls of a bar.
class CommandBarControls : public Automated<CommandBarControls> {
public:
    explicit CommandBarControls(CommandBar* bar) : Automated(L"CommandBarControls"), m_bar(bar) {}
    static std::span<const Member<CommandBarControls>> members();
    std::wstring label() const override;

private:
    const com_ptr<CommandBar> m_bar;
};

// A toolbar, the menu bar or a popup menu.
class CommandBar : public Automated<CommandBar> {
public:
    CommandBar(std::wstring barName, int32_t barType, bool isBuiltIn);
    ~CommandBar() override;
    static std::span<const Member<CommandBar>> members();
    std::wstring label() const override { return L"CommandBar \"" + name + L"\""; }

    CommandBarControl* add(int32_t controlType, size_t before, bool temporary);
    // By number (from 1) or caption, without regard to "&"; null when there is none.
    CommandBarControl* find(const CallArguments& arguments) const;
    CommandBarControl* findCaption(const std::wstring& caption) const;
    // A menu of the bar by its caption, added if it is missing.
    CommandBar& menu(const std::wstring& caption);
    void addCommand(const std::wstring& caption, std::function<void()> command);
    void remove();
    void changed() const { barsChanged(); }

    std::wstring name;
    const int32_t type;
    const bool builtIn;
    bool visible = false;
    bool enabled = true;
    int32_t position = barTop;
    bool deleted = false;
    std::vector<com_ptr<CommandBarControl>> controls;
};

// All bars of the IDE.
class CommandBars : public Automated<CommandBars> {
public:
    CommandBars();
    static std::span<const Member<CommandBars>> members();

    CommandBar& menuBar() const { return *m_bars.front().get(); }
    CommandBar* find(const std::wstring& name) const;
    CommandBar* add(const std::wstring& name, int32_t position);
    // By number (from 1) or name; error 5 when there is none.
    CommandBar* item(const CallArguments& arguments) const;
    std::vector<com_ptr<CommandBar>> living() const;

private:
    std::vector<com_ptr<CommandBar>> m_bars;
};

// A caption without its mnemonic marks.
std::wstring withoutMarks(const std::wstring& caption);

} // namespace velk::devkit
