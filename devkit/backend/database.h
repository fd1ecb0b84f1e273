#pragma once

#include "devkit/backend/catalog.h"
#include "devkit/backend/odbc.h"
#include "devkit/backend/projectFile.h"

#include <memory>
#include <string>
#include <vector>

namespace velk::devkit {

// One connection of a project, open or not: its database's objects, and the project's routines that belong to it.
class Database {
public:
    // The routines' files are absolute paths. The folder is the one that relative database files are in.
    Database(const ProjectConnection& connection, const std::wstring& folder, std::vector<ProjectRoutine> procedures,
             std::vector<ProjectRoutine> functions);

    const std::wstring& name() const { return m_name; }
    const std::wstring& odbc() const { return m_odbc; } // as the project file has it
    const std::wstring& file() const { return m_place.file; }
    bool connected() const { return m_connection != nullptr; }

    void connect(std::unique_ptr<OdbcConnection> connection) { m_connection = std::move(connection); }
    void close() { m_connection.reset(); }

    // The contents of a folder. Throws OdbcError.
    std::vector<ObjectFacts> read(int32_t folderKind);
    // A text that differs when the contents of that folder may have changed. Throws OdbcError.
    std::wstring changeMark(int32_t folderKind);

    // The project's routines of a folder, to be changed in place; null for a folder without any.
    std::vector<ProjectRoutine>* routinesOf(int32_t folderKind)
    {
        return folderKind == kindProcedureFolder  ? &m_procedures
               : folderKind == kindFunctionFolder ? &m_functions
                                                  : nullptr;
    }
    // What another thread needs to work on the same database: a connection of its own, and the database's ways. The
    // functions of both throw OdbcError.
    struct Workshop {
        std::wstring connectionString;
        std::shared_ptr<Catalog> catalog;
        // Reads from the database once, because a driver may put off touching the file.
        std::unique_ptr<OdbcConnection> open(Cancellation& cancellation) const;
    };
    Workshop workshop() const { return {m_place.connectionString, m_catalog}; }
    void drop(const ObjectFacts& facts);

private:
    OdbcConnection& opened();
    std::vector<ObjectFacts> readRoutines(const std::vector<ProjectRoutine>& routines);

    std::wstring m_name;
    std::wstring m_odbc;
    DatabasePlace m_place;
    std::vector<ProjectRoutine> m_procedures;
    std::vector<ProjectRoutine> m_functions;
    std::shared_ptr<Catalog> m_catalog; // without a state of its own
    std::unique_ptr<OdbcConnection> m_connection;
};

} // namespace velk::devkit
