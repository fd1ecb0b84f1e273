#include "devkit/backend/database.h"

#include "devkit/backend/routineSource.h"
#include "devkit/backend/systemFile.h"

#include <algorithm>
#include <cwchar>

namespace velk::devkit {
namespace {

// Procedures that are nowhere but in the folder, as many as the environment asks for: for trying a large one.
void addMadeUp(std::vector<ObjectFacts>& objects)
{
    const long wanted = std::wcstol(environmentText(L"VELK_BACKEND_MANY").c_str(), nullptr, 10);
    constexpr long most = 1000000;
    for (long number = 1; number <= std::min(wanted, most); ++number) {
        ObjectFacts facts;
        facts.key = L"made up " + std::to_wstring(number);
        facts.name = L"procedure" + std::to_wstring(number * 7919 % wanted);
        facts.schema = L"many";
        facts.parameters = L"IN a_number INTEGER";
        facts.language = L"SQL";
        facts.resultSets = static_cast<int32_t>(number % 7);
        objects.push_back(std::move(facts));
    }
}

} // namespace

Database::Database(const ProjectConnection& connection, const std::wstring& folder,
                   std::vector<ProjectRoutine> procedures, std::vector<ProjectRoutine> functions)
    : m_name(connection.name), m_odbc(connection.odbc), m_place(placeDatabase(connection.odbc, folder)),
      m_procedures(std::move(procedures)), m_functions(std::move(functions)),
      m_catalog(makeCatalog(m_place.connectionString))
{
}

std::unique_ptr<OdbcConnection> Database::Workshop::open(Cancellation& cancellation) const
{
    auto opened = std::make_unique<OdbcConnection>(connectionString, &cancellation);
    catalog->objects(*opened, kindTableFolder);
    opened->keep();
    return opened;
}

OdbcConnection& Database::opened()
{
    if (!m_connection)
        throw OdbcError(L"the connection is closed");
    return *m_connection;
}

void Database::drop(const ObjectFacts& facts)
{
    m_catalog->drop(opened(), facts);
}

std::vector<ObjectFacts> Database::read(int32_t folderKind)
{
    if (!m_connection)
        return {};
    const auto* routines = routinesOf(folderKind);
    if (!routines)
        return m_catalog->objects(*m_connection, folderKind);
    std::vector<ObjectFacts> objects = readRoutines(*routines);
    if (folderKind == kindProcedureFolder)
        addMadeUp(objects);
    return objects;
}

std::vector<ObjectFacts> Database::readRoutines(const std::vector<ProjectRoutine>& routines)
{
    std::vector<ObjectFacts> result;
    const auto built = m_catalog->builtRoutines(*m_connection);
    for (const ProjectRoutine& routine : routines) {
        const auto bytes = readBytes(routine.file);
        if (!bytes)
            continue;
        const std::wstring source = fromUtf8(*bytes);
        ObjectFacts facts = parseRoutine(source);
        facts.key = facts.file = routine.file;
        if (facts.name.empty())
            facts.name = baseName(routine.file);
        facts.canDebug = routine.debug;
        const auto found = built.find(facts.name);
        facts.dirty = found == built.end() || comparable(found->second) != comparable(source);
        result.push_back(std::move(facts));
    }
    return result;
}

std::wstring Database::changeMark(int32_t folderKind)
{
    if (!m_connection)
        return {};
    std::wstring mark = m_catalog->changeMark(*m_connection);
    if (const auto* routines = routinesOf(folderKind))
        for (const ProjectRoutine& routine : *routines)
            mark += L"|" + fileStamp(routine.file);
    return mark;
}

} // namespace velk::devkit
