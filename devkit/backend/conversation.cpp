#include "devkit/backend/conversation.h"

#include "devkit/backend/journal.h"

namespace velk::devkit {

void Conversation::command(const std::wstring& word)
{
    m_queue.pushText({word, TextType::command, {}});
}

void Conversation::tell(int32_t number, const std::vector<std::wstring>& parameters)
{
    m_queue.pushText({withoutSecrets(m_texts.text(number, parameters)), TextType::message, {}});
}

void Conversation::ask(int32_t question, const std::vector<std::wstring>& parameters, int32_t buttons,
                       Answered answered)
{
    m_questions.push_back(std::move(answered));
    m_queue.pushText({m_texts.text(question, parameters), TextType::command, m_texts.text(buttons)});
}

bool Conversation::answer(int32_t button)
{
    if (m_questions.empty())
        return false;
    const Answered answered = std::move(m_questions.front());
    m_questions.pop_front();
    answered(button);
    return true;
}

} // namespace velk::devkit
