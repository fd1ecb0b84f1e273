#include "devkit/backend/conversation.h"
#include "devkit/backend/counted.h"
#include "devkit/backend/facts.h"
#include "devkit/backend/journal.h"
#include "devkit/backend/messages.h"
#include "devkit/backend/odbc.h"
#include "devkit/backend/projectFile.h"
#include "devkit/backend/queue.h"
#include "devkit/backend/routineSource.h"
#include "devkit/backend/texts.h"

#include <gmock/gmock.h>

namespace velk::test {
namespace {

using namespace devkit;

int brokenLine(std::string_view bytes)
{
    try {
        parseProject(bytes);
    } catch (const ProjectFileError& error) {
        return error.line;
    }
    return 0;
}

TEST(ProjectFiles, file_whole_isRead)
{
    const ProjectFile file = parseProject("\xEF\xBB\xBF[project]\r\nname = B\xC3\xBC"
                                          "cher\r\n[connection]\nname=A\n"
                                          "odbc=Driver=X;Database=a.db\n[procedure]\nfile=p.sql\ndebug=yes\n"
                                          "[function]\nfile=f.sql\nconnection=A\n");
    EXPECT_EQ(file.name, L"B\xFC"
                         L"cher");
    ASSERT_EQ(file.connections.size(), 1U);
    EXPECT_EQ(file.connections[0].odbc, L"Driver=X;Database=a.db");
    ASSERT_EQ(file.procedures.size(), 1U);
    EXPECT_TRUE(file.procedures[0].debug);
    ASSERT_EQ(file.functions.size(), 1U);
    EXPECT_EQ(file.functions[0].connection, L"A");
}

TEST(ProjectFiles, section_unknown_isRefusedWithItsLine)
{
    EXPECT_EQ(brokenLine("\n[nonsense]\n"), 2);
}

TEST(ProjectFiles, value_outsideOfASection_isRefusedWithItsLine)
{
    EXPECT_EQ(brokenLine("name=A\n"), 1);
}

TEST(ProjectFiles, value_ofAnotherSection_isRefused)
{
    EXPECT_EQ(brokenLine("[project]\nodbc=A\n"), 2);
}

TEST(ProjectFiles, connection_withoutAString_isRefusedWithItsHeading)
{
    EXPECT_EQ(brokenLine("[connection]\nname=A\n"), 1);
}

TEST(ProjectFiles, connection_twiceByName_isRefused)
{
    EXPECT_EQ(brokenLine("[connection]\nname=A\nodbc=X\n[connection]\nname=A\nodbc=Y\n"), 4);
}

TEST(ProjectFiles, routine_ofAnUnknownConnection_isRefused)
{
    EXPECT_EQ(brokenLine("[procedure]\nfile=a.sql\nconnection=B\n"), 1);
}

TEST(ProjectFiles, debug_neitherYesNorNo_isRefused)
{
    EXPECT_EQ(brokenLine("[procedure]\nfile=a.sql\ndebug=perhaps\n"), 3);
}

TEST(ProjectFiles, line_notInUtf8_isRefusedWithItsLine)
{
    EXPECT_EQ(brokenLine("[project]\nname=\xFF\n"), 2);
}

TEST(RoutineSources, statement_overLines_isRead)
{
    const ObjectFacts facts = parseRoutine(L"create or replace function f\n  (a DECIMAL(5,2),\n   b INTEGER)\n"
                                           L"returns TABLE (x INTEGER) language SQL\nreturn 1");
    EXPECT_EQ(facts.schema, L"");
    EXPECT_EQ(facts.name, L"f");
    EXPECT_EQ(facts.parameters, L"a DECIMAL(5,2), b INTEGER");
    EXPECT_EQ(facts.result, L"TABLE (x INTEGER)");
    EXPECT_EQ(facts.language, L"SQL");
}

TEST(RoutineSources, source_withoutAStatement_hasNoName)
{
    EXPECT_EQ(parseRoutine(L"SELECT 1").name, L"");
}

TEST(RoutineSources, list_neverClosed_isNotAList)
{
    const ObjectFacts facts = parseRoutine(L"CREATE PROCEDURE p (a INTEGER");
    EXPECT_EQ(facts.name, L"p");
    EXPECT_EQ(facts.parameters, L"");
}

TEST(RoutineSources, source_ofHalfAMegabyte_isReadByItsHead)
{
    EXPECT_EQ(parseRoutine(L"CREATE PROCEDURE p ()\n" + std::wstring(500000, L'(')).name, L"p");
}

TEST(RoutineSources, statement_ofOneEndlessLine_isNoTrouble)
{
    const std::wstring endless(500000, L'a');
    EXPECT_EQ(parseRoutine(L"CREATE PROCEDURE " + endless).name.substr(0, 5), L"aaaaa");
    EXPECT_EQ(parseRoutine(L"CREATE FUNCTION f () RETURNS " + endless).name, L"f");
}

TEST(RoutineSources, word_inAnotherWord_isNotTheStatement)
{
    EXPECT_EQ(parseRoutine(L"-- RECREATE PROCEDURE a ()\nCREATE TABLE b (c)\nCREATE PROCEDURE d ()").name, L"d");
}

TEST(CountedStrings, text_ofWesternLetters_isCutAnywhere)
{
    EXPECT_EQ(wholeCharacters("abcdef", 3, 1252), 3U);
}

TEST(CountedStrings, text_ofWideLetters_isCutBetweenThem)
{
    EXPECT_EQ(wholeCharacters("a\x83\x65\x83\x58", 4, 932), 3U);
}

TEST(CountedStrings, text_thatFits_isWhole)
{
    EXPECT_EQ(wholeCharacters("a\x83\x65", 3, 932), 3U);
}

TEST(TextTables, parameters_withMarksInside_areNotReplacedAgain)
{
    const TextTable texts(L"# remark\n5=%2 before %1\\nend\r\n");
    EXPECT_EQ(texts.text(5, {L"%2", L"B"}), L"B before %2\nend");
    EXPECT_EQ(texts.text(6), L"");
}

TEST(Secrets, passwords_inAConnectionString_areMasked)
{
    EXPECT_EQ(withoutSecrets(L"Driver=X;pwd=a b;UID=me;Password={x;y};Z=1"),
              L"Driver=X;pwd=***;UID=me;Password=***;Z=1");
}

TEST(DatabasePlaces, file_relative_isInTheProjectsFolder)
{
    EXPECT_EQ(placeDatabase(L"Driver=X;database=a.db;T=1", L"C:\\p").file, L"C:\\p\\a.db");
}

TEST(DatabasePlaces, name_ofAServersDatabase_staysAsItIs)
{
    EXPECT_EQ(placeDatabase(L"Driver=X;Database=orders", L"C:\\p").connectionString, L"Driver=X;Database=orders");
}

TEST(Queues, notifications_inOrder_sayWhetherMoreWait)
{
    NotificationQueue queue;
    bool more = false;
    queue.push({Notice::added, 0, 0, kindTable, 1, {}});
    queue.push({Notice::removed, 0, 0, kindTable, 1, {}});
    EXPECT_EQ(queue.pop(more)->type, Notice::added);
    EXPECT_TRUE(more);
    EXPECT_EQ(queue.pop(more)->type, Notice::removed);
    EXPECT_FALSE(more);
    EXPECT_FALSE(queue.pop(more));
}

TEST(Questions, answer_toOne_arrivesOnce)
{
    const TextTable texts(L"");
    Conversation conversation(texts);
    int32_t answered = 0;
    conversation.ask(questionDrop, {L"p"}, questionDropButtons, [&](int32_t button) { answered = button; });
    EXPECT_TRUE(conversation.answer(answerNo));
    EXPECT_EQ(answered, 7);
    EXPECT_FALSE(conversation.answer(answerNo));
}

} // namespace
} // namespace velk::test
