#define RZ_NO_PROTOTYPES
#include "sdk/velkbackend.h"

#include "devkit/backend/conversation.h"
#include "devkit/backend/facts.h"
#include "notify/promptLook.h"
#include "serverview/folderKinds.h"
#include "serverview/menuRows.h"
#include "sources.h"

#include <cstring>
#include <gmock/gmock.h>
#include <map>

namespace velk::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

TEST(Numbers, ofNotifications_areTheProductsHandlers)
{
    const std::string pump = sourceText("notify/notificationThreadFrm.cpp");
    const std::set<int> header{RZ_NOTIFY_TEXT,    RZ_NOTIFY_SQL_TEXT,        RZ_NOTIFY_ADO_TEXT,
                               RZ_NOTIFY_CHANGED, RZ_NOTIFY_FOLDER_CONTENTS, RZ_NOTIFY_REMOVED,
                               RZ_NOTIFY_ADDED,   RZ_NOTIFY_CONNECTION_DE,   RZ_NOTIFY_COMMAND_DE};
    EXPECT_EQ(numbersIn(pump, "{ #, handle"), header);
    const auto handlerOf = [&pump](const char* pattern) { return numbersIn(pump, pattern); };
    EXPECT_THAT(handlerOf("{ #, handleText,"), ElementsAre(RZ_NOTIFY_TEXT));
    EXPECT_THAT(handlerOf("{ #, handleSQLText,"), ElementsAre(RZ_NOTIFY_SQL_TEXT));
    EXPECT_THAT(handlerOf("{ #, handleADOText,"), ElementsAre(RZ_NOTIFY_ADO_TEXT));
    EXPECT_THAT(handlerOf("{ #, handleFolderContents,"), ElementsAre(RZ_NOTIFY_FOLDER_CONTENTS));
    EXPECT_THAT(handlerOf("{ #, handleObjectChanged,"), ElementsAre(RZ_NOTIFY_CHANGED));
    EXPECT_THAT(handlerOf("{ #, handleObjectRemoved,"), ElementsAre(RZ_NOTIFY_REMOVED));
    EXPECT_THAT(handlerOf("{ #, handleObjectAdded,"), ElementsAre(RZ_NOTIFY_ADDED));
    EXPECT_THAT(handlerOf("{ #, handleConnectionDE,"), ElementsAre(RZ_NOTIFY_CONNECTION_DE));
    EXPECT_THAT(handlerOf("{ #, handleCommandDE,"), ElementsAre(RZ_NOTIFY_COMMAND_DE));
}

TEST(Numbers, ofKinds_areTheProductsNodesAndFolders)
{
    EXPECT_EQ(kindProject, RZ_KIND_PROJECT);
    EXPECT_EQ(kindConnection, RZ_KIND_CONNECTION);
    std::vector<std::pair<int32_t, int32_t>> kinds;
    for (const FolderKindRow& row : folderKindRows())
        kinds.push_back({row.folderKind, row.objectKind()});
    EXPECT_THAT(kinds, ElementsAre(std::pair(RZ_KIND_PROCEDURE_FOLDER, RZ_KIND_PROCEDURE),
                                   std::pair(RZ_KIND_FUNCTION_FOLDER, RZ_KIND_FUNCTION),
                                   std::pair(RZ_KIND_TRIGGER_FOLDER, RZ_KIND_TRIGGER),
                                   std::pair(RZ_KIND_TABLE_FOLDER, RZ_KIND_TABLE),
                                   std::pair(RZ_KIND_VIEW_FOLDER, RZ_KIND_VIEW)));
}

