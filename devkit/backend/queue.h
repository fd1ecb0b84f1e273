#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace velk::devkit {

enum class Notice : int32_t {
    none = 0,
    text = 2,
    sqlText = 3,
    adoText = 4,
    folderContents = 5,
    changed = 6,
    removed = 7,
    added = 8,
    connectionDE = 9,
    commandDE = 10,
};

struct Notification {
    Notice type = Notice::none;
    int32_t project = 0, connection = 0, kind = 0, handle = 0;
    std::vector<int32_t> ends; // handles that the caller must not use any more once it has this notification
};

enum class TextType : int32_t {
    command = 1, // a command word, or a question when there are buttons
    message = 3,
};

struct TextPayload {
    std::wstring text;
    TextType type = TextType::message;
    std::wstring buttons;
};

// Source for an editor of the caller, with the range that it replaces (lines and columns from 1 on).
struct SqlPayload {
    std::wstring project, file, text;
    int32_t fromLine = 1, fromColumn = 1, toLine = 1, toColumn = 1;
};

// Client code for a file of the caller's project.
struct AdoPayload {
    std::wstring project, file, text;
};

struct ConnectionDEPayload {
    std::wstring project, environment, connection, connectionString;
};

struct CommandDEPayload {
    std::wstring project, environment, connection, command, text;
    int32_t type = 0;
    bool hasParameters = false;
};

using Payload = std::variant<TextPayload, SqlPayload, AdoPayload, ConnectionDEPayload, CommandDEPayload>;

// What waits for the caller.
class NotificationQueue {
public:
    void push(Notification notification);
    // Queues a payload and gives back its handle, by which it can be fetched as often as wanted until many more
    // followed.
    int32_t pushPayload(Notice type, Payload payload);
    int32_t pushText(TextPayload payload) { return pushPayload(Notice::text, std::move(payload)); }

    std::optional<Notification> pop(bool& more);
    // The payload of a handle; nothing when there is none of that kind.
    template <class Kind>
    std::optional<Kind> payload(int32_t handle) const
    {
        const auto found = m_payloads.find(handle);
        const Kind* kept = found == m_payloads.end() ? nullptr : std::get_if<Kind>(&found->second);
        return kept ? std::optional(*kept) : std::nullopt;
    }
    bool everHad(int32_t handle) const;

private:
    std::deque<Notification> m_waiting;
    std::map<int32_t, Payload> m_payloads;
    int32_t m_lastPayload;

public:
    NotificationQueue();
};

} // namespace velk::devkit
