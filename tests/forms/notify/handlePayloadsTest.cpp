#include "pumpFixture.h"

namespace velk {
namespace {

using test::Lines;

class PayloadsTest : public test::PumpFixture {};

TEST_F(PayloadsTest, sqlText_reachesTheModelWithItsRange)
{
    backend.sqlTexts[70] = {.strVSProject = L"P",
                            .strVSFile = L"a.sql",
                            .lSelFromLine = 1,
                            .lSelFromColumn = 2,
                            .lSelToLine = 3,
                            .lSelToColumn = 4,
                            .strText = L"select 1"};
    backend.notify(3, 1, 2, 8, 70);
    pump->timerThread_Timer();
    EXPECT_EQ(journal.back(), L"insertSQLCode(select 1, 1, 2, 3, 4, , a.sql)"); // the project has no room in the record
}

TEST_F(PayloadsTest, adoText_reachesTheModel)
{
    backend.adoTexts[71] = {.strVSProject = L"P", .strVSFile = L"a.asp", .strText = L"Set c = Nothing"};
    backend.notify(4, 1, 2, 8, 71);
    pump->timerThread_Timer();
    EXPECT_EQ(journal.back(), L"insertClientCode(Set c = Nothing, P, a.asp)");
}

TEST_F(PayloadsTest, dataEnvironmentConnection_reachesTheModel)
{
    backend.connectionDEs[72] = {
        .strVSProject = L"P", .strDEName = L"DE1", .strDEConnection = L"C1", .strConnectionString = L"DSN=x"};
    backend.notify(9, 1, 2, 6, 72);
    pump->timerThread_Timer();
    EXPECT_EQ(journal.back(), L"addADOConnection(DSN=x, C1, DE1, P)");
}

TEST_F(PayloadsTest, dataEnvironmentCommand_reachesTheModelWithItsAdoType)
{
    backend.commandDEs[73] = {.strVSProject = L"P",
                              .strDEName = L"DE1",
                              .strDEConnection = L"C1",
                              .strDECommand = L"K",
                              .strCommandText = L"p",
                              .lCommandType = 1,
                              .bHasParemeters = true};
    backend.notify(10, 1, 2, 8, 73);
    pump->timerThread_Timer();
    EXPECT_EQ(journal.back(), L"AddADOCommand(4, p, K, C1, DE1, P)");
}

TEST_F(PayloadsTest, commandTypeNine_isAddedWithAdoTypeZero)
{
    backend.commandDEs[73] = {.strVSProject = L"P",
                              .strDEName = L"DE1",
                              .strDEConnection = L"C1",
                              .strDECommand = L"K",
                              .strCommandText = L"p",
                              .lCommandType = 9,
                              .bHasParemeters = false};
    backend.notify(10, 1, 2, 8, 73);
    pump->timerThread_Timer();
    EXPECT_EQ(journal.back(), L"AddADOCommand(0, p, K, C1, DE1, P)");
}

struct CommandType {
    int32_t toolType;
    int32_t adoType;
};
class CommandTypeTest : public PayloadsTest, public testing::WithParamInterface<CommandType> {};

TEST_P(CommandTypeTest, commandType_goesOnAsThatOfAdo)
{
    backend.commandDEs[73] = {.lCommandType = GetParam().toolType};
    backend.notify(10, 1, 2, 8, 73);
    pump->timerThread_Timer();
    EXPECT_EQ(journal.back(), L"AddADOCommand(" + std::to_wstring(GetParam().adoType) + L", , , , , )");
}

INSTANTIATE_TEST_SUITE_P(Types, CommandTypeTest,
                         testing::Values(CommandType{1, 4}, CommandType{2, 1}, CommandType{3, 2}, CommandType{4, 512},
                                         CommandType{5, 128}, CommandType{6, 256}, CommandType{7, 8}, CommandType{0, 0},
                                         CommandType{8, 0}, CommandType{-1, 0}));

struct PayloadFailure {
    int32_t type;
    int32_t text;
};
class PayloadFailureTest : public PayloadsTest, public testing::WithParamInterface<PayloadFailure> {};

TEST_P(PayloadFailureTest, payloadThatCannotBeFetched_isToldByItsText)
{
    backend.texts[GetParam().text] = L"failed";
    backend.notify(GetParam().type, 1, 2, 8, 99);
    pump->timerThread_Timer();
    EXPECT_EQ(messages, Lines{L"failed|velkviadd"});
}

TEST_P(PayloadFailureTest, modelThatFails_isToldByItsText)
{
    backend.texts[GetParam().text] = L"failed";
    backend.sqlTexts[99] = {};
    backend.adoTexts[99] = {};
    backend.connectionDEs[99] = {};
    backend.commandDEs[99] = {};
    manager->model->failWith = E_FAIL;
    backend.notify(GetParam().type, 1, 2, 8, 99);
    pump->timerThread_Timer();
    EXPECT_EQ(messages, Lines{L"failed|velkviadd"});
}

INSTANTIATE_TEST_SUITE_P(Payloads, PayloadFailureTest,
                         testing::Values(PayloadFailure{3, 659}, PayloadFailure{4, 660}, PayloadFailure{9, 655},
                                         PayloadFailure{10, 656}));

} // namespace
} // namespace velk
