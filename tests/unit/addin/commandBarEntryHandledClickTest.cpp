#include "addin/Connect.h"
#include "fakeIde.h"
#include "support/fakeBackend.h"
#include "ui/uiFont.h"

#include <gtest/gtest.h>

namespace velk {
namespace {

TEST(HandledClick, ofTheAddinsEntry_startsNothing)
{
    const test::FakeBackend backend;
    test::FakeIde ide;
    const com_ptr<Connect> connect = makeObject<Connect>();
    connect->OnConnection(ide.dte.get(), ext_cm_Startup, ide.addin.get(), nullptr);
    ide.entryEvents->click(ide.entry.get(), true);
    EXPECT_TRUE(ide.entry->read(L"Enabled").asBool());
    EXPECT_TRUE(backend.calls.empty());
    connect->OnDisconnection(ext_dm_UserClosed, nullptr);
    uiFont() = {};
}

} // namespace
} // namespace velk
