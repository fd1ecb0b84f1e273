#include "sampleDatabase.h"

namespace velk {
namespace {

using testing::HasSubstr;

class VSSDatabaseTest : public test::SourceSafeFixture {};

TEST_F(VSSDatabaseTest, open_tellsDatabaseAndUser)
{
    const com_ptr<IDispatch> database = open(L"ANN");
    EXPECT_EQ(automation::get(database, L"DatabaseName").asText(), L"Sample");
    EXPECT_EQ(automation::get(database, L"SrcSafeIni").asText(), files::fullPath(ini));
    EXPECT_EQ(automation::get(database, L"Username").asText(), L"ann");
}

TEST_F(VSSDatabaseTest, userWithoutAPassword_getsIn)
{
    EXPECT_EQ(automation::get(open(L"bob", L""), L"Username").asText(), L"bob");
}

TEST_F(VSSDatabaseTest, usersWrittenByAnEditorWithAByteOrderMark_areKnown)
{
    files::replace(folder + L"\\vss\\users.txt", "\xEF\xBB\xBF"
                                                 "eve=x=y\n");
    EXPECT_EQ(automation::get(open(L"eve", L"x=y"), L"Username").asText(), L"eve");
}

TEST_F(VSSDatabaseTest, wrongPassword_isRefusedWithoutRepeatingIt)
{
    const Error error = failureOf([&] { open(L"ann", L"tOp-sEcret"); });
    EXPECT_EQ(error.result(), static_cast<HRESULT>(0x8004D6C9));
    EXPECT_EQ(error.source(), L"SourceSafe");
    EXPECT_EQ(error.description(), L"The password for user \"ann\" is wrong.");
}

TEST_F(VSSDatabaseTest, passwordInOtherLetters_isWrong)
{
    EXPECT_EQ(failureOf([&] { open(L"ann", L"Secret"); }).result(), static_cast<HRESULT>(0x8004D6C9));
}

TEST_F(VSSDatabaseTest, unknownUser_isRefused)
{
    const Error error = failureOf([&] { open(L"eve", L"tOp-sEcret"); });
    EXPECT_EQ(error.result(), static_cast<HRESULT>(0x8004D6C2));
    EXPECT_THAT(error.description(), HasSubstr(L"\"eve\""));
    EXPECT_EQ(error.description().find(L"tOp-sEcret"), std::wstring::npos);
}

TEST_F(VSSDatabaseTest, missingDatabase_isRefusedByItsIniFile)
{
    const com_ptr<IDispatch> database = automation::createObject(L"SourceSafe");
    const Error error =
        failureOf([&] { automation::call(database, L"Open", {text(folder + L"\\none\\srcsafe.ini"), L"ann", L""}); });
    EXPECT_EQ(error.result(), static_cast<HRESULT>(0x8004D75D));
    EXPECT_THAT(error.description(), HasSubstr(L"\\none\\srcsafe.ini"));
}

TEST_F(VSSDatabaseTest, openWithNamedArguments_isTheSame)
{
    const com_ptr<IDispatch> database = automation::createObject(L"SourceSafe");
    automation::call(database, L"Open",
                     {{}, {{L"Username", text(L"ann")}, {L"Password", text(L"secret")}, {L"SrcSafeIni", text(ini)}}});
    EXPECT_EQ(automation::get(database, L"Username").asText(), L"ann");
}

TEST_F(VSSDatabaseTest, itemsBeforeOpen_fail)
{
    const com_ptr<IDispatch> database = automation::createObject(L"SourceSafe");
    EXPECT_EQ(failureOf([&] { item(database, L"$/"); }).description(), L"No database is open.");
}

TEST_F(VSSDatabaseTest, failedOpen_keepsWhatWasOpen)
{
    const com_ptr<IDispatch> database = open();
    failureOf([&] { automation::call(database, L"Open", {text(ini), text(L"eve"), text(L"")}); });
    EXPECT_EQ(automation::get(database, L"Username").asText(), L"ann");
}

TEST_F(VSSDatabaseTest, missingItem_isNamedInTheFailure)
{
    const com_ptr<IDispatch> database = open();
    const Error error = failureOf([&] { item(database, L"$/Orders/none.sql"); });
    EXPECT_EQ(error.result(), static_cast<HRESULT>(0x8004D68F));
    EXPECT_EQ(error.description(), L"\"$/Orders/none.sql\" does not exist.");
}

TEST_F(VSSDatabaseTest, itemInOtherLetters_isFoundAndTellsItsOwn)
{
    EXPECT_EQ(automation::get(item(open(), L"$/oRDERS"), L"Spec").asText(), L"$/Orders");
}

TEST_F(VSSDatabaseTest, itemWithoutTheRoot_isReadFromTheCurrentProject)
{
    const com_ptr<IDispatch> database = open();
    added(database, L"a.sql", "one");
    automation::put(database, L"CurrentProject", text(L"$/orders"));
    EXPECT_EQ(automation::get(database, L"CurrentProject").asText(), L"$/Orders");
    EXPECT_EQ(automation::get(item(database, L"a.sql"), L"Spec").asText(), L"$/Orders/a.sql");
}

TEST_F(VSSDatabaseTest, currentProjectThatIsMissing_staysAsItWas)
{
    const com_ptr<IDispatch> database = open();
    EXPECT_EQ(failureOf([&] { automation::put(database, L"CurrentProject", text(L"$/None")); }).result(),
              static_cast<HRESULT>(0x8004D68F));
    EXPECT_EQ(automation::get(database, L"CurrentProject").asText(), L"$/");
}

// Names that the file system would read as something else than one name.
class BadSpecTest : public VSSDatabaseTest, public testing::WithParamInterface<const wchar_t*> {};

TEST_P(BadSpecTest, itemOfThatName_isRefusedAsSyntax)
{
    const com_ptr<IDispatch> database = open();
    EXPECT_EQ(failureOf([&] { item(database, GetParam()); }).result(), static_cast<HRESULT>(0x8004D6ED));
}

INSTANTIATE_TEST_SUITE_P(Specs, BadSpecTest,
                         testing::Values(L"$/Orders/..", L"$/*", L"$/Ord?rs", L"$//Orders", L"$/a\\b", L"$Orders",
                                         L"$/Orders/a. "));

} // namespace
} // namespace velk
