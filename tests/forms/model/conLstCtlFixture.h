#pragma once

#include "model/conLstCtl.h"
#include "support/fakeBackend.h"
#include "support/fakeManager.h"

#include <gtest/gtest.h>

namespace velk::test {

// The connection dialog with a manager that knows two projects.
class ConLstCtlFixture : public testing::Test {
protected:
    ConLstCtlFixture()
    {
        backend.numbersAsTexts = true;
        manager->projects = {L"Web", L"Tools"};
        manager->dataEnvironments = {{L"Web", {L"DE1", L"DE2"}}, {L"Tools", {L"DE3"}}};
        manager->connections = {{L"Web/DE1", {L"C1", L"C2"}}, {L"Web/DE2", {L"C3"}}, {L"Tools/DE3", {L"C4"}}};
        form.setIMgr(IntegrationMgr(com_ptr<_IntegrationMgr>(manager.get())));
    }
    void press(int id) { SendMessageW(form.hwnd(), WM_COMMAND, static_cast<WPARAM>(id), 0); }
    void choose(int combo, int index)
    {
        form.selectInList(combo, index);
        SendMessageW(form.hwnd(), WM_COMMAND, MAKEWPARAM(combo, CBN_SELCHANGE), 0);
    }

    FakeBackend backend;
    Lines journal;
    com_ptr<FakeManager> manager = makeObject<FakeManager>(journal);
    conLstCtl form;
};

} // namespace velk::test
