#include "devkit/backend/connections.h"

#include "devkit/backend/messages.h"

#include <memory>
#include <utility>

namespace velk::devkit {

void Connections::open(ConnectionState& connection)
{
    const int32_t attempt = connection.attempt = ++m_lastAttempt;
    m_worker.add([this, attempt, handle = connection.handle,
                  workshop = connection.database.workshop()](Cancellation& cancellation) -> Worker::Completion {
        // Shared only because a completion can be copied.
        const auto opened = std::make_shared<std::unique_ptr<OdbcConnection>>();
        const std::wstring failure = failureOf([&] { *opened = workshop.open(cancellation); });
        return [this, attempt, handle, opened, failure] {
            ConnectionState* const state = m_tree.connection(handle);
            if (!state || state->attempt != attempt)
                return; // closed or disconnected meanwhile
            state->attempt = 0;
            state->database.connect(std::move(*opened));
            arrive(*state, failure);
        };
    });
}

void Connections::arrive(ConnectionState& connection, const std::wstring& failure)
{
    const bool isNews = announce(connection);
    const Database& database = connection.database;
    if (!failure.empty())
        m_conversation.tell(messageDatabaseClosed,
                            {database.name(), database.file(), failure, m_tree.opened()->facts.path});
    else if (!isNews)
        m_conversation.push(m_tree.about(Notice::changed, kindConnection, connection.handle, &connection));
    m_folders.showCurrent(connection); // a caller that asked for the connections itself may have been quicker
}

// Whether the caller has not heard of the connection before.
bool Connections::announce(ConnectionState& connection)
{
    if (std::exchange(connection.isAnnounced, true))
        return false;
    m_conversation.push(m_tree.about(Notice::added, kindConnection, connection.handle, &connection));
    return true;
}

void Connections::showFolder(int32_t handle)
{
    m_folders.select(handle);
    ConnectionState* const connection = m_tree.folder(handle).connection;
    if (!connection)
        return;
    if (connection->database.connected())
        m_folders.showCurrent(*connection);
    else
        connect(connection->handle); // shows the folder when it is done
}

bool Connections::connect(int32_t handle)
{
    ConnectionState* const connection = m_tree.connection(handle);
    if (connection && !connection->database.connected() && connection->attempt == 0)
        open(*connection);
    return connection != nullptr;
}

bool Connections::disconnect(int32_t handle)
{
    ConnectionState* const connection = m_tree.connection(handle);
    if (!connection)
        return false;
    connection->attempt = 0;
    announce(*connection);
    if (connection->database.connected())
        m_folders.close(*connection);
    m_folders.announceCurrent(*connection);
    return true;
}

bool Connections::refresh(int32_t folder)
{
    if (!m_tree.folder(folder).folder)
        return false;
    showFolder(folder);
    return true;
}

bool Connections::filter(int32_t handle)
{
    const FolderState* const folder = m_tree.folder(handle).folder;
    if (!folder)
        return false;
    constexpr int32_t firstFolderText = 426;
    const std::wstring caption =
        m_conversation.texts().text(firstFolderText + (folder->kind - kindProcedureFolder) / 2);
    m_conversation.ask(questionFilter, {caption, m_tree.opened()->filter}, questionFilterButtons,
                       [this, handle](int32_t answer) {
                           FolderState* const asked = m_tree.folder(handle).folder;
                           if (!asked || (answer != answerYes && answer != answerNo))
                               return;
                           asked->pattern = answer == answerYes ? m_tree.opened()->filter : std::wstring();
                           showFolder(handle);
                       });
    return true;
}

} // namespace velk::devkit
