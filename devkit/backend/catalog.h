#pragma once

#include "devkit/backend/facts.h"
#include "devkit/backend/odbc.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace velk::devkit {

using ParameterValues = std::map<std::wstring, std::wstring>;

// What a database tells of itself, one class for each kind of database. Every function throws OdbcError when the
// database cannot be read.
class Catalog {
public:
    virtual ~Catalog() = default;

    // The objects of a kind of folder: tables, views or triggers, by name.
    virtual std::vector<ObjectFacts> objects(OdbcConnection& connection, int32_t folderKind) = 0;
    // The sources of the routines that were built, by name.
    virtual std::map<std::wstring, std::wstring> builtRoutines(OdbcConnection& connection) = 0;
    // Has the database check and take a routine's source, and keeps it as the built one.
    virtual void build(OdbcConnection& connection, const ObjectFacts& facts, const std::wstring& source) = 0;
    // The statements that run a routine with these values of its parameters (literals).
    virtual std::vector<std::wstring> runStatements(const ObjectFacts& facts, const std::wstring& source,
                                                    const ParameterValues& values) = 0;
    virtual void drop(OdbcConnection& connection, const ObjectFacts& facts) = 0;
    // A text that differs when another program has changed the database. Cheap.
    virtual std::wstring changeMark(OdbcConnection& connection) = 0;
};

std::unique_ptr<Catalog> makeSqliteCatalog();
std::unique_ptr<Catalog> makePostgresCatalog();
// The catalog that fits a connection string's driver; what is not PostgreSQL's is taken for SQLite's.
std::unique_ptr<Catalog> makeCatalog(const std::wstring& connectionString);

} // namespace velk::devkit
