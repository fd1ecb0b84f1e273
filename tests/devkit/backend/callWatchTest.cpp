// What may happen inside a call of the library besides its work.
#include "devkit/backend/sampleBackend.h"

#include "devkit/contract/callMoment.h"

namespace velk::test {
namespace {

using devkit::CallHook;
using devkit::CallMoment;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr UINT wakeUp = WM_APP + 77;

std::vector<std::wstring> heard;
bool endsTheSession = false;

void __stdcall hear(const wchar_t* call, CallMoment moment) noexcept
{
    heard.push_back(call + std::wstring(moment == CallMoment::begins ? L" begins" : L" ends"));
    if (std::exchange(endsTheSession, false))
        RZTerminate();
}

class CallWatchTest : public SampleBackend {
protected:
    CallWatchTest() { heard.clear(); }
    void SetUp() override { beginSample(); }
    ~CallWatchTest() override { setHook(nullptr); }

    // Past the bridge, which would not make a wrong call.
    template <class Function>
    static Function* exported(const char* name)
    {
        return reinterpret_cast<Function*>(
            reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"velkvsadd.dll"), name)));
    }
    static void setHook(CallHook hook) { exported<int32_t __stdcall(CallHook)>("RZStandinSetCallHook")(hook); }
    static bool isWaiting()
    {
        MSG message{};
        return PeekMessageW(&message, nullptr, wakeUp, wakeUp, PM_NOREMOVE) != FALSE;
    }
};

TEST_F(CallWatchTest, hook_hearsEachCallBeforeItsWorkAndAfterIt)
{
    setHook(hear);
    RZSetCurrentFolder(1006, 13);
    RZTerminate();
    EXPECT_THAT(heard, ElementsAre(L"RZSetCurrentFolder begins", L"RZSetCurrentFolder ends", L"RZTerminate begins",
                                   L"RZTerminate ends"));
}

TEST_F(CallWatchTest, hookTakenAway_hearsNothing)
{
    setHook(hear);
    setHook(nullptr);
    RZTerminate();
    EXPECT_THAT(heard, IsEmpty());
}

TEST_F(CallWatchTest, sessionEndedInsideACall_failsTheRestOfItWithoutABreach)
{
    setHook(hear);
    endsTheSession = true;
    EXPECT_EQ(RZSetCurrentFolder(1006, 13), 0);
    EXPECT_THAT(breaches(), IsEmpty());
    EXPECT_EQ(journal().back(), L"RZTerminate()");
}

TEST_F(CallWatchTest, callAfterASessionThatEndedInsideAnother_isABreach)
{
    setHook(hear);
    endsTheSession = true;
    RZSetCurrentFolder(1006, 13);
    exported<int32_t __stdcall(int32_t, int32_t)>("RZSetCurrentFolder")(1006, 13);
    EXPECT_THAT(breaches(),
                ElementsAre(L"BREACH RZSetCurrentFolder(1006, 13): outside of RZInitialize and RZTerminate"));
}

TEST_F(CallWatchTest, sessionEndedInsideAnEnumerationsCall_excusesTheEnumeration)
{
    int32_t count = 0;
    int32_t enumeration = 0;
    RZTableEnumBegin(1006, count, enumeration);
    setHook(hear);
    endsTheSession = true;
    trzTable record;
    EXPECT_EQ(nextTable(enumeration, record), 0);
    EXPECT_THAT(breaches(), IsEmpty());
}

TEST_F(CallWatchTest, textFetchedWhileTheSessionEnds_isGivenAllTheSame)
{
    setHook(hear);
    endsTheSession = true;
    EXPECT_EQ(getRZString(428), L"Triggers");
}

TEST_F(CallWatchTest, messages_areWorkedOffInsideACallWhenAskedFor)
{
    PostThreadMessageW(GetCurrentThreadId(), wakeUp, 0, 0);
    getRZString(428);
    EXPECT_TRUE(isWaiting());
    SetEnvironmentVariableW(L"VELK_BACKEND_PUMP", L"1");
    getRZString(428);
    SetEnvironmentVariableW(L"VELK_BACKEND_PUMP", nullptr);
    EXPECT_FALSE(isWaiting());
    RZTerminate();
}

} // namespace
} // namespace velk::test
