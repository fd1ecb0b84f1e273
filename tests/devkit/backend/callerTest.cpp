#include "devkit/backend/sampleBackend.h"

#include "devkit/backend/records.h"
#include "devkit/base/thread.h"

#include <array>
#include <cstring>

namespace velk::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// A counted string whose length need not be the truth.
template <uint32_t room>
struct Counted {
    uint32_t length = room;
    std::array<char, room + 1> characters{};

    explicit Counted(const char* text = "") { std::memcpy(characters.data(), text, std::strlen(text)); }
    char* get() { return characters.data(); }
};

template <class Function>
Function* exported(const char* name)
{
    return reinterpret_cast<Function*>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"velkvsadd.dll"), name)));
}

// Wrong calls, made past the bridge, which would not make them.
class Caller : public SampleBackend {
protected:
    void SetUp() override { beginSample(); }
};

TEST_F(Caller, everything_right_isNoBreach)
{
    RZTerminate();
    EXPECT_THAT(breaches(), IsEmpty());
    EXPECT_EQ(exported<int32_t __stdcall()>("RZStandinBreaches")(), 0);
}

TEST_F(Caller, session_usedAfterTerminate_isABreach)
{
    RZTerminate();
    exported<int32_t __stdcall(int32_t, int32_t)>("RZObjectDoAction")(1001, 10);
    EXPECT_THAT(breaches(), ElementsAre(L"BREACH RZObjectDoAction(1001, 10): outside of RZInitialize and RZTerminate"));
}

TEST_F(Caller, text_fetchedAfterTerminate_isAllowed)
{
    RZTerminate();
    EXPECT_EQ(getRZString(428), L"Triggers");
    EXPECT_THAT(breaches(), IsEmpty());
}

TEST_F(Caller, initialize_calledTwice_isABreach)
{
    EXPECT_EQ(RZInitialize(3, project(), L""), 0);
    EXPECT_THAT(breaches(), ElementsAre(L"BREACH RZInitialize: the session has begun already"));
    RZTerminate();
}

TEST_F(Caller, library_unloadedBeforeTerminate_isABreach)
{
    unloadBackend();
    EXPECT_THAT(breaches(), ElementsAre(L"BREACH unloaded without RZTerminate"));
}

TEST_F(Caller, handle_neverGivenOut_isABreach)
{
    EXPECT_EQ(RZSetCurrentFolder(77, 13), 0);
    EXPECT_THAT(breaches(), ElementsAre(L"BREACH RZSetCurrentFolder(77, 13): the handle is not live"));
    RZTerminate();
}

TEST_F(Caller, handle_ofAnotherKind_isABreach)
{
    EXPECT_EQ(RZSetCurrentFolder(1006, 15), 0);
    EXPECT_THAT(breaches(), ElementsAre(HasSubstr(L"of kind 13, not 15")));
    RZTerminate();
}

TEST_F(Caller, handle_ofAClosedProject_isABreachOnceTheCallerKnows)
{
    RZObjectDoAction(1001, 21);
    trzConnection record;
    EXPECT_EQ(fetchConnection(1002, record), 0);
    EXPECT_THAT(breaches(), IsEmpty());
    notifications();
    EXPECT_EQ(fetchConnection(1002, record), 0);
    EXPECT_THAT(breaches(), ElementsAre(L"BREACH RZConnectionGet(1002): the handle is not live"));
    RZTerminate();
}

TEST_F(Caller, enumeration_notEnded_isABreach)
{
    int32_t count = 0;
    int32_t enumeration = 0;
    RZTableEnumBegin(1006, count, enumeration);
    RZTerminate();
    EXPECT_THAT(breaches(), ElementsAre(HasSubstr(L"enumeration 800001 was not ended")));
}

TEST_F(Caller, enumeration_endedTwice_isABreach)
{
    names(1006, 13);
    RZTableEnumEnd(800001);
    EXPECT_THAT(breaches(), ElementsAre(HasSubstr(L"no such enumeration is open")));
    RZTerminate();
}

TEST_F(Caller, enumeration_ofAnotherKind_isABreach)
{
    int32_t count = 0;
    int32_t enumeration = 0;
    RZTableEnumBegin(1006, count, enumeration);
    trzView record;
    EXPECT_EQ(nextView(enumeration, record), 0);
    EXPECT_THAT(breaches(), ElementsAre(HasSubstr(L"no such enumeration is open")));
    RZTableEnumEnd(enumeration);
    RZTerminate();
}

TEST_F(Caller, buffer_shorterThanSaid_isABreach)
{
    Counted<8> buffer;
    exported<int32_t __stdcall(int32_t, char*, int32_t)>("RZGetString")(428, buffer.get(), 1024);
    EXPECT_THAT(breaches(), ElementsAre(L"BREACH RZGetString: the buffer has length 8, not 1024"));
    EXPECT_STREQ(buffer.get(), "Trigger");
    RZTerminate();
}

TEST_F(Caller, buffer_notBlank_isABreach)
{
    Counted<32> buffer("old");
    exported<int32_t __stdcall(int32_t, char*, int32_t)>("RZGetString")(428, buffer.get(), 32);
    EXPECT_THAT(breaches(), ElementsAre(HasSubstr(L"not preset with NULs")));
    RZTerminate();
}

