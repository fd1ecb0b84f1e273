#include "devkit/backend/catalog.h"
#include "devkit/backend/keptSources.h"
#include "devkit/backend/routineBody.h"

namespace velk::devkit {
namespace {

struct ObjectsRow {
    int32_t folderKind;
    const wchar_t* query; // schema, name, remark, table's schema and name, table space
};

// The database's own schemas and the tool's own tables are nobody's business.
// clang-format off
constexpr ObjectsRow objectsRows[] = {
    {kindTableFolder,
     L"SELECT n.nspname, c.relname, COALESCE(obj_description(c.oid), ''), '', '', COALESCE(t.spcname, '') FROM pg_class c "
     L"JOIN pg_namespace n ON n.oid = c.relnamespace LEFT JOIN pg_tablespace t ON t.oid = c.reltablespace WHERE c.relkind = 'r' "
     L"AND n.nspname NOT IN ('pg_catalog', 'information_schema') AND c.relname NOT LIKE 'rozel%' ORDER BY c.relname"},
    {kindViewFolder,
     L"SELECT n.nspname, c.relname, COALESCE(obj_description(c.oid), ''), '', '', '' FROM pg_class c JOIN pg_namespace n ON "
     L"n.oid = c.relnamespace WHERE c.relkind = 'v' AND n.nspname NOT IN ('pg_catalog', 'information_schema') ORDER BY c.relname"},
    {kindTriggerFolder,
     L"SELECT n.nspname, g.tgname, COALESCE(obj_description(g.oid, 'pg_trigger'), ''), n.nspname, c.relname, '' FROM pg_trigger g "
     L"JOIN pg_class c ON c.oid = g.tgrelid JOIN pg_namespace n ON n.oid = c.relnamespace WHERE NOT g.tgisinternal ORDER BY g.tgname"},
};
// clang-format on

bool isFunction(const ObjectFacts& facts)
{
    return !facts.result.empty();
}

class PostgresCatalog : public Catalog {
public:
    std::vector<ObjectFacts> objects(OdbcConnection& connection, int32_t folderKind) override
    {
        std::vector<ObjectFacts> result;
        for (const ObjectsRow& row : objectsRows)
            if (row.folderKind == folderKind)
                for (const auto& cells : connection.query(row.query))
                    result.push_back(factsOf(cells, folderKind));
        return result;
    }

    // A routine counts as built while the database still has one of that name.
    std::map<std::wstring, std::wstring> builtRoutines(OdbcConnection& connection) override
    {
        std::map<std::wstring, std::wstring> result;
        if (connection.query(L"SELECT to_regclass('rozel_routines') IS NOT NULL").at(0).at(0) != L"1")
            return result;
        for (auto& cells :
             connection.query(L"SELECT r.name, r.source FROM rozel_routines r WHERE EXISTS (SELECT 1 FROM "
                              L"pg_proc p WHERE p.proname = r.name)"))
            result.emplace(cells[0], std::move(cells[1]));
        return result;
    }

    void build(OdbcConnection& connection, const ObjectFacts& facts, const std::wstring& source) override
    {
        connection.query(source);
        keepSource(connection, facts.name, source);
    }

    std::vector<std::wstring> runStatements(const ObjectFacts& facts, const std::wstring&,
                                            const ParameterValues& values) override
    {
        std::wstring arguments;
        for (const RoutineParameter& parameter : parametersOf(facts))
            arguments += (arguments.empty() ? L"" : L", ") + values.at(parameter.name);
        return {(isFunction(facts) ? L"SELECT " : L"CALL ") + fullName(facts) + L"(" + arguments + L")"};
    }

    void drop(OdbcConnection& connection, const ObjectFacts& facts) override
    {
        connection.query((isFunction(facts) ? L"DROP FUNCTION IF EXISTS " : L"DROP PROCEDURE IF EXISTS ") +
                         fullName(facts));
        forgetSource(connection, facts.name);
    }

    // Every change of a definition gives its row of the catalog another transaction.
    std::wstring changeMark(OdbcConnection& connection) override
    {
        return connection
            .query(L"SELECT (SELECT COALESCE(SUM(xmin::text::bigint + oid::bigint), 0) FROM pg_class WHERE relkind IN "
                   L"('r', 'v'))"
                   L" || '.' || (SELECT COALESCE(SUM(xmin::text::bigint + oid::bigint), 0) FROM pg_trigger)"
                   L" || '.' || (SELECT COALESCE(SUM(xmin::text::bigint + oid::bigint), 0) FROM pg_proc WHERE oid > "
                   L"16383)")
            .at(0)
            .at(0);
    }

private:
    static ObjectFacts factsOf(const std::vector<std::wstring>& cells, int32_t folderKind)
    {
        ObjectFacts facts;
        facts.schema = cells[0];
        facts.name = cells[1];
        facts.comment = cells[2];
        facts.tableSchema = cells[3];
        facts.tableName = cells[4];
        facts.tableSpace = cells[5];
        facts.key = facts.schema + L"." + facts.name + L"." + facts.tableName;
        facts.type = folderKind == kindTableFolder ? plainTable : 0;
        return facts;
    }
};

} // namespace

std::unique_ptr<Catalog> makePostgresCatalog()
{
    return std::make_unique<PostgresCatalog>();
}

} // namespace velk::devkit
