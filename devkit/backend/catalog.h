#pragma once

#include "devkit/backend/facts.h"
#include "devkit/backend/odbc.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace velk::devkit {

// What a database tells of itself, one class for each kind of database. Every function throws OdbcError when the
// database cannot be read.
class Catalog {
public:
    virtual ~Catalog() = default;

    // The objects of a kind of folder: tables, views or triggers, by name.
    virtual std::vector<ObjectFacts> objects(OdbcConnection& connection, int32_t folderKind) = 0;
    // The sources of the routines that were built, by name.
    virtual std::map<std::wstring, std::wstring> builtRoutines(OdbcConnection& connection) = 0;
    // Keeps a routine's source as the built one, or forgets it.
    virtual void keepRoutine(OdbcConnection& connection, const std::wstring& name, const std::wstring& source) = 0;
    virtual void dropRoutine(OdbcConnection& connection, const std::wstring& name) = 0;
    // A text that differs when another program has changed the database. Cheap.
    virtual std::wstring changeMark(OdbcConnection& connection) = 0;
};

std::unique_ptr<Catalog> makeSqliteCatalog();
// The catalog that fits a connection string's driver. So far every driver is taken for SQLite's.
std::unique_ptr<Catalog> makeCatalog(const std::wstring& connectionString);

} // namespace velk::devkit
