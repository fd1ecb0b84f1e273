// The part of a session that reads folders and watches the current one.
#include "base/win32.h"
#include "devkit/backend/messages.h"
#include "devkit/backend/session.h"
#include "devkit/backend/sessionState.h"

#include <cwctype>
#include <string_view>
#include <utility>

namespace velk::devkit {
namespace {

constexpr uint64_t watchInterval = 1000; // milliseconds
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

void Session::setCurrentFolder(int32_t handle)
{
    m_currentFolder = 0;
    const auto [connection, folder] = folderState(handle);
    if (!folder)
        return;
    m_currentFolder = handle;
    if (connection->database.connected())
        showCurrent(*connection);
    else
        connect(connection->handle); // shows the folder when it is done
}

bool Session::refresh(int32_t handle)
{
    const auto [connection, folder] = folderState(handle);
    if (!folder)
        return false;
    setCurrentFolder(handle);
    return true;
}

void Session::announceContents(const ConnectionState& connection, FolderState& folder)
{
    Notification contents = about(Notice::folderContents, folder.kind, folder.handle, &connection);
    contents.ends = std::exchange(folder.leaving, {});
    m_queue.push(std::move(contents));
}

// False when the database could not be read; the connection is then closed.
bool Session::load(ConnectionState& connection, FolderState& folder, bool announce)
{
    try {
        const std::wstring mark = connection.database.changeMark(folder.kind);
        update(connection, folder, connection.database.read(folder.kind), announce);
        folder.mark = mark;
        m_nextWatch = now() + watchInterval;
        return true;
    } catch (const OdbcError& error) {
        lose(connection, error.text, messageDatabaseLost);
        return false;
    }
}

// Brings a folder up to what was found in it. An object that was there before keeps its handle.
void Session::update(ConnectionState& connection, FolderState& folder, std::vector<ObjectFacts> found, bool announce)
{
    const int32_t kind = folder.kind + 1;
    if (!folder.pattern.empty())
        std::erase_if(found, [&](const ObjectFacts& facts) { return !matches(facts.name, folder.pattern); });
    std::unordered_map<std::wstring, int32_t> before = std::move(folder.byKey);
    folder.byKey.clear();
    folder.objects.clear();
    for (ObjectFacts& facts : found) {
        if (folder.byKey.contains(facts.key))
            continue;
        const auto known = before.find(facts.key);
        const int32_t handle = known == before.end() ? m_handles.make(kind) : known->second;
        ObjectFacts& current = m_objects[handle];
        if (announce && known == before.end())
            m_queue.push(about(Notice::added, kind, handle, &connection));
        else if (announce && current != facts)
            m_queue.push(about(Notice::changed, kind, handle, &connection));
        if (known != before.end())
            before.erase(known);
        folder.byKey.emplace(facts.key, handle);
        folder.objects.push_back(handle);
        current = std::move(facts);
    }
    for (const auto& [key, handle] : before) {
        m_objects.erase(handle);
        if (!announce) {
            folder.leaving.push_back(handle);
            continue;
        }
        Notification removed = about(Notice::removed, kind, handle, &connection);
        removed.ends = {handle};
        m_queue.push(std::move(removed));
    }
}

void Session::watch()
{
    const auto [connection, folder] = folderState(m_currentFolder);
    const uint64_t time = now();
    if (!folder || !connection->database.connected() || time < m_nextWatch)
        return;
    m_nextWatch = time + watchInterval;
    try {
        const std::wstring mark = connection->database.changeMark(folder->kind);
        if (mark == folder->mark)
            return;
        update(*connection, *folder, connection->database.read(folder->kind), true);
        folder->mark = mark;
    } catch (const OdbcError&) {
        // Another program may hold the database for a while: that is no lost connection yet.
        m_nextWatch = now() + watchPause;
    }
}

} // namespace velk::devkit
