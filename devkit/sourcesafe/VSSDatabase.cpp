#include "devkit/sourcesafe/VSSDatabase.h"

#include "devkit/sourcesafe/VSSItem.h"

namespace velk::devkit::vss {
namespace {

variant open(VSSDatabase& database, const CallArguments& arguments)
{
    database.open(arguments.text(0), arguments.text(1), arguments.text(2));
    return {};
}

variant srcSafeIni(VSSDatabase& database, const CallArguments&)
{
    return textVariant(database.session()->store.iniPath());
}

variant databaseName(VSSDatabase& database, const CallArguments&)
{
    return textVariant(database.session()->store.name());
}

variant username(VSSDatabase& database, const CallArguments&)
{
    return textVariant(database.session()->user);
}

variant currentProject(VSSDatabase& database, const CallArguments&)
{
    return textVariant(database.session()->currentProject);
}

void setCurrentProject(VSSDatabase& database, const CallArguments& arguments)
{
    OpenDatabase& session = *database.session();
    const Place place = session.store.find(arguments.text(0), session.currentProject);
    if (!place.isProject)
        throw failure(Code::wantProject, L"\"" + place.spec + L"\" is a file, not a project.");
    session.currentProject = place.spec;
}

// The second argument asks for deleted items; nothing can be deleted here, so both kinds are the same.
variant item(VSSDatabase& database, const CallArguments& arguments)
{
    const std::shared_ptr<OpenDatabase>& session = database.session();
    return itemVariant(session, session->store.find(arguments.text(0), session->currentProject));
}

// clang-format off
constexpr Member<VSSDatabase> rows[] = {
    {L"Open",           open,           nullptr,           L"SrcSafeIni Username Password", 1},
    {L"SrcSafeIni",     srcSafeIni,     nullptr,           L"",                             2},
    {L"DatabaseName",   databaseName,   nullptr,           L"",                             3},
    {L"Username",       username,       nullptr,           L"",                             4},
    {L"CurrentProject", currentProject, setCurrentProject, L"",                             5},
    {L"VSSItem",        item,           nullptr,           L"Spec Deleted",                 6},
};
// clang-format on

std::wstring systemUser()
{
    wchar_t name[257] = L"";
    DWORD size = 257;
    GetUserNameW(name, &size);
    return name;
}

} // namespace

std::span<const Member<VSSDatabase>> VSSDatabase::members()
{
    return rows;
}

void VSSDatabase::open(const std::wstring& ini, const std::wstring& user, const std::wstring& password)
{
    Store store(ini);
    std::wstring name = store.logIn(user.empty() ? systemUser() : user, password);
    m_session = std::make_shared<OpenDatabase>(std::move(store), std::move(name));
}

const std::shared_ptr<OpenDatabase>& VSSDatabase::session() const
{
    if (!m_session)
        throw failure(Code::noIniFile, L"No database is open.");
    return m_session;
}

} // namespace velk::devkit::vss
