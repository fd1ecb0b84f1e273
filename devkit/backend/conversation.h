#pragma once

#include "devkit/backend/queue.h"
#include "devkit/backend/texts.h"

#include <deque>
#include <functional>
#include <optional>

namespace velk::devkit {

// What the user may answer to a question.
enum Answer : int32_t { answerOk = 1, answerCancel = 2, answerYes = 6, answerNo = 7 };

// There because the library never calls its caller: whatever the caller is to hear waits here until it asks for it, and
// a question until its answer comes.
class Conversation {
public:
    using Answered = std::function<void(int32_t button)>;

    explicit Conversation(const TextTable& texts) : m_texts(texts) {}
    Conversation(const Conversation&) = delete;
    Conversation& operator=(const Conversation&) = delete;

    void push(Notification notification) { m_queue.push(std::move(notification)); }
    void pushPayload(Notice type, Payload payload) { m_queue.pushPayload(type, std::move(payload)); }
    // A word that the caller carries out.
    void command(const std::wstring& word);
    // A message by its number in the table of texts.
    void tell(int32_t number, const std::vector<std::wstring>& parameters);
    // A question and its buttons by their numbers; the answer arrives at the function.
    void ask(int32_t question, const std::vector<std::wstring>& parameters, int32_t buttons, Answered answered);
    // False when nothing was asked.
    bool answer(int32_t button);

    std::optional<Notification> next(bool& more) { return m_queue.pop(more); }
    const NotificationQueue& queue() const { return m_queue; }
    const TextTable& texts() const { return m_texts; }

private:
    const TextTable& m_texts;
    NotificationQueue m_queue;
    std::deque<Answered> m_questions;
};

} // namespace velk::devkit
