#include "devkit/backend/routineWork.h"

#include "base/unique_any.h"
#include "devkit/backend/messages.h"
#include "devkit/backend/routineBody.h"
#include "devkit/backend/routineSource.h"
#include "devkit/backend/systemFile.h"

#include <algorithm>

namespace velk::devkit {
namespace {

constexpr const wchar_t* settingsEnding = L".run";

// Around work that the user waits for: the caller's window makes room, and comes back at the end.
constexpr const wchar_t* taskBegins = L"MINIMIZE_MSWIN";
constexpr const wchar_t* taskEnds = L"RZ_TASK_COMPLETE";

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

void tellResult(Conversation& conversation, const std::wstring& name, const RunResult& result)
{
    if (!result.failure.empty())
        conversation.tell(messageRunFailed, {name, result.failure});
    else if (result.last.columns.empty())
        conversation.tell(messageRan, {name, std::to_wstring(result.statements)});
    else
        conversation.tell(messageResult, {name, tableText(result.last)});
}

// Has the database take a definition; what it said against that, if anything.
std::wstring buildFailure(const Database::Workshop& workshop, Cancellation& cancellation, const ObjectFacts& facts,
                          const std::wstring& source)
{
    return failureOf([&] {
        if (facts.name.empty())
            throw OdbcError(L"the source has no CREATE PROCEDURE or CREATE FUNCTION statement");
        OdbcConnection connection(workshop.connectionString, &cancellation);
        workshop.catalog->build(connection, facts, source);
    });
}

} // namespace

void RoutineWork::showSource(const Routine& routine)
{
    const std::wstring& source = *routine.source;
    const auto lines = static_cast<int32_t>(std::count(source.begin(), source.end(), L'\n')) + 1;
    const size_t lastBreak = source.rfind(L'\n');
    const auto column = static_cast<int32_t>(source.size() - (lastBreak == std::wstring::npos ? 0 : lastBreak + 1)) + 1;
    m_conversation.pushPayload(Notice::sqlText,
                               SqlPayload{L"", routine.place.facts->file, source, 1, 1, lines, column});
}

// The database itself checks an SQL definition; what it accepts is kept as the built source. A routine in another
// language is kept as it is.
void RoutineWork::build(const Routine& routine)
{
    const TreePlace& place = routine.place;
    const ObjectFacts facts = parseRoutine(*routine.source);
    const std::wstring name = facts.name.empty() ? place.facts->name : facts.name;
    m_conversation.command(taskBegins);
    m_worker.add([this, handle = routine.handle, facts, source = *routine.source, name,
                  workshop = place.connection->database.workshop()](Cancellation& cancellation) -> Worker::Completion {
        const std::wstring failure = buildFailure(workshop, cancellation, facts, source);
        return [this, handle, name, failure] {
            if (const TreePlace built = m_tree.object(handle); built.facts)
                m_folders.reload(built);
            m_conversation.command(taskEnds);
            m_conversation.tell(failure.empty() ? messageBuilt : messageBuildFailed, {name, failure});
        };
    });
}

void RoutineWork::runSettings(const Routine& routine)
{
    const ObjectFacts& facts = *routine.place.facts;
    std::wstring lines;
    for (const auto& [name, value] : valuesFor(facts))
        lines += name + L"=" + value + L"\n";
    const std::wstring file = facts.file + settingsEnding;
    if (fileStamp(file).empty() && !writeBytes(file, toUtf8(lines)))
        tellUnread(m_conversation, file);
    else
        m_conversation.tell(messageRunSettings, {facts.name, file, lines});
}

void RoutineWork::run(const Routine& routine)
{
    const ObjectFacts& facts = *routine.place.facts;
    if (facts.dirty || isWrittenIn(facts, L"Java")) {
        m_conversation.tell(facts.dirty ? messageNotBuilt : messageNoDatabaseCode, {facts.name});
        return;
    }
    m_conversation.command(taskBegins);
    m_worker.add([this, facts, source = *routine.source,
                  workshop = routine.place.connection->database.workshop()](Cancellation& cancellation) {
        return Worker::Completion(
            [this, name = facts.name, result = runRoutine(workshop, cancellation, facts, source)] {
                m_conversation.command(taskEnds);
                tellResult(m_conversation, name, result);
            });
    });
}

} // namespace velk::devkit
