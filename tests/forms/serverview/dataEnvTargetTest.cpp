#include "serverview/dataEnvTarget.h"
#include "base/unique_any.h"
#include "commandsFixture.h"

namespace velk {
namespace {

class DataEnvTargetTest : public test::CommandsFixture {
protected:
    DataEnvTargetTest()
    {
        manager->projects = {L"Web"};
        manager->dataEnvironments = {{L"Web", {L"DE1"}}};
        manager->connections = {{L"Web/DE1", {L"C1"}}};
    }
    // Asks with a user who presses this button as soon as the dialog waits.
    bool ask(bool forCommand, int button)
    {
        pressed() = button;
        const UINT_PTR user = SetTimer(nullptr, 0, 10, press);
        const scope_exit gone([&] { KillTimer(nullptr, user); });
        const IntegrationMgr managed(com_ptr<_IntegrationMgr>(manager.get()), session);
        const bool answer = askDataEnvTarget(managed, CommandLife(managed), forCommand, target);
        KillTimer(nullptr, user);
        return answer;
    }
    static void CALLBACK press(HWND, UINT, UINT_PTR, DWORD)
    {
        wasShown() = true;
        PostMessageW(connectionDialog().hwnd(), WM_COMMAND, static_cast<WPARAM>(pressed()), 0);
    }
    static int& pressed()
    {
        static int button = 0;
        return button;
    }
    static bool& wasShown()
    {
        static bool shown = false;
        return shown;
    }
    ULONG references() const
    {
        manager->AddRef();
        return manager->Release();
    }
    std::wstring chosenTarget() const
    {
        return target.name + L"|" + target.projName + L"|" + target.dataenvName + L"|" + target.conName;
    }

    Session session; // of the manager
    DataEnvTarget target{L"offered", L"", L"", L""};
};

TEST_F(DataEnvTargetTest, okForACommand_givesAllFourChoices)
{
    EXPECT_TRUE(ask(true, conLstCtl::okBtn));
    EXPECT_EQ(chosenTarget(), L"offered|Web|DE1|C1");
}

TEST_F(DataEnvTargetTest, okForAConnection_givesNoConnection)
{
    EXPECT_TRUE(ask(false, conLstCtl::okBtn));
    EXPECT_EQ(chosenTarget(), L"offered|Web|DE1|");
}

TEST_F(DataEnvTargetTest, cancel_leavesTheTargetAsItWas)
{
    EXPECT_FALSE(ask(true, conLstCtl::cancelBtn));
    EXPECT_EQ(chosenTarget(), L"offered|||");
    EXPECT_FALSE(connectionDialog().isLoaded());
}

TEST_F(DataEnvTargetTest, managerThatFails_unloadsTheDialogAndPassesTheFailureOn)
{
    manager->failWith = E_FAIL;
    const ULONG before = references();
    EXPECT_THROW(ask(true, conLstCtl::okBtn), Error);
    EXPECT_FALSE(connectionDialog().isLoaded());
    EXPECT_EQ(references(), before); // the dialog has let the manager go
}

TEST_F(DataEnvTargetTest, sessionThatIsOverAtEntry_opensNoDialogAndAsksNothing)
{
    session.enter(SessionState::ended);
    wasShown() = false;
    EXPECT_FALSE(ask(true, conLstCtl::okBtn));
    EXPECT_FALSE(wasShown());
    EXPECT_EQ(journal, test::Lines{});
}

TEST_F(DataEnvTargetTest, managersSessionThatEndsWhileItIsAsked_opensNoDialog)
{
    manager->whileAsked = [this](const std::wstring&) { session.enter(SessionState::ending); };
    wasShown() = false;
    EXPECT_FALSE(ask(true, conLstCtl::okBtn));
    EXPECT_FALSE(wasShown());
    EXPECT_FALSE(connectionDialog().isLoaded());
}

TEST_F(DataEnvTargetTest, viewThatGoesWhileTheManagerIsAsked_opensNoDialog)
{
    auto other = std::make_unique<svrViewCtl>();
    other->create(host, {0, 0, 400, 300});
    other->setupGUI();
    manager->whileAsked = [&](const std::wstring&) { other.reset(); };
    wasShown() = false;
    EXPECT_FALSE(ask(true, conLstCtl::okBtn));
    EXPECT_FALSE(wasShown());
    EXPECT_FALSE(connectionDialog().isLoaded());
}

} // namespace
} // namespace velk
