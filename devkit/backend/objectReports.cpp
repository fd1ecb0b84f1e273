#include "devkit/backend/objectReports.h"

#include "devkit/backend/messages.h"

namespace velk::devkit {
namespace {

constexpr size_t sampleRows = 10;

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

} // namespace

bool ObjectReports::properties(int32_t handle)
{
    std::wstring text;
    if (const ProjectState* const project = m_tree.project(handle))
        text = L"Project: " + project->facts.name + L"\nFile: " + project->facts.path;
    else if (const ConnectionState* const state = m_tree.connection(handle))
        text = L"Connection: " + state->database.name() + L"\nDatabase: " + state->database.file() + L"\nState: " +
               (state->database.connected() ? L"connected" : L"disconnected");
    else if (const TreePlace place = m_tree.object(handle); place.facts)
        text = propertiesText(*place.facts);
    else
        return false;
    m_conversation.tell(messageProperties, {text});
    return true;
}

bool ObjectReports::sampleContents(int32_t handle)
{
    const TreePlace place = m_tree.object(handle);
    if (!place.facts || !isTableLike(place.folder->kind))
        return false;
    m_worker.add([this, name = place.facts->name, sql = L"SELECT * FROM " + quoted(place.facts->name),
                  workshop = place.connection->database.workshop()](Cancellation& cancellation) -> Worker::Completion {
        std::wstring rows;
        const std::wstring failure = failureOf(
            [&] { rows = tableText(OdbcConnection(workshop.connectionString, &cancellation).table(sql, sampleRows)); });
        return [this, name, rows, failure] {
            m_conversation.tell(failure.empty() ? messageSample : messageUnreadable,
                                {name, failure.empty() ? rows : failure});
        };
    });
    return true;
}

} // namespace velk::devkit
