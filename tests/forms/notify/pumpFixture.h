#pragma once

#include "notify/notificationThreadFrm.h"
#include "support/fakeBackend.h"
#include "support/fakeManager.h"
#include "ui/messageBox.h"
#include "ui/splashscrnFrm.h"

#include <gmock/gmock.h>

namespace velk::test {

// A pump that reads from the fake Backend and works for a fake manager; what it shows is kept and answered from here.
class PumpFixture : public testing::Test {
protected:
    PumpFixture()
    {
        backend.texts = {{646, L"Opening"}, {647, L"Done"}, {657, L"Add failed"}, {658, L"Remove failed"}};
        setMessagePresenter([this](const std::wstring& text, uint32_t style, const std::wstring& title) {
            messages.push_back(text + L"|" + title);
            styles.push_back(style);
            if (duringMessage)
                duringMessage();
            return answer;
        });
        pump->setIMMgr(IntegrationMgr(com_ptr<_IntegrationMgr>(manager.get()), session));
    }
    ~PumpFixture() override
    {
        if (pump)
            pump->unload();
        unloadSplashScreen();
        setMessagePresenter({});
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
    Lines messages;
    std::vector<uint32_t> styles;
    int32_t answer = IDOK;
    Lines journal;
    std::function<void()> duringMessage;
    com_ptr<FakeManager> manager = makeObject<FakeManager>(journal);
    std::shared_ptr<notificationThreadFrm> pump = notificationThreadFrm::load();
};

} // namespace velk::test
