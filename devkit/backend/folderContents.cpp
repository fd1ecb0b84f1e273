#include "devkit/backend/folderContents.h"

#include "base/win32.h"
#include "devkit/backend/messages.h"
#include "devkit/backend/systemFile.h"

#include <cwchar>
#include <cwctype>
#include <string_view>
#include <utility>

namespace velk::devkit {
namespace {

// In milliseconds, unless the environment wants another.
uint64_t watchInterval()
{
    constexpr unsigned long usual = 1000;
    const std::wstring wanted = environmentText(L"VELK_BACKEND_WATCH");
    return wanted.empty() ? usual : std::wcstoul(wanted.c_str(), nullptr, 10);
}
// A database that another program holds makes every look wait, so the next one comes later.
constexpr uint64_t watchPause = 10000;

// The system's own 64-bit count of ticks is younger than the oldest system that this runs on.
uint64_t now()
{
    FILETIME time{};
    GetSystemTimeAsFileTime(&time);
    constexpr uint64_t perMillisecond = 10000;
    return ((uint64_t{time.dwHighDateTime} << 32) | time.dwLowDateTime) / perMillisecond;
}

// Whether a name fits a pattern of letters in either case, "*" for any text and "?" for any letter.
bool matches(std::wstring_view name, std::wstring_view pattern)
{
    if (pattern.empty())
        return name.empty();
    if (pattern.front() == L'*')
        return matches(name, pattern.substr(1)) || (!name.empty() && matches(name.substr(1), pattern));
    return !name.empty() &&
           (pattern.front() == L'?' || std::towlower(name.front()) == std::towlower(pattern.front())) &&
           matches(name.substr(1), pattern.substr(1));
}

} // namespace

void FolderContents::showCurrent(ConnectionState& connection)
{
    const TreePlace current = m_tree.folder(m_current);
    if (current.connection != &connection)
        return;
    load(connection, *current.folder, false);
    announceContents(connection, *current.folder);
}

void FolderContents::announceCurrent(const ConnectionState& connection)
{
    const TreePlace current = m_tree.folder(m_current);
    if (current.connection == &connection)
        announceContents(connection, *current.folder);
}

void FolderContents::announceContents(const ConnectionState& connection, FolderState& folder)
{
    Notification contents = m_tree.about(Notice::folderContents, folder.kind, folder.handle, &connection);
    contents.ends = std::exchange(folder.leaving, {});
    m_conversation.push(std::move(contents));
}

// A database that cannot be read is lost: its connection is closed.
void FolderContents::load(ConnectionState& connection, FolderState& folder, bool announce)
{
    Database& database = connection.database;
    try {
        const std::wstring mark = database.changeMark(folder.kind);
        update(connection, folder, database.read(folder.kind), announce);
        folder.mark = mark;
        m_nextWatch = now() + watchInterval();
    } catch (const OdbcError& error) {
        m_conversation.tell(messageDatabaseLost, {database.name(), database.file(), error.text});
        close(connection);
    }
}

void FolderContents::close(ConnectionState& connection)
{
    connection.database.close();
    m_conversation.push(m_tree.about(Notice::changed, kindConnection, connection.handle, &connection));
    for (FolderState& folder : connection.folders)
        update(connection, folder, {}, false);
}

// Brings a folder up to what was found in it. An object that was there before keeps its handle.
void FolderContents::update(const ConnectionState& connection, FolderState& folder, std::vector<ObjectFacts> found,
                            bool announce)
{
    if (!folder.pattern.empty())
        std::erase_if(found, [&](const ObjectFacts& facts) { return !matches(facts.name, folder.pattern); });
    std::unordered_map<std::wstring, int32_t> before = std::exchange(folder.byKey, {});
    folder.objects.clear();
    for (ObjectFacts& facts : found) {
        if (folder.byKey.contains(facts.key))
            continue;
        const auto known = before.find(facts.key);
        put(connection, folder, std::move(facts), known == before.end() ? 0 : known->second, announce);
        if (known != before.end())
            before.erase(known);
    }
    for (const auto& [key, handle] : before)
        take(connection, folder, handle, announce);
}

// An object goes into the folder, under its handle if it is known already.
void FolderContents::put(const ConnectionState& connection, FolderState& folder, ObjectFacts found, int32_t known,
                         bool announce)
{
    const int32_t kind = folder.kind + 1;
    const int32_t handle = known == 0 ? m_tree.addObject(kind) : known;
    ObjectFacts& current = m_tree.factsOf(handle);
    if (announce && (known == 0 || current != found))
        m_conversation.push(m_tree.about(known == 0 ? Notice::added : Notice::changed, kind, handle, &connection));
    folder.byKey.emplace(found.key, handle);
    folder.objects.push_back(handle);
    current = std::move(found);
}

// An object has left the folder.
void FolderContents::take(const ConnectionState& connection, FolderState& folder, int32_t handle, bool announce)
{
    m_tree.removeObject(handle);
    if (!announce) {
        folder.leaving.push_back(handle);
        return;
    }
    Notification removed = m_tree.about(Notice::removed, folder.kind + 1, handle, &connection);
    removed.ends = {handle};
    m_conversation.push(std::move(removed));
}

void FolderContents::watch()
{
    const TreePlace current = m_tree.folder(m_current);
    const uint64_t time = now();
    if (!current.folder || !current.connection->database.connected() || time < m_nextWatch)
        return;
    m_nextWatch = time + watchInterval();
    Database& database = current.connection->database;
    FolderState& folder = *current.folder;
    try {
        const std::wstring mark = database.changeMark(folder.kind);
        if (mark == folder.mark)
            return;
        update(*current.connection, folder, database.read(folder.kind), true);
        folder.mark = mark;
    } catch (const OdbcError&) {
        // Another program may hold the database for a while: that is no lost connection yet.
        m_nextWatch = now() + watchPause;
    }
}

} // namespace velk::devkit