TEST_F(Caller, string_withAWrongLength_isABreach)
{
    Counted<8> folder("abc");
    Counted<0> file;
    exported<int32_t __stdcall(char*, char*, int32_t)>("RZProjectDoAccess")(folder.get(), file.get(), 9);
    EXPECT_THAT(breaches(), Contains(HasSubstr(L"the length of a string is not where its NUL is")));
    EXPECT_THAT(breaches(), Contains(HasSubstr(L"there is no such mode")));
    RZTerminate();
}

TEST_F(Caller, string_withoutALength_isABreachAndNoCrash)
{
    Counted<8> folder("abc");
    folder.length = 0x7FFFFFFF;
    Counted<0> file;
    exported<int32_t __stdcall(char*, char*, int32_t)>("RZProjectDoAccess")(folder.get(), file.get(), 9);
    EXPECT_THAT(breaches(), Contains(HasSubstr(L"RZProjectDoAccess(\"abc\", \"\", 9): the length of a string")));
    RZTerminate();
}

TEST_F(Caller, buffer_claimingTooMuchRoom_isLeftAlone)
{
    Counted<8> buffer;
    buffer.length = 4000;
    exported<int32_t __stdcall(int32_t, char*, int32_t)>("RZGetString")(428, buffer.get(), 8);
    EXPECT_THAT(breaches(), Contains(HasSubstr(L"the buffer has length 4000, not 8")));
    EXPECT_STREQ(buffer.get(), "");
    RZTerminate();
}

TEST_F(Caller, texts_whenAskedFor_areInTheJournal)
{
    SetEnvironmentVariableW(L"VELK_BACKEND_JOURNAL_TEXTS", L"1");
    getRZString(428);
    SetEnvironmentVariableW(L"VELK_BACKEND_JOURNAL_TEXTS", nullptr);
    EXPECT_THAT(journal(), Contains(L"RZGetString(428)"));
    RZTerminate();
}

TEST_F(Caller, texts_withParameters_areWhole)
{
    std::wstring first = L"View Source";
    std::wstring second = L"Check In";
    EXPECT_EQ(getRZStringP2(683, first, second), L"The object has no source file. Use View Source before Check In.");
    EXPECT_EQ(getRZStringP1(675, first), L"View Source cannot be handed to Visual SourceSafe.");
    EXPECT_EQ(getRZString(9999), L"");
    RZTerminate();
}

TEST_F(Caller, texts_ofAnotherTable_areTaken)
{
    RZTerminate();
    unloadBackend();
    write(L"rz\\other.rzv", "428=2 \xC3\x97 2\n");
    SetEnvironmentVariableW(L"VELK_BACKEND_TEXTS", path(L"rz\\other.rzv").c_str());
    EXPECT_EQ(getRZString(428), L"2 \xD7 2");
    SetEnvironmentVariableW(L"VELK_BACKEND_TEXTS", nullptr);
}

TEST_F(Caller, record_withAFieldOfAnotherLength_isABreach)
{
    Counted<256> name;
    Counted<256> wrong;
    devkit::wire::trzProject record{0, name.get(), wrong.get()};
    EXPECT_NE((exported<int32_t __stdcall(int32_t, void*)>("RZProjectGet")(1001, &record)), 0);
    EXPECT_THAT(breaches(), ElementsAre(HasSubstr(L"trzProject.strPath has length 256, not 1024")));
    RZTerminate();
}

TEST_F(Caller, record_withoutAString_isABreachAndNoCrash)
{
    devkit::wire::trzProject record{};
    EXPECT_EQ((exported<int32_t __stdcall(int32_t, void*)>("RZProjectGet")(1001, &record)), 0);
    EXPECT_THAT(breaches(), Contains(HasSubstr(L"trzProject.strName is missing")));
    RZTerminate();
}

TEST_F(Caller, answer_toNoQuestion_isABreach)
{
    EXPECT_EQ(RZButtonDoAction(L"User response", 6), 0);
    EXPECT_THAT(breaches(), ElementsAre(L"BREACH RZButtonDoAction(\"User response\", 6): nothing was asked"));
    RZTerminate();
}

TEST_F(Caller, action_unknown_isABreach)
{
    EXPECT_EQ(RZObjectDoAction(1001, 99), 0);
    EXPECT_THAT(breaches(), ElementsAre(HasSubstr(L"there is no such action")));
    RZTerminate();
}

TEST_F(Caller, payload_neverQueued_isABreach)
{
    trzSQLText record;
    EXPECT_EQ(fetchSQLText(5, record), 0);
    EXPECT_THAT(breaches(), ElementsAre(L"BREACH RZGetSQLText(5): nothing of this kind was ever queued"));
    RZTerminate();
}

TEST_F(Caller, session_usedOnAnotherThread_isABreach)
{
    devkit::Thread([] { RZObjectDoAction(1006, 10); }).join();
    EXPECT_THAT(breaches(), ElementsAre(HasSubstr(L"on another thread than RZInitialize")));
    RZTerminate();
}

TEST_F(Caller, connections_enumerated_areThoseOfTheProject)
{
    int32_t count = 0;
    int32_t enumeration = 0;
    ASSERT_NE(RZConnectionEnumBegin(1001, count, enumeration), 0);
    trzConnection record;
    EXPECT_NE(RZConnectionEnumNext(enumeration, record), 0);
    EXPECT_EQ(record.lHdl, 1002);
    RZConnectionEnumEnd(enumeration);
    EXPECT_EQ(count, 1);
    RZTerminate();
}

} // namespace
} // namespace velk::test
