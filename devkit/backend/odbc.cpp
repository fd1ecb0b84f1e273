#include "devkit/backend/odbc.h"

#include "base/unique_any.h"

namespace velk::devkit {
namespace {

constexpr size_t mostRows = 200000;
constexpr SQLULEN timeLimit = 10; // seconds

// ODBC's characters are UTF-16 under Windows, whatever its headers call them.
SQLWCHAR* odbcText(const std::wstring& text)
{
    return reinterpret_cast<SQLWCHAR*>(const_cast<wchar_t*>(text.c_str()));
}

std::wstring messageOf(SQLSMALLINT kind, SQLHANDLE handle)
{
    std::wstring text(1024, L'\0');
    SQLWCHAR state[6]{};
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    const SQLRETURN result =
        SQLGetDiagRecW(kind, handle, 1, state, &native, reinterpret_cast<SQLWCHAR*>(text.data()), 1024, &length);
    const bool hasWords = SQL_SUCCEEDED(result) && text.front() != L'\0';
    return hasWords ? std::wstring(text.c_str()) : L"the ODBC driver gave no reason";
}

void check(SQLRETURN result, SQLSMALLINT kind, SQLHANDLE handle)
{
    if (!SQL_SUCCEEDED(result))
        throw OdbcError(messageOf(kind, handle));
}

std::wstring column(SQLHSTMT statement, SQLUSMALLINT number)
{
    std::wstring text;
    wchar_t part[1024];
    SQLLEN length = 0;
    SQLRETURN result = SQL_SUCCESS_WITH_INFO;
    while (result == SQL_SUCCESS_WITH_INFO) {
        result = SQLGetData(statement, number, SQL_C_WCHAR, part, sizeof part, &length);
        if (!SQL_SUCCEEDED(result) || length == SQL_NULL_DATA)
            break;
        text += part;
    }
    return text;
}

std::wstring columnName(SQLHSTMT statement, SQLUSMALLINT number)
{
    wchar_t name[256] = L"";
    SQLSMALLINT length = 0;
    SQLDescribeColW(statement, number, reinterpret_cast<SQLWCHAR*>(name), 256, &length, nullptr, nullptr, nullptr,
                    nullptr);
    return name;
}

} // namespace

std::wstring failureOf(const std::function<void()>& work) noexcept
{
    try {
        work();
        return {};
    } catch (const OdbcError& error) {
        return error.text;
    } catch (const std::exception&) {
        return L"there is not enough memory"; // for something large: a short text still fits
    }
}

std::wstring sqlText(const std::wstring& text)
{
    std::wstring literal = L"'";
    for (const wchar_t character : text) {
        literal += character;
        if (character == L'\'')
            literal += character;
    }
    return literal + L"'";
}

void Cancellation::cancel() noexcept
{
    const Lock::Held held(m_lock);
    m_isCancelled = true;
    if (m_running != SQL_NULL_HSTMT)
        SQLCancel(m_running);
}

OdbcConnection::OdbcConnection(const std::wstring& connectionString, Cancellation* cancellation)
    : m_cancellation(cancellation)
{
    throwIfCancelled();
    if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &m_environment)))
        throw OdbcError(L"ODBC is not installed");
    SQLSetEnvAttr(m_environment, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
    if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_DBC, m_environment, &m_connection))) {
        SQLFreeHandle(SQL_HANDLE_ENV, m_environment);
        throw OdbcError(L"the ODBC driver manager does not work");
    }
    SQLSetConnectAttrW(m_connection, SQL_ATTR_LOGIN_TIMEOUT, reinterpret_cast<SQLPOINTER>(timeLimit), 0);
    const SQLRETURN result = SQLDriverConnectW(m_connection, nullptr, odbcText(connectionString), SQL_NTS, nullptr, 0,
                                               nullptr, SQL_DRIVER_NOPROMPT);
    if (SQL_SUCCEEDED(result)) {
        prepareToBeCancelled();
        return;
    }
    const std::wstring reason = messageOf(SQL_HANDLE_DBC, m_connection);
    SQLFreeHandle(SQL_HANDLE_DBC, m_connection);
    SQLFreeHandle(SQL_HANDLE_ENV, m_environment);
    throw OdbcError(reason);
}

