#pragma once

#include "notify/notificationThreadFrm.h"
#include "support/fakeBackend.h"
#include "support/fakeManager.h"
#include "support/shownMessages.h"
#include "ui/splashscrnFrm.h"

#include <gmock/gmock.h>

namespace velk::test {

// A pump that reads from the fake Backend and works for a fake manager; what it shows is kept and answered from here.
class PumpFixture : public testing::Test {
protected:
    PumpFixture()
    {
        backend.texts = {{646, L"Opening"}, {647, L"Done"}, {657, L"Add failed"}, {658, L"Remove failed"}};
        pump->setIMMgr(IntegrationMgr(com_ptr<_IntegrationMgr>(manager.get()), session));
    }
    ~PumpFixture() override
    {
        if (pump)
            pump->unload();
        unloadSplashScreen();
    }

    // What the add-in does to its pump at the end of a session.
    void end()
    {
        session.enter(SessionState::ending);
        if (pump)
            pump->unload();
        pump.reset();
    }

    FakeBackend backend;
    Session session;
    ShownMessages shownMessages{ShownMessages::textAndTitle};
    Lines& messages = shownMessages.lines;
    std::vector<uint32_t>& styles = shownMessages.styles;
    int& answer = shownMessages.answer;
    Lines journal;
    std::function<void()>& duringMessage = shownMessages.duringMessage;
    com_ptr<FakeManager> manager = makeObject<FakeManager>(journal);
    std::shared_ptr<notificationThreadFrm> pump = notificationThreadFrm::load();
};

} // namespace velk::test
