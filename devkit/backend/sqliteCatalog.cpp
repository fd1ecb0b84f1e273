#include "devkit/backend/catalog.h"
#include "devkit/backend/keptSources.h"
#include "devkit/backend/routineBody.h"

namespace velk::devkit {
namespace {

constexpr const wchar_t* schema = L"main";

struct ObjectsRow {
    int32_t folderKind;
    const wchar_t* type;
};

// clang-format off
constexpr ObjectsRow objectsRows[] = {
    {kindTriggerFolder, L"trigger"},
    {kindTableFolder,   L"table"},
    {kindViewFolder,    L"view"},
};
// clang-format on

// The database's own tables and the tool's own are nobody's business.
constexpr const wchar_t* shown = L" AND o.name NOT LIKE 'sqlite\\_%' ESCAPE '\\'"
                                 L" AND o.name NOT LIKE 'rozel\\_%' ESCAPE '\\'";

class SqliteCatalog : public Catalog {
public:
    std::vector<ObjectFacts> objects(OdbcConnection& connection, int32_t folderKind) override
    {
        std::vector<ObjectFacts> result;
        for (const ObjectsRow& row : objectsRows)
            if (row.folderKind == folderKind)
                for (const auto& cells : connection.query(statement(connection, row.type)))
                    result.push_back(factsOf(cells, folderKind));
        return result;
    }

    std::map<std::wstring, std::wstring> builtRoutines(OdbcConnection& connection) override
    {
        std::map<std::wstring, std::wstring> result;
        if (has(connection, L"rozel_routines"))
            for (auto& cells : connection.query(L"SELECT name, source FROM rozel_routines"))
                result.emplace(cells[0], std::move(cells[1]));
        return result;
    }

    // The database only checks the statements; the routine itself is the tool's.
    void build(OdbcConnection& connection, const ObjectFacts& facts, const std::wstring& source) override
    {
        if (isWrittenIn(facts, L"SQL"))
            for (const std::wstring& statement : statementsOf(source, facts, nothingFor(facts)))
                connection.query(L"EXPLAIN " + statement);
        keepSource(connection, facts.name, source);
    }

    std::vector<std::wstring> runStatements(const ObjectFacts& facts, const std::wstring& source,
                                            const ParameterValues& values) override
    {
        return statementsOf(source, facts, values);
    }

    void drop(OdbcConnection& connection, const ObjectFacts& facts) override
    {
        if (has(connection, L"rozel_routines"))
            forgetSource(connection, facts.name);
    }

    std::wstring changeMark(OdbcConnection& connection) override
    {
        const auto rows = connection.query(L"PRAGMA data_version");
        return rows.empty() || rows[0].empty() ? std::wstring() : rows[0][0];
    }

private:
    static bool has(OdbcConnection& connection, const std::wstring& table)
    {
        return !connection.query(L"SELECT name FROM sqlite_master WHERE type = 'table' AND name = '" + table + L"'")
                    .empty();
    }

    static std::wstring statement(OdbcConnection& connection, const std::wstring& type)
    {
        const bool remarks = has(connection, L"rozel_remarks");
        return L"SELECT o.name, o.tbl_name, " + std::wstring(remarks ? L"r.remark" : L"''") + L" FROM sqlite_master o" +
               (remarks ? L" LEFT JOIN rozel_remarks r ON r.object = o.name" : L"") + L" WHERE o.type = '" + type +
               L"'" + shown + L" ORDER BY o.name";
    }

    static ObjectFacts factsOf(const std::vector<std::wstring>& cells, int32_t folderKind)
    {
        ObjectFacts facts;
        facts.key = facts.name = cells[0];
        facts.schema = schema;
        facts.comment = cells[2];
        if (folderKind == kindTriggerFolder) {
            facts.tableSchema = schema;
            facts.tableName = cells[1];
        }
        facts.type = folderKind == kindTableFolder ? plainTable : 0;
        return facts;
    }
};

} // namespace

std::unique_ptr<Catalog> makeSqliteCatalog()
{
    return std::make_unique<SqliteCatalog>();
}

} // namespace velk::devkit