TEST(Numbers, ofActions_areThoseOfTheProductsMenus)
{
    struct Action {
        int code;
        std::set<std::wstring> captions;
    };
    const Action header[] = {
        {RZ_ACTION_OPEN, {L"Open"}},
        {RZ_ACTION_SAVE, {L"Save"}},
        {RZ_ACTION_SAVE_AS, {L"Save As"}},
        {RZ_ACTION_CONNECT, {L"Connect"}},
        {RZ_ACTION_DISCONNECT, {L"Disconnect"}},
        {RZ_ACTION_NEW, {L"New", L"Add Connection"}},
        {RZ_ACTION_REFRESH, {L"Refresh"}},
        {RZ_ACTION_FILTER, {L"Filter"}},
        {RZ_ACTION_IMPORT, {L"Import"}},
        {RZ_ACTION_PROPERTIES, {L"Properties"}},
        {RZ_ACTION_EDIT_SOURCE, {L"Edit Source"}},
        {RZ_ACTION_RUN_SETTINGS, {L"Run Settings"}},
        {RZ_ACTION_RUN, {L"Run"}},
        {RZ_ACTION_RUN_WITH_DEBUG, {L"Run With Debug"}},
        {RZ_ACTION_BUILD, {L"Build"}},
        {RZ_ACTION_BUILD_WITH_DEBUG, {L"Build With Debug"}},
        {RZ_ACTION_SAMPLE_CONTENTS, {L"Sample Contents"}},
        {RZ_ACTION_REMOVE, {L"Remove", L"Remove From Project"}},
        {RZ_ACTION_DROP, {L"Drop From Database"}},
        {RZ_ACTION_PASTE, {L"Paste"}},
        {RZ_ACTION_COPY, {L"Copy"}},
        {RZ_ACTION_VIEW_SOURCE, {L"View Source"}},
        {RZ_ACTION_CONNECTION_CODE, {L"Add ADO Connection Code"}},
        {RZ_ACTION_CONNECTION_OBJECT, {L"Add ADO Connection Object"}},
        {RZ_ACTION_COMMAND_CODE, {L"Add ADO Command Code"}},
        {RZ_ACTION_COMMAND_OBJECT, {L"Add ADO Command Object"}},
    };
    std::map<int, std::set<std::wstring>> expected;
    for (const Action& action : header)
        expected[action.code] = action.captions;
    std::map<int, std::set<std::wstring>> product;
    for (const MenuRow& row : menuRows())
        if (row.code != noCode)
            product[row.code].insert(row.caption);
    EXPECT_EQ(expected, product);
    EXPECT_THAT(sourceText("serverview/projectFiles.cpp"),
                HasSubstr("codeCloseProject = " + std::to_string(RZ_ACTION_REMOVE) + ";"));
}

TEST(Numbers, ofModes_areTheProducts)
{
    const std::string files = sourceText("serverview/projectFiles.cpp");
    EXPECT_THAT(numbersIn(files, "modeOpen = #;"), ElementsAre(RZ_PROJECT_OPEN));
    EXPECT_THAT(numbersIn(files, "modeSave = #;"), ElementsAre(RZ_PROJECT_SAVE_AS));
    EXPECT_THAT(numbersIn(sourceText("addin/IMgrVI.cpp"), "modeOpenProject = #;"), ElementsAre(RZ_PROJECT_OPEN));
    EXPECT_THAT(numbersIn(sourceText("model/IntegrationMgr.h"), "ideTypeVisualInterDev = #;"),
                ElementsAre(RZ_IDE_VISUAL_INTERDEV));
    EXPECT_THAT(numbersIn(sourceText("serverview/popupMenus.cpp"), "ideTypeWithDataEnvironment = #;"),
                ElementsAre(RZ_IDE_WITH_DATA_ENVIRONMENT));
    EXPECT_THAT(numbersIn(sourceText("serverview/popupMenus.cpp"), "ideTypeWithoutAdo = #;"),
                ElementsAre(RZ_IDE_WITHOUT_ADO));
}

TEST(Numbers, ofTextsAndTheirWords_areTheProducts)
{
    const std::string handler = sourceText("notify/handleText.cpp");
    EXPECT_THAT(numbersIn(handler, "commandOrPrompt = #;"), ElementsAre(RZ_TEXT_COMMAND));
    EXPECT_THAT(numbersIn(handler, "plainMessage = #;"), ElementsAre(RZ_TEXT_MESSAGE));
    EXPECT_THAT(handler, HasSubstr("{L\"" RZ_COMMAND_READY "\", onInitComplete}"));
    EXPECT_THAT(handler, HasSubstr("{L\"" RZ_COMMAND_TASK_COMPLETE "\", onTaskComplete}"));
    EXPECT_THAT(handler, HasSubstr("{L\"" RZ_COMMAND_MINIMIZE "\",   onMinimize}"));
    EXPECT_THAT(numbersIn(sourceText("backend/texts.cpp"), "capacity = #;"), ElementsAre(RZ_STRING_CAPACITY));
    EXPECT_THAT(sourceText("backend/fetch.cpp"), HasSubstr("longestText = 16 * 1024 * 1024;"));
    EXPECT_EQ(RZ_LONGEST_TEXT, 16 * 1024 * 1024);
}

std::wstring wide(const char* text)
{
    return std::wstring(text, text + std::strlen(text));
}

