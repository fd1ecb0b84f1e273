// The part of a session that works on single objects: source, build, run, drop, contents, facts.
#include "base/unique_any.h"
#include "devkit/backend/messages.h"
#include "devkit/backend/routineBody.h"
#include "devkit/backend/routineSource.h"
#include "devkit/backend/session.h"
#include "devkit/backend/sessionState.h"
#include "devkit/backend/systemFile.h"

#include <algorithm>
#include <cwchar>

namespace velk::devkit {
namespace {

constexpr size_t sampleRows = 10;
constexpr const wchar_t* settingsEnding = L".run";

bool isJava(const ObjectFacts& facts)
{
    return _wcsicmp(facts.language.c_str(), L"Java") == 0;
}

// Rows as lines, cells apart by bars.
std::wstring tableText(const OdbcConnection::Table& table)
{
    std::wstring text;
    const auto addLine = [&text](const std::vector<std::wstring>& cells) {
        for (size_t index = 0; index < cells.size(); ++index)
            text += (index == 0 ? L"" : L" | ") + cells[index];
        text += L"\n";
    };
    addLine(table.columns);
    for (const auto& row : table.rows)
        addLine(row);
    return text;
}

// What stands in "name=value" lines beside the source; a parameter without a line gets its default.
std::map<std::wstring, std::wstring> valuesFor(const ObjectFacts& facts)
{
    std::map<std::wstring, std::wstring> values;
    for (const RoutineParameter& parameter : parametersOf(facts))
        values[parameter.name] = defaultValue(parameter);
    const auto bytes = readBytes(facts.file + settingsEnding);
    std::wstring text = bytes ? fromUtf8(*bytes) : L"";
    while (!text.empty()) {
        const size_t end = std::min(text.find(L'\n'), text.size());
        const std::wstring line = text.substr(0, end);
        text.erase(0, end + 1);
        const size_t equals = line.find(L'=');
        if (equals != std::wstring::npos && values.contains(line.substr(0, equals)))
            values[line.substr(0, equals)] = line.substr(equals + 1, line.find(L'\r') - equals - 1);
    }
    return values;
}

std::wstring propertiesText(const ObjectFacts& facts)
{
    struct Line {
        const wchar_t* name;
        std::wstring value;
    };
    const Line lines[] = {{L"Name", facts.name},
                          {L"Schema", facts.schema},
                          {L"Specific name", facts.specific},
                          {L"Parameters", facts.parameters},
                          {L"Result", facts.result},
                          {L"Language", facts.language},
                          {L"Package", facts.package},
                          {L"Table", facts.tableName},
                          {L"Remark", facts.comment},
                          {L"Source file", facts.file},
                          {L"State", facts.dirty ? L"changed since it was built" : L""}};
    std::wstring text;
    for (const Line& line : lines)
        if (!line.value.empty())
            text += std::wstring(line.name) + L": " + line.value + L"\n";
    return text;
}

void rollBack(OdbcConnection& connection)
{
    try {
        connection.query(L"ROLLBACK");
    } catch (const OdbcError&) {
        // The transaction did not begin, or the database has ended it already.
    }
}

struct RunResult {
    std::wstring failure;
    size_t statements = 0;
    OdbcConnection::Table last; // the rows that came last
};

// All statements or none.
RunResult runRoutine(const Database::Workshop& workshop, Cancellation& cancellation, const ObjectFacts& facts,
                     const std::wstring& source)
{
    constexpr size_t mostRows = 100;
    RunResult result;
    result.failure = failureOf([&] {
        OdbcConnection connection(workshop.connectionString, &cancellation);
        const scope_exit ended([&] { rollBack(connection); }); // nothing is left to roll back after a success
        connection.query(L"BEGIN");
        for (const std::wstring& statement : workshop.catalog->runStatements(facts, source, valuesFor(facts))) {
            ++result.statements;
            if (OdbcConnection::Table table = connection.table(statement, mostRows); !table.columns.empty())
                result.last = std::move(table);
        }
        connection.query(L"COMMIT");
    });
    return result;
}

} // namespace

Session::Routine Session::routineOf(int32_t object)
{
    const Place place = placeOf(object);
    if (!place.facts || !place.connection->database.routinesOf(place.folder->kind))
        return {};
    const auto bytes = readBytes(place.facts->file);
    if (!bytes)
        tell(messageFileUnread, {place.facts->file, systemReason(GetLastError())});
    return {place, bytes ? std::optional(fromUtf8(*bytes)) : std::nullopt};
}

// Around work that the user waits for: the caller's window makes room, and comes back at the end.
void Session::beginTask()
{
    m_queue.pushText({L"MINIMIZE_MSWIN", TextType::command, {}});
}

void Session::endTask()
{
    m_queue.pushText({L"RZ_TASK_COMPLETE", TextType::command, {}});
}

bool Session::showSource(int32_t handle)
{
    const Routine routine = routineOf(handle);
    const Place& place = routine.place;
    if (!place.facts || !routine.source)
        return place.facts != nullptr;
    const std::wstring& source = *routine.source;
    const auto lines = static_cast<int32_t>(std::count(source.begin(), source.end(), L'\n')) + 1;
    const size_t lastBreak = source.rfind(L'\n');
    const auto column = static_cast<int32_t>(source.size() - (lastBreak == std::wstring::npos ? 0 : lastBreak + 1)) + 1;
    m_queue.pushPayload(Notice::sqlText, SqlPayload{L"", place.facts->file, source, 1, 1, lines, column});
    return true;
}

// The database itself checks an SQL definition; what it accepts is kept as the built source. A routine in another
// language is kept as it is.
bool Session::build(int32_t handle)
{
    const Routine routine = routineOf(handle);
    const Place& place = routine.place;
    if (!place.facts || !routine.source)
        return place.facts != nullptr;
    const std::wstring& source = *routine.source;
    const ObjectFacts facts = parseRoutine(source);
    const std::wstring name = facts.name.empty() ? place.facts->name : facts.name;
    beginTask();
    m_worker.add([this, handle, facts, source, name,
                  workshop = place.connection->database.workshop()](Cancellation& cancellation) -> Worker::Completion {
        const std::wstring failure = failureOf([&] {
            if (facts.name.empty())
                throw OdbcError(L"the source has no CREATE PROCEDURE or CREATE FUNCTION statement");
            OdbcConnection connection(workshop.connectionString, &cancellation);
            workshop.catalog->build(connection, facts, source);
        });
        return [this, handle, name, failure] {
            if (const Place built = placeOf(handle); built.facts)
                load(*built.connection, *built.folder, true);
            endTask();
            tell(failure.empty() ? messageBuilt : messageBuildFailed, {name, failure});
        };
    });
    return true;
}

bool Session::runSettings(int32_t handle)
{
    const Routine routine = routineOf(handle);
    const Place& place = routine.place;
    if (!place.facts || !routine.source)
        return place.facts != nullptr;
    std::wstring lines;
    for (const auto& [name, value] : valuesFor(*place.facts))
        lines += name + L"=" + value + L"\n";
    const std::wstring file = place.facts->file + settingsEnding;
    if (fileStamp(file).empty() && !writeBytes(file, toUtf8(lines)))
        tell(messageFileUnread, {file, systemReason(GetLastError())});
    else
        tell(messageRunSettings, {place.facts->name, file, lines});
    return true;
}

bool Session::run(int32_t handle)
{
    const Routine routine = routineOf(handle);
    const Place& place = routine.place;
    if (!place.facts || !routine.source)
        return place.facts != nullptr;
    const std::wstring& source = *routine.source;
    const ObjectFacts facts = *place.facts;
    if (facts.dirty || isJava(facts)) {
        tell(facts.dirty ? messageNotBuilt : messageNoDatabaseCode, {facts.name});
        return true;
    }
    beginTask();
    m_worker.add([this, facts, source,
                  workshop = place.connection->database.workshop()](Cancellation& cancellation) -> Worker::Completion {
        RunResult result = runRoutine(workshop, cancellation, facts, source);
        return [this, facts, result = std::move(result)] {
            endTask();
            if (!result.failure.empty())
                tell(messageRunFailed, {facts.name, result.failure});
            else if (result.last.columns.empty())
                tell(messageRan, {facts.name, std::to_wstring(result.statements)});
            else
                tell(messageResult, {facts.name, tableText(result.last)});
        };
    });
    return true;
}

bool Session::sampleContents(int32_t handle)
{
    const Place place = placeOf(handle);
    if (!place.facts || (place.folder->kind != kindTableFolder && place.folder->kind != kindViewFolder))
        return false;
    m_worker.add([this, name = place.facts->name, sql = L"SELECT * FROM " + quoted(place.facts->name),
                  workshop = place.connection->database.workshop()](Cancellation& cancellation) -> Worker::Completion {
        std::wstring rows;
        const std::wstring failure = failureOf(
            [&] { rows = tableText(OdbcConnection(workshop.connectionString, &cancellation).table(sql, sampleRows)); });
        return [this, name, rows, failure] {
            tell(failure.empty() ? messageSample : messageUnreadable, {name, failure.empty() ? rows : failure});
        };
    });
    return true;
}

bool Session::properties(int32_t handle)
{
    std::wstring text;
    if (const ProjectFacts* facts = project(handle))
        text = L"Project: " + facts->name + L"\nFile: " + facts->path;
    else if (const ConnectionState* state = connectionState(handle))
        text = L"Connection: " + state->database.name() + L"\nDatabase: " + state->database.file() + L"\nState: " +
               (state->database.connected() ? L"connected" : L"disconnected");
    else if (const Place place = placeOf(handle); place.facts)
        text = propertiesText(*place.facts);
    else
        return false;
    tell(messageProperties, {text});
    return true;
}

bool Session::drop(int32_t handle)
{
    constexpr int32_t answerYes = 6;
    const Place place = placeOf(handle);
    if (!place.facts || !place.connection->database.routinesOf(place.folder->kind))
        return false;
    ask(m_texts.text(questionDrop, {place.facts->name}), m_texts.text(questionDropButtons),
        [this, handle](int32_t answer) {
            if (answer == answerYes)
                dropNow(handle);
        });
    return true;
}

void Session::dropNow(int32_t handle)
{
    const Place place = placeOf(handle);
    if (!place.facts)
        return; // it went while the question was open
    try {
        place.connection->database.drop(*place.facts);
        removeRoutine(*place.connection, *place.folder, std::wstring(place.facts->key));
    } catch (const OdbcError& error) {
        tell(messageDropFailed, {place.facts->name, error.text});
    }
}

} // namespace velk::devkit
