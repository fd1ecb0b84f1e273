#pragma once

#include "base/win32.h"
#include "devkit/base/thread.h"

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include <sql.h>
#include <sqlext.h>

namespace velk::devkit {

// What the driver said, in its own words.
class OdbcError : public std::runtime_error {
public:
    explicit OdbcError(std::wstring words) : std::runtime_error("ODBC error"), text(std::move(words)) {}
    std::wstring text;
};

// Runs work on a database. What went wrong, in the driver's words where it has some; empty when nothing did.
std::wstring failureOf(const std::function<void()>& work) noexcept;

// A text as a statement's literal.
std::wstring sqlText(const std::wstring& text);

// Ends what a connection on another thread is doing, and all that it would do after that. It cannot end the wait for a
// server that does not answer, nor that for a database file that another program holds: these have limits of their own.
class Cancellation {
public:
    void cancel() noexcept;

private:
    friend class OdbcConnection;
    Lock m_lock;
    SQLHSTMT m_running = SQL_NULL_HSTMT; // what to cancel
    bool m_isCancelled = false;
};

// A connection to a database. Opened and closed with the object; every statement is bounded in rows.
class OdbcConnection {
public:
    // With a cancellation it may be ended at any time: its statements then throw. It outlives the connection.
    explicit OdbcConnection(const std::wstring& connectionString, Cancellation* cancellation = nullptr);
    OdbcConnection(const OdbcConnection&) = delete;
    OdbcConnection& operator=(const OdbcConnection&) = delete;
    ~OdbcConnection();

    // Outlives its cancellation from now on, which does not reach it any more.
    void keep() noexcept { m_cancellation = nullptr; }

    using Rows = std::vector<std::vector<std::wstring>>;
    Rows query(const std::wstring& sql);
    // The same with the names of the columns; at most so many rows. No columns for a statement that gives no rows.
    struct Table {
        std::vector<std::wstring> columns;
        Rows rows;
    };
    Table table(const std::wstring& sql, size_t mostRows);

private:
    SQLRETURN execute(SQLHSTMT statement, const std::wstring& sql);
    void prepareToBeCancelled();
    void setRunning(SQLHSTMT statement);
    void throwIfCancelled();

    Cancellation* m_cancellation;
    SQLHENV m_environment = SQL_NULL_HENV;
    SQLHDBC m_connection = SQL_NULL_HDBC;
    SQLHSTMT m_idle = SQL_NULL_HSTMT; // by which all of the connection is cancelled, where that is possible
};

// Rows as lines, cells apart by bars.
std::wstring tableText(const OdbcConnection::Table& table);

// The connection string with its Database= made absolute (relative to a folder) and, under Wine, a Unix path, which is
// what the drivers there want. Other databases than files are named without a path and stay as they are.
struct DatabasePlace {
    std::wstring connectionString;
    std::wstring file; // the absolute path, or the name; empty when the string names no database
};
DatabasePlace placeDatabase(const std::wstring& connectionString, const std::wstring& folder);

} // namespace velk::devkit