OdbcConnection::~OdbcConnection()
{
    if (m_idle != SQL_NULL_HSTMT)
        SQLFreeHandle(SQL_HANDLE_STMT, m_idle);
    SQLDisconnect(m_connection);
    SQLFreeHandle(SQL_HANDLE_DBC, m_connection);
    SQLFreeHandle(SQL_HANDLE_ENV, m_environment);
}

// A driver manager may keep a statement locked while it runs (Wine's does since version 9), and then whoever cancels it
// waits for its end. SQLite ends everything of a connection, so there a statement is cancelled that never runs.
void OdbcConnection::prepareToBeCancelled()
{
    wchar_t product[32] = L"";
    SQLSMALLINT size = 0;
    if (!m_cancellation || !SQL_SUCCEEDED(SQLGetInfoW(m_connection, SQL_DBMS_NAME, product, sizeof product, &size)))
        return;
    if (std::wstring(product).starts_with(L"SQLite"))
        SQLAllocHandle(SQL_HANDLE_STMT, m_connection, &m_idle);
}

void OdbcConnection::throwIfCancelled()
{
    if (!m_cancellation)
        return;
    const Lock::Held held(m_cancellation->m_lock);
    if (m_cancellation->m_isCancelled)
        throw OdbcError(L"the work was ended");
}

void OdbcConnection::setRunning(SQLHSTMT statement)
{
    if (!m_cancellation)
        return;
    const Lock::Held held(m_cancellation->m_lock);
    m_cancellation->m_running = statement != SQL_NULL_HSTMT && m_idle != SQL_NULL_HSTMT ? m_idle : statement;
}

SQLRETURN OdbcConnection::execute(SQLHSTMT statement, const std::wstring& sql)
{
    throwIfCancelled();
    setRunning(statement);
    const SQLRETURN executed = SQLExecDirectW(statement, odbcText(sql), SQL_NTS);
    setRunning(SQL_NULL_HSTMT);
    throwIfCancelled(); // what a driver answers for a statement that was ended is not worth reading
    return executed;
}

OdbcConnection::Rows OdbcConnection::query(const std::wstring& sql)
{
    return table(sql, mostRows).rows;
}

OdbcConnection::Table OdbcConnection::table(const std::wstring& sql, size_t limit)
{
    SQLHSTMT statement = SQL_NULL_HSTMT;
    check(SQLAllocHandle(SQL_HANDLE_STMT, m_connection, &statement), SQL_HANDLE_DBC, m_connection);
    const scope_exit freed([&] { SQLFreeHandle(SQL_HANDLE_STMT, statement); });
    SQLSetStmtAttrW(statement, SQL_ATTR_QUERY_TIMEOUT, reinterpret_cast<SQLPOINTER>(timeLimit), 0);
    const SQLRETURN executed = execute(statement, sql);
    if (executed == SQL_NO_DATA)
        return {};
    check(executed, SQL_HANDLE_STMT, statement);
    SQLSMALLINT columns = 0;
    check(SQLNumResultCols(statement, &columns), SQL_HANDLE_STMT, statement);
    Table result;
    for (SQLUSMALLINT number = 1; number <= columns; ++number)
        result.columns.push_back(columnName(statement, number));
    while (columns > 0 && result.rows.size() < limit) {
        const SQLRETURN fetched = SQLFetch(statement);
        if (fetched == SQL_NO_DATA)
            break;
        check(fetched, SQL_HANDLE_STMT, statement);
        result.rows.emplace_back();
        for (SQLUSMALLINT number = 1; number <= columns; ++number)
            result.rows.back().push_back(column(statement, number));
    }
    return result;
}

std::wstring tableText(const OdbcConnection::Table& table)
{
    std::wstring text;
    const auto addLine = [&text](const std::vector<std::wstring>& cells) {
        for (size_t index = 0; index < cells.size(); ++index)
            text += (index == 0 ? L"" : L" | ") + cells[index];
        text += L"\n";
    };
    addLine(table.columns);
    for (const auto& row : table.rows)
        addLine(row);
    return text;
}

} // namespace velk::devkit
