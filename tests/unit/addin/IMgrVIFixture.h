#pragma once

#include "addin/IMgrVI.h"
#include "fakeIde.h"
#include "serverview/serverViewDoc.h"
#include "support/fakeBackend.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace velk::test {

// A manager that is set up with an IDE.
class IMgrVIFixture : public testing::Test {
protected:
    IMgrVIFixture() { manager->setupIM(ide.dte.get(), ide.addin.get()); }
    ~IMgrVIFixture() override
    {
        manager->closeRZCommunication();
        manager->deleteRZUI();
        serverViewWindow() = {};
    }
    IntegrationMgr requests() { return IntegrationMgr(com_ptr<_IntegrationMgr>(manager.get())); }
    int32_t windowState() { return ide.mainWindow->read(L"WindowState").asLong(); }
    int64_t timesInJournal(const std::wstring& line)
    {
        return std::count(ide.journal.begin(), ide.journal.end(), line);
    }

    FakeBackend backend;
    FakeIde ide;
    com_ptr<IMgrVI> manager = makeObject<IMgrVI>();
};

} // namespace velk::test
