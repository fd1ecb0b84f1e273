#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace velk::devkit {

enum class Notice : int32_t {
    none = 0,
    text = 2,
    folderContents = 5,
    changed = 6,
    removed = 7,
    added = 8,
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

// What waits for the caller. Any thread may put something in; the caller takes it out.
class NotificationQueue {
public:
    void push(Notification notification);
    // Queues a text and gives back its handle, by which it can be fetched as often as wanted until many more followed.
    int32_t pushText(TextPayload payload);

    std::optional<Notification> pop(bool& more);
    std::optional<TextPayload> text(int32_t handle) const;
    bool everHad(int32_t handle) const;

private:
    mutable std::mutex m_lock;
    std::deque<Notification> m_waiting;
    std::map<int32_t, TextPayload> m_texts;
    int32_t m_lastText;

public:
    NotificationQueue();
};

} // namespace velk::devkit
