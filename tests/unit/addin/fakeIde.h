#pragma once

#include "support/fakeEvents.h"
#include "support/fakeObject.h"

#include <string>

namespace velk::test {

// An IDE with what the add-in uses of it: bar 13, the entry's events, a solution, a main window, tool windows whose
// document is a plain fake.
struct FakeIde {
    FakeObject::Journal journal;
    com_ptr<FakeObject> dte = fakeObject(L"DTE", &journal);
    com_ptr<FakeObject> bars = fakeObject(L"CommandBars", &journal);
    com_ptr<FakeObject> bar = fakeObject(L"Bar", &journal);
    com_ptr<FakeObject> controls = fakeObject(L"Controls", &journal);
    com_ptr<FakeObject> entry = fakeObject(L"Entry", &journal);
    com_ptr<FakeObject> events = fakeObject(L"Events", &journal);
    com_ptr<FakeEvents> entryEvents = makeObject<FakeEvents>();
    com_ptr<FakeObject> solution = fakeObject(L"Solution", &journal);
    com_ptr<FakeObject> mainWindow = fakeObject(L"MainWindow", &journal);
    com_ptr<FakeObject> windows = fakeObject(L"Windows", &journal);
    com_ptr<FakeObject> toolWindow = fakeObject(L"ToolWindow", &journal);
    com_ptr<FakeObject> frame = fakeObject(L"Frame", &journal);
    com_ptr<FakeObject> linkedWindows = fakeObject(L"LinkedWindows", &journal);
    com_ptr<FakeObject> document = fakeObject(L"Document", &journal);
    com_ptr<FakeObject> addin = fakeObject(L"AddIn", &journal);

    FakeIde()
    {
        const auto nothing = [](const std::vector<variant>&) { return variant(); };
        dte->value(L"CommandBars", asVariant(bars))
            ->value(L"Events", asVariant(events))
            ->value(L"Solution", asVariant(solution))
            ->value(L"MainWindow", asVariant(mainWindow))
            ->value(L"Windows", asVariant(windows));
        // No toolbar of any name is there, and none can be added.
        bars->function(L"Item", [this](const std::vector<variant>& arguments) {
            if (arguments.at(0).type() == VT_BSTR)
                throw Error(errorInvalidCall);
            return asVariant(bar);
        });
        bar->value(L"Controls", asVariant(controls));
        controls->function(L"Add", [this](const std::vector<variant>&) { return asVariant(entry); });
        entry->value(L"Caption", variant(L""))
            ->value(L"OnAction", variant(L""))
            ->value(L"Enabled", variant(true))
            ->function(L"PasteFace", nothing)
            ->function(L"Delete", nothing);
        events->function(L"CommandBarEvents", [this](const std::vector<variant>&) {
            return variant(static_cast<IDispatch*>(entryEvents.get()));
        });
        solution->value(L"Count", variant(int32_t{1}))->value(L"FullName", variant(L"C:\\work\\orders.sln"));
        mainWindow->value(L"WindowState", variant(int32_t{0}));
        windows->value(L"Count", variant(int32_t{0}))
            ->function(L"CreateToolWindow", [this](const std::vector<variant>& arguments) {
                *arguments.at(4).get().ppdispVal = com_ptr<IDispatch>(document.get()).detach();
                return asVariant(toolWindow);
            });
        toolWindow->value(L"Visible", variant(true))->function(L"Close", nothing);
        document->value(L"IMgr", variant())->function(L"setupGUI", nothing);
    }
    ~FakeIde()
    {
        // The document holds the manager, as a real one does until its host closes it.
        document->value(L"IMgr", variant());
    }
    void clickEntry() { entryEvents->click(entry.get()); }
    // The tool window sits in a frame: until it is taken out of it, it refuses to be closed.
    void dock()
    {
        linkedWindows->function(L"Remove", [this](const std::vector<variant>&) {
            toolWindow->function(L"Close", [](const std::vector<variant>&) { return variant(); });
            return variant();
        });
        frame->value(L"LinkedWindows", asVariant(linkedWindows));
        toolWindow->value(L"LinkedWindowFrame", asVariant(frame))->function(L"Close", [](const auto&) -> variant {
            throw Error(errorPermissionDenied);
        });
    }
};

} // namespace velk::test
