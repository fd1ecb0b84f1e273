#pragma once

#include "addin/Connect.h"
#include "fakeIde.h"
#include "serverview/serverViewDoc.h"
#include "support/fakeBackend.h"
#include "support/shownMessages.h"
#include "ui/splashscrnFrm.h"
#include "ui/uiFont.h"

#include <algorithm>
#include <gmock/gmock.h>

namespace velk::test {

using Lines = std::vector<std::wstring>;

// The add-in's entry object between a fake IDE and a fake Backend.
class ConnectFixture : public testing::Test {
protected:
    ConnectFixture()
    {
        backend.texts = {{100, L"Tahoma"}, {101, L"10"}, {200, L"Rozel"}, {400, L"Server View"}, {669, L"No project"}};
    }
    ~ConnectFixture() override
    {
        disconnect();
        connect.reset();
        serverViewWindow() = {};
        uiFont() = {};
    }
    void load()
    {
        connect = makeObject<Connect>();
        connect->OnConnection(ide.dte.get(), ext_cm_Startup, ide.addin.get(), nullptr);
    }
    void disconnect()
    {
        if (connect)
            connect->OnDisconnection(ext_dm_UserClosed, nullptr);
    }
    // Loads and starts as usual.
    void start()
    {
        load();
        ide.clickEntry();
    }
    // Once, inside a Backend function and before its own work.
    template <class Function>
    void inside(Function& function, std::function<void()> deed)
    {
        function = [original = function, deed, isDone = false](auto... arguments) mutable {
            if (!std::exchange(isDone, true))
                deed();
            return original(arguments...);
        };
    }
    // One journal for both neighbours from now on, the Backend's lines in angle brackets.
    void shareJournal()
    {
        backend.onCall = [this](const std::string& line) {
            ide.journal.push_back(L"<" + std::wstring(line.begin(), line.end()) + L">");
        };
    }
    ptrdiff_t placeInJournal(const std::wstring& line) const
    {
        return std::find(ide.journal.begin(), ide.journal.end(), line) - ide.journal.begin();
    }
    ptrdiff_t timesCalled(const std::string& call) const
    {
        return std::count(backend.calls.begin(), backend.calls.end(), call);
    }
    bool journalHas(const std::wstring& line) const
    {
        return std::find(ide.journal.begin(), ide.journal.end(), line) != ide.journal.end();
    }
    com_ptr<IDispatch> documentsManager() { return ide.document->read(L"IMgr").asObject(); }

    FakeBackend backend;
    FakeIde ide;
    ShownMessages shownMessages{ShownMessages::whole};
    std::vector<std::wstring>& messages = shownMessages.lines;
    std::function<void()>& duringMessage = shownMessages.duringMessage;
    com_ptr<Connect> connect;
};

} // namespace velk::test
