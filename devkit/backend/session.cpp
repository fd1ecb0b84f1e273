#include "devkit/backend/session.h"

#include "devkit/backend/journal.h"
#include "devkit/backend/messages.h"
#include "devkit/backend/sessionState.h"

namespace velk::devkit {

Session::Session(Handles& handles, const TextTable& texts) : m_handles(handles), m_texts(texts)
{
}

Session::~Session()
{
    m_handles.endAll();
}

void Session::begin()
{
    m_queue.pushText({L"RZ_INIT_COMPLETE", TextType::command, {}});
}

Notification Session::about(Notice type, int32_t kind, int32_t handle, const ConnectionState* connection) const
{
    return {type, m_project ? m_project->handle : 0, connection ? connection->handle : 0, kind, handle, {}};
}

std::optional<Notification> Session::next(bool& more)
{
    if (const Worker::Completion completion = m_worker.finished())
        completion();
    auto notification = m_queue.pop(more);
    if (!notification) {
        watch();
        notification = m_queue.pop(more);
    }
    if (notification)
        for (const int32_t handle : notification->ends)
            m_handles.end(handle);
    return notification;
}

void Session::tell(int32_t number, const std::vector<std::wstring>& parameters)
{
    m_queue.pushText({withoutSecrets(m_texts.text(number, parameters)), TextType::message, {}});
}

void Session::ask(const std::wstring& text, const std::wstring& buttons, std::function<void(int32_t)> answered)
{
    m_questions.push_back(std::move(answered));
    m_queue.pushText({text, TextType::command, buttons});
}

bool Session::answer(int32_t button)
{
    if (m_questions.empty())
        return false;
    const auto answered = std::move(m_questions.front());
    m_questions.pop_front();
    answered(button);
    return true;
}

const ProjectFacts* Session::project(int32_t handle) const
{
    return m_project && m_project->handle == handle ? &m_project->facts : nullptr;
}

ConnectionState* Session::connectionState(int32_t handle) const
{
    if (m_project)
        for (const auto& connection : m_project->connections)
            if (connection->handle == handle)
                return connection.get();
    return nullptr;
}

std::pair<ConnectionState*, FolderState*> Session::folderState(int32_t handle) const
{
    if (m_project)
        for (const auto& connection : m_project->connections)
            for (FolderState& folder : connection->folders)
                if (folder.handle == handle)
                    return {connection.get(), &folder};
    return {nullptr, nullptr};
}

std::optional<ConnectionFacts> Session::connection(int32_t handle) const
{
    const ConnectionState* state = connectionState(handle);
    if (!state)
        return std::nullopt;
    ConnectionFacts facts{state->database.name(), state->database.connected(), {}};
    for (size_t index = 0; index < state->folders.size(); ++index)
        facts.folders[index] = state->folders[index].handle;
    return facts;
}

const ObjectFacts* Session::object(int32_t handle) const
{
    const auto found = m_objects.find(handle);
    return found == m_objects.end() ? nullptr : &found->second;
}

std::vector<int32_t> Session::contents(int32_t container) const
{
    if (const FolderState* folder = folderState(container).second)
        return folder->objects;
    std::vector<int32_t> connections;
    if (project(container))
        for (const auto& connection : m_project->connections)
            connections.push_back(connection->handle);
    return connections;
}

} // namespace velk::devkit