TEST(Numbers, ofQuestions_areTheProductsButtonsAndAnswers)
{
    EXPECT_EQ(iconValue(wide(RZ_ICON_CRITICAL)), MB_ICONHAND);
    EXPECT_EQ(iconValue(wide(RZ_ICON_WARNING)), MB_ICONEXCLAMATION);
    EXPECT_EQ(iconValue(wide(RZ_ICON_QUESTION)), MB_ICONQUESTION);
    EXPECT_EQ(iconValue(wide(RZ_ICON_INFORMATION)), MB_ICONASTERISK);
    EXPECT_THAT(sourceText("notify/promptLook.cpp"), HasSubstr("{L\"" RZ_ICON_INFORMATION "\""));
    EXPECT_EQ(buttonValue(wide(RZ_BUTTONS_YES_NO_CANCEL)), MB_YESNOCANCEL);
    EXPECT_EQ(buttonValue(wide(RZ_BUTTONS_YES_NO)), MB_YESNO);
    EXPECT_EQ(buttonValue(wide(RZ_BUTTONS_OK)), MB_OK);
    EXPECT_THAT(sourceText("notify/promptLook.cpp"), HasSubstr("{L\"" RZ_BUTTONS_OK "\""));
    EXPECT_EQ(splitButtons(L"a" + wide(RZ_BUTTON_SEPARATOR) + L"b").size(), 2u);
    EXPECT_EQ(RZ_ANSWER_OK, IDOK);
    EXPECT_EQ(RZ_ANSWER_CANCEL, IDCANCEL);
    EXPECT_EQ(RZ_ANSWER_YES, IDYES);
    EXPECT_EQ(RZ_ANSWER_NO, IDNO);
    EXPECT_THAT(sourceText("notify/prompts.cpp"), HasSubstr("answerText[] = L\"" RZ_USER_RESPONSE "\";"));
}

TEST(Numbers, ofCommandTypes_areTheProducts)
{
    const std::string payloads = sourceText("notify/handlePayloads.cpp");
    EXPECT_THAT(numbersIn(payloads, "{#, 4}, // stored procedure"), ElementsAre(RZ_COMMAND_PROCEDURE));
    EXPECT_THAT(numbersIn(payloads, "{#, 1}, // text"), ElementsAre(RZ_COMMAND_TEXT));
    EXPECT_THAT(numbersIn(payloads, "{#, 2}, // table"), ElementsAre(RZ_COMMAND_TABLE));
    EXPECT_THAT(numbersIn(payloads, "{#, 512}, // table direct"), ElementsAre(RZ_COMMAND_TABLE_DIRECT));
    EXPECT_THAT(numbersIn(payloads, "{#, 128}, // execute without records"), ElementsAre(RZ_COMMAND_WITHOUT_RECORDS));
    EXPECT_THAT(numbersIn(payloads, "{#, 256}, // file"), ElementsAre(RZ_COMMAND_FILE));
    EXPECT_THAT(numbersIn(payloads, "{#, 8}, // unknown"), ElementsAre(RZ_COMMAND_UNKNOWN));
}

TEST(Numbers, ofTools_areThoseOfTheProductsEntries)
{
    const std::string launching = sourceText("addin/launchAction.cpp");
    EXPECT_THAT(numbersIn(launching, "applicationAction[] = L\"#\";"), ElementsAre(RZ_APPLICATION_ASSISTANT));
    EXPECT_THAT(launching, HasSubstr("applicationArguments[] = L\"" RZ_APPLICATION_ARGUMENTS "\";"));
    std::set<int> actions = numbersIn(sourceText("addin/RZCommandBars.cpp"), "{@, @, L\"#\"}");
    actions.merge(numbersIn(sourceText("addin/RZCommandBars.cpp"), "{@, noFace, L\"#\"}"));
    constexpr int aboutBox = 30;
    EXPECT_EQ(actions, (std::set<int>{1, RZ_APPLICATION_ASSISTANT, 3, 4, 5, 6, 7, 8, 10, 12, aboutBox}));
}

// The stand-in on the other side knows the same ones.
static_assert(static_cast<int>(devkit::Notice::text) == RZ_NOTIFY_TEXT);
static_assert(static_cast<int>(devkit::Notice::commandDE) == RZ_NOTIFY_COMMAND_DE);
static_assert(static_cast<int>(devkit::TextType::message) == RZ_TEXT_MESSAGE);
static_assert(static_cast<int>(devkit::answerNo) == RZ_ANSWER_NO);
static_assert(static_cast<int>(devkit::kindView) == RZ_KIND_VIEW);

} // namespace
} // namespace velk::test
