// A user and a tool who do what they like, in turns, for a long time: after every step the list shows what the
// notifications have told of the selected folder and nothing else.
//
// VELK_SOAK_EVENTS: how many steps (60,000: a minute); VELK_SEED: which walk (1). A walk that fails says both; with
// fewer steps it is the beginning of the same walk.
#include "forms/serverview/viewFixture.h"
#include "notify/notificationThreadFrm.h"
#include "support/fakeManager.h"
#include "support/shownMessages.h"
#include "ui/splashscrnFrm.h"

#include <cstdlib>
#include <iostream>
#include <random>

namespace velk {
namespace {

using test::Lines;
using Rows = std::map<int32_t, std::wstring>; // name by handle

int numberFromOutside(const char* name, int otherwise)
{
    const char* const text = std::getenv(name);
    return text ? std::atoi(text) : otherwise;
}

class WalkTest : public test::ViewFixture {
protected:
    WalkTest()
    {
        const IntegrationMgr shared(com_ptr<_IntegrationMgr>(manager.get()), session);
        view.setIMgr(shared);
        view.setupGUI(); // as the document does when it hands the manager over
        pump->setIMMgr(shared);
        addProject();
        tree().select(L"K1");
        backend.onCall = [this](const std::string&) { backend.calls.clear(); };
    }
    ~WalkTest() override
    {
        pump->unload();
        unloadSplashScreen();
    }

    int any(int end) { return static_cast<int>(random() % static_cast<uint32_t>(end)); }

    // --- the tool: five folders, of kinds 7 to 15 and handles 20 to 24, each with its objects ---

    static int32_t kindOf(int folder) { return 7 + 2 * folder; }
    void store(int folder, int32_t handle)
    {
        const std::wstring name = L"N" + std::to_wstring(handle) + L"v" + std::to_wstring(++version);
        truth[folder][handle] = name;
        switch (folder) {
        case 0:
            backend.procedures[handle] = {.strName = name};
            break;
        case 1:
            backend.functions[handle] = {.strName = name};
            break;
        case 2:
            backend.triggers[handle] = {.strName = name};
            break;
        case 3:
            backend.tables[handle] = {.strName = name};
            break;
        default:
            backend.views[handle] = {.strName = name};
            break;
        }
    }
    void forget(int folder, int32_t handle)
    {
        truth[folder].erase(handle);
        backend.procedures.erase(handle);
        backend.functions.erase(handle);
        backend.triggers.erase(handle);
        backend.tables.erase(handle);
        backend.views.erase(handle);
    }
    void enumerateTruth()
    {
        for (int folder = 0; folder < 5; ++folder) {
            std::vector<int32_t>& objects = backend.folders[20 + folder];
            objects.clear();
            for (const auto& [handle, name] : truth[folder])
                objects.push_back(handle);
        }
    }
    int32_t anyObject(int folder)
    {
        if (truth[folder].empty() || any(20) == 0)
            return 100 + any(1000); // perhaps one that is not there
        return std::next(truth[folder].begin(), any(static_cast<int>(truth[folder].size())))->first;
    }
    void toolActs()
    {
        const int folder = any(5);
        const int deed = truth[folder].size() < 40 ? any(10) : 6 + any(4);
        if (deed == 0)
            return backend.notify(5, 1, 10, kindOf(folder), 20 + folder);
        const int32_t handle = deed < 6 ? nextHandle++ : anyObject(folder);
        if (deed < 6) {
            store(folder, handle);
            backend.notify(8, 1, 10, kindOf(folder) + 1, handle);
        } else if (deed < 8) {
            if (truth[folder].contains(handle))
                store(folder, handle);
            backend.notify(6, 1, 10, kindOf(folder) + 1, handle);
        } else {
            forget(folder, handle);
            backend.notify(7, 1, 10, kindOf(folder) + 1, handle);
        }
    }

    // --- the user ---

    void userActs()
    {
        const int folder = any(7) - 1;
        const int deed = any(4);
        if (deed == 0 && selected >= 0)
            return orderBy(any(list().view().columnCount()));
        const std::wstring key = folder < 0 || folder > 4 ? L"K10" : L"K2" + std::to_wstring(folder);
        const int wanted = folder < 0 || folder > 4 ? -1 : folder;
        tree().select(key);
        if (wanted != selected)
            expected.clear();
        selected = wanted;
        if (selected >= 0 && any(3) > 0)
            backend.notify(5, 1, 10, kindOf(selected), 20 + selected);
    }
    void orderBy(int column)
    {
        NMLISTVIEW clicked{};
        clicked.hdr = {list().view().hwnd(), 0, LVN_COLUMNCLICK};
        clicked.iItem = -1;
        clicked.iSubItem = column;
        SendMessageW(GetParent(list().view().hwnd()), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&clicked));
    }

    // --- what the notifications say, and what is shown ---

    void expect(const trzNotify& notification)
    {
        const bool isContents = notification.lNotifyType == 5;
        const int folder = (notification.lObjectType - (isContents ? 7 : 8)) / 2;
        if (folder != selected)
            return;
        const auto object = truth[folder].find(notification.lObjectHdl);
        if (isContents)
            expected = truth[folder];
        else if (notification.lNotifyType == 7)
            expected.erase(notification.lObjectHdl);
        else if (notification.lNotifyType == 8 && object != truth[folder].end())
            expected.insert(*object); // one that is there already stays as it is
        else if (folder < 2 && object != truth[folder].end() && expected.contains(object->first))
            expected[object->first] = object->second; // only procedures and functions show their changes
    }
    void tick()
    {
        enumerateTruth();
        for (const trzNotify& notification : backend.notifications)
            expect(notification);
        while (!backend.notifications.empty())
            pump->timerThread_Timer();
    }
    std::multiset<std::wstring> shownNames()
    {
        std::multiset<std::wstring> names;
        for (int row = 0; row < shownRows(); ++row)
            for (const std::wstring& text : cells(row))
                if (text.starts_with(L"N"))
                    names.insert(text);
        return names;
    }
    std::multiset<std::wstring> expectedNames() const
    {
        std::multiset<std::wstring> names;
        for (const auto& [handle, name] : expected)
            names.insert(name);
        return names;
    }

    Session session;
    test::ShownMessages shownMessages{test::ShownMessages::textAndTitle};
    Lines journal;
    com_ptr<test::FakeManager> manager = makeObject<test::FakeManager>(journal);
    std::shared_ptr<notificationThreadFrm> pump = notificationThreadFrm::load();
    std::mt19937 random;
    std::map<int, Rows> truth;
    Rows expected;
    int selected = -1;
    int32_t nextHandle = 2000;
    int version = 0;
};

TEST_F(WalkTest, anyWalk_showsWhatTheNotificationsTold)
{
    const int events = numberFromOutside("VELK_SOAK_EVENTS", 60000);
    const int seed = numberFromOutside("VELK_SEED", 1);
    random.seed(static_cast<uint32_t>(seed));
    for (int event = 1; event <= events; ++event) {
        any(4) == 0 ? userActs() : toolActs();
        if (any(3) != 0 && event != events)
            continue; // what has happened waits
        tick();
        ASSERT_EQ(shownNames(), expectedNames())
            << "to see it again: VELK_SEED=" << seed << " VELK_SOAK_EVENTS=" << event;
        shownMessages.lines.clear();
    }
    std::cout << events << " events of walk " << seed << ", " << version << " objects stored\n";
}

} // namespace
} // namespace velk
