#include "devkit/backend/keptSources.h"

namespace velk::devkit {

void keepSource(OdbcConnection& connection, const std::wstring& name, const std::wstring& source)
{
    connection.query(L"CREATE TABLE IF NOT EXISTS rozel_routines (name TEXT PRIMARY KEY, source TEXT NOT NULL)");
    forgetSource(connection, name);
    connection.query(L"INSERT INTO rozel_routines VALUES (" + sqlText(name) + L", " + sqlText(source) + L")");
}

void forgetSource(OdbcConnection& connection, const std::wstring& name)
{
    connection.query(L"DELETE FROM rozel_routines WHERE name = " + sqlText(name));
}

} // namespace velk::devkit
