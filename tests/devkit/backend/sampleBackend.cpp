#include "devkit/backend/sampleBackend.h"

#include "base/module.h"
#include "devkit/backend/odbc.h"
#include "devkit/backend/systemFile.h"
#include "devkit/base/uniqueFile.h"
#include "support/folders.h"

#include <sstream>

namespace velk::test {
namespace {

std::wstring madeFolder()
{
    static int number = 0;
    const std::wstring folder =
        module::folder() + L"\\copy" + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(++number);
    removeTree(folder);
    copyTree(module::folder() + L"\\sample", folder);
    return folder;
}

std::wstring shown(const trzNotify& notification)
{
    if (notification.lNotifyType == 2) {
        trzText text;
        fetchText(notification.lObjectHdl, text);
        return L"2 " + std::to_wstring(text.lTextType) + L" " + text.strText;
    }
    return std::to_wstring(notification.lNotifyType) + L" " + std::to_wstring(notification.lObjectType) + L" " +
           std::to_wstring(notification.lObjectHdl);
}

bool isWorking()
{
    const auto function = reinterpret_cast<int32_t(__stdcall*)()>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"velkvsadd.dll"), "RZStandinIsWorking")));
    return function() != 0;
}

using Begin = int32_t (*)(int32_t folder, int32_t& count, int32_t& enumeration);
using End = int32_t (*)(int32_t enumeration);

// The names in a folder, read with the wrapper of one kind.
template <class Record>
std::vector<std::wstring> listed(int32_t folder, Begin begin, int32_t (*next)(int32_t, Record&) noexcept, End end)
{
    std::vector<std::wstring> names;
    int32_t count = 0;
    int32_t enumeration = 0;
    if (begin(folder, count, enumeration))
        for (Record record; next(enumeration, record); record = {})
            names.push_back(record.strName);
    end(enumeration);
    return names;
}

} // namespace

SampleBackend::SampleBackend() : m_folder(madeFolder())
{
    SetEnvironmentVariableW(L"VELK_BACKEND_JOURNAL", path(L"journal.txt").c_str());
}

SampleBackend::~SampleBackend()
{
    unloadBackend();
    SetEnvironmentVariableW(L"VELK_BACKEND_JOURNAL", nullptr);
    SetEnvironmentVariableW(L"VELK_BACKEND_WATCH", nullptr);
    removeTree(m_folder);
}

void SampleBackend::write(const std::wstring& name, const std::string& bytes) const
{
    const devkit::unique_file file(
        CreateFileW(path(name).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    DWORD written = 0;
    ASSERT_TRUE(WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr));
}

std::string SampleBackend::read(const std::wstring& name) const
{
    return devkit::readBytes(path(name)).value_or("");
}

void SampleBackend::erase(const std::wstring& name) const
{
    ASSERT_TRUE(DeleteFileW(path(name).c_str()));
}

void SampleBackend::execute(const std::wstring& sql) const
{
    const auto place = devkit::placeDatabase(L"Driver=SQLite3;Database=orders.db;NoCreat=1", path(L"rz"));
    devkit::OdbcConnection(place.connectionString).query(sql);
}

std::wstring SampleBackend::value(const std::wstring& sql) const
{
    const auto place = devkit::placeDatabase(L"Driver=SQLite3;Database=orders.db;NoCreat=1", path(L"rz"));
    return devkit::OdbcConnection(place.connectionString).query(sql).at(0).at(0);
}

void SampleBackend::begin()
{
    ASSERT_NE(RZInitialize(3, project(), L""), 0);
    ASSERT_THAT(notifications(), testing::ElementsAre(L"2 1 RZ_INIT_COMPLETE"));
}

void SampleBackend::open(const std::wstring& file)
{
    ASSERT_NE(RZProjectDoAccess(path(L"rz"), file, 2), 0);
}

void SampleBackend::beginSample()
{
    begin();
    open(L"orders.rzv");
    ASSERT_THAT(notifications(), testing::ElementsAre(L"8 5 1001", L"8 6 1002"));
}

std::vector<std::wstring> SampleBackend::notifications() const
{
    std::vector<std::wstring> lines = notificationsNow();
    for (int tries = 0; tries < 1000 && isWorking(); ++tries) {
        Sleep(10);
        for (std::wstring& line : notificationsNow())
            lines.push_back(std::move(line));
    }
    return lines;
}

std::vector<std::wstring> SampleBackend::notificationsNow() const
{
    std::vector<std::wstring> lines;
    trzNotify notification;
    bool more = false;
    while (RZGetNotification(notification, more) != 0)
        lines.push_back(shown(notification));
    EXPECT_FALSE(more);
    return lines;
}

void SampleBackend::watchOften()
{
    m_watchInterval = 50;
    SetEnvironmentVariableW(L"VELK_BACKEND_WATCH", std::to_wstring(m_watchInterval).c_str());
}

std::vector<std::wstring> SampleBackend::notificationsAfterAWhile() const
{
    Sleep(m_watchInterval + m_watchInterval / 10);
    return notifications();
}

std::vector<std::wstring> SampleBackend::journal() const
{
    std::wistringstream text(devkit::fromUtf8(read(L"journal.txt")));
    std::vector<std::wstring> lines;
    for (std::wstring line; std::getline(text, line);)
        lines.push_back(line);
    return lines;
}

std::vector<std::wstring> SampleBackend::breaches() const
{
    std::vector<std::wstring> lines = journal();
    std::erase_if(lines, [](const std::wstring& line) { return !line.starts_with(L"BREACH "); });
    return lines;
}

#define LISTED(kind)                                                                                                   \
    listed<trz##kind>(                                                                                                 \
        folder, [](int32_t f, int32_t& c, int32_t& e) { return RZ##kind##EnumBegin(f, c, e); }, next##kind,            \
        [](int32_t e) { return RZ##kind##EnumEnd(e); })

std::vector<std::wstring> SampleBackend::names(int32_t folder, int32_t kind) const
{
    switch (kind) {
    case 7:
        return LISTED(Procedure);
    case 9:
        return LISTED(Function);
    case 11:
        return LISTED(Trigger);
    case 13:
        return LISTED(Table);
    default:
        return LISTED(View);
    }
}

} // namespace velk::test
