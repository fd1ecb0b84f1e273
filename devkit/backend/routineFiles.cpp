#include "devkit/backend/routineFiles.h"

#include "devkit/backend/messages.h"
#include "devkit/backend/routineSource.h"
#include "devkit/backend/systemFile.h"
#include "devkit/base/uniqueFile.h"
#include "devkit/base/words.h"

#include <algorithm>

namespace velk::devkit {
namespace {

// What a new routine of each kind begins as.
struct TemplateRow {
    int32_t folderKind;
    const wchar_t* name;
    const wchar_t* source;
};
constexpr TemplateRow templates[] = {
    {kindProcedureFolder, L"new_procedure",
     L"-- remark: A new procedure\nCREATE PROCEDURE main.%1 (IN a_number INTEGER)\n"
     L"LANGUAGE SQL\nBEGIN\n    SELECT a_number;\nEND\n"},
    {kindFunctionFolder, L"new_function",
     L"-- remark: A new function\nCREATE FUNCTION main.%1 (a_number INTEGER) RETURNS INTEGER\n"
     L"LANGUAGE SQL\nRETURN SELECT a_number\n"},
};

std::vector<std::wstring> sourcesIn(const std::wstring& folder)
{
    std::vector<std::wstring> files;
    for (const wchar_t* pattern : {L"\\*.sql", L"\\*.java"}) {
        WIN32_FIND_DATAW entry{};
        const unique_search search(FindFirstFileW((folder + pattern).c_str(), &entry));
        for (bool more = static_cast<bool>(search); more; more = FindNextFileW(search.get(), &entry))
            files.push_back(folder + L"\\" + entry.cFileName);
    }
    std::sort(files.begin(), files.end());
    return files;
}

} // namespace

void tellUnread(Conversation& conversation, const std::wstring& file)
{
    conversation.tell(messageFileUnread, {file, systemReason(GetLastError())});
}

Routine readRoutine(const ProjectTree& tree, Conversation& conversation, int32_t handle)
{
    const TreePlace place = tree.object(handle);
    if (!place.routines())
        return {};
    const auto bytes = readBytes(place.facts->file);
    if (!bytes)
        tellUnread(conversation, place.facts->file);
    return {handle, place, bytes ? std::optional(fromUtf8(*bytes)) : std::nullopt};
}

bool RoutineFiles::add(int32_t folder)
{
    const TreePlace place = m_tree.folder(folder);
    for (const TemplateRow& row : templates)
        if (place.folder && place.folder->kind == row.folderKind) {
            write(place, row.name, row.source);
            return true;
        }
    return false;
}

bool RoutineFiles::import(int32_t folder)
{
    const TreePlace place = m_tree.folder(folder);
    if (!place.routines())
        return false;
    const std::wstring from = folderOf(m_tree.opened()->facts.path) + L"\\import";
    const std::vector<std::wstring> files = sourcesIn(from);
    if (files.empty())
        m_conversation.tell(messageNothingToImport, {from});
    for (const std::wstring& file : files)
        include(place, file);
    return true;
}

void RoutineFiles::copy(const Routine& routine)
{
    m_copied = *routine.source;
}

bool RoutineFiles::paste(int32_t folder)
{
    const TreePlace place = m_tree.folder(folder);
    if (!place.routines())
        return false;
    if (m_copied.empty()) {
        m_conversation.tell(messageNothingCopied, {});
        return true;
    }
    const std::wstring name = parseRoutine(m_copied).name;
    std::wstring source = m_copied;
    if (!name.empty())
        replaceAll(source, name, L"%1");
    write(place, name.empty() ? L"pasted" : name, source);
    return true;
}

// Beside the other sources, under a name that is free: name, name2, name3 ... The name goes into the source, too.
void RoutineFiles::write(const TreePlace& folder, const std::wstring& name, std::wstring source)
{
    const std::vector<ProjectRoutine>& routines = *folder.routines();
    const std::wstring beside = folderOf(routines.empty() ? m_tree.opened()->facts.path : routines.front().file);
    std::wstring free = name;
    for (int number = 2; !fileStamp(beside + L"\\" + free + L".sql").empty(); ++number)
        free = name + std::to_wstring(number);
    replaceAll(source, L"%1", free);
    const std::wstring file = beside + L"\\" + free + L".sql";
    if (writeBytes(file, toUtf8(source)))
        include(folder, file);
    else
        tellUnread(m_conversation, file);
}

// The folder shows the routine as soon as it is read again.
void RoutineFiles::include(const TreePlace& folder, const std::wstring& file)
{
    std::vector<ProjectRoutine>& routines = *folder.routines();
    const auto same = [&](const ProjectRoutine& routine) { return routine.file == file; };
    if (std::none_of(routines.begin(), routines.end(), same))
        routines.push_back({file, {}, false});
    m_folders.reload(folder);
}

void RoutineFiles::exclude(const TreePlace& object)
{
    std::erase_if(*object.routines(), [&](const ProjectRoutine& routine) { return routine.file == object.facts->key; });
    m_folders.reload(object);
}

bool RoutineFiles::remove(int32_t routine)
{
    const TreePlace place = m_tree.object(routine);
    if (!place.routines())
        return false;
    exclude(place);
    return true;
}

bool RoutineFiles::drop(int32_t routine)
{
    const TreePlace place = m_tree.object(routine);
    if (!place.routines())
        return false;
    m_conversation.ask(questionDrop, {place.facts->name}, questionDropButtons, [this, routine](int32_t answer) {
        if (answer == answerYes)
            dropNow(routine);
    });
    return true;
}

void RoutineFiles::dropNow(int32_t routine)
{
    const TreePlace place = m_tree.object(routine);
    if (!place.facts)
        return; // it went while the question was open
    try {
        place.connection->database.drop(*place.facts);
        exclude(place);
    } catch (const OdbcError& error) {
        m_conversation.tell(messageDropFailed, {place.facts->name, error.text});
    }
}

} // namespace velk::devkit
