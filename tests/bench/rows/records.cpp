// What crosses to the tool and back.
#include "backend/fetch.h"
#include "backend/library.h"
#include "backend/texts.h"

#include "floor.h"
#include "measure.h"
#include "quickTool.h"

#include <cstring>

namespace velk::bench {
namespace {

namespace wire = devkit::wire;

constexpr int callsOfARun = 250;
constexpr double microseconds = callsOfARun / 1000.0; // as a divisor of milliseconds

// One text of a record by the letter: a wide buffer of its room, converted whole both ways, then cut.
class LiteralText {
public:
    explicit LiteralText(size_t room) : m_wide(room, L'\0')
    {
        const int length = static_cast<int>(room);
        const int bytes = WideCharToMultiByte(CP_ACP, 0, m_wide.data(), length, nullptr, 0, nullptr, nullptr);
        m_counted = SysAllocStringByteLen(nullptr, static_cast<UINT>(bytes));
        WideCharToMultiByte(CP_ACP, 0, m_wide.data(), length, characters(), bytes, nullptr, nullptr);
    }
    LiteralText(const LiteralText&) = delete;
    LiteralText& operator=(const LiteralText&) = delete;
    ~LiteralText() { SysFreeString(m_counted); }

    char* characters() const { return reinterpret_cast<char*>(m_counted); }
    // The whole buffer as the tool left it.
    const std::wstring& wide()
    {
        const int bytes = static_cast<int>(SysStringByteLen(m_counted));
        const int length = MultiByteToWideChar(CP_ACP, 0, characters(), bytes, nullptr, 0);
        m_wide.assign(static_cast<size_t>(length), L'\0');
        MultiByteToWideChar(CP_ACP, 0, characters(), bytes, m_wide.data(), length);
        return m_wide;
    }
    std::wstring cut()
    {
        const size_t end = wide().find(L'\0');
        return end == std::wstring::npos ? std::wstring() : m_wide.substr(0, end);
    }

private:
    std::wstring m_wide;
    BSTR m_counted = nullptr;
};

void fetchLiterally(int32_t handle, trzProcedure& record)
{
    LiteralText schema(256), name(1024), specific(1024), parameters(1024), language(256), package(256), comment(256),
        file(1024);
    wire::trzProcedure copy{};
    copy.strSchema = schema.characters();
    copy.strName = name.characters();
    copy.strSpecific = specific.characters();
    copy.strParameters = parameters.characters();
    copy.strLanguage = language.characters();
    copy.strSQLPackage = package.characters();
    copy.strComment = comment.characters();
    copy.strFileName = file.characters();
    entryOf<int32_t (*)(int32_t, wire::trzProcedure*)>(BackendFunction::RZProcedureGet)(handle, &copy);
    record.lHdl = copy.lHdl;
    record.bIsDirty = copy.bIsDirty != 0;
    record.bCanDebug = copy.bCanDebug != 0;
    record.lResultSets = copy.lResultSets;
    record.bIsFenced = copy.bIsFenced != 0;
    record.strSchema = schema.cut();
    record.strName = name.cut();
    record.strSpecific = specific.cut();
    record.strParameters = parameters.cut();
    record.strLanguage = language.cut();
    record.strSQLPackage = package.cut();
    record.strComment = comment.cut();
    record.strFileName = file.cut();
}

std::wstring textLiterally(int32_t number)
{
    constexpr int32_t room = 1024;
    LiteralText buffer(room);
    int32_t count =
        entryOf<int32_t (*)(int32_t, char*, int32_t)>(BackendFunction::RZGetString)(number, buffer.characters(), room);
    if (count < 1)
        return {};
    const std::wstring& wide = buffer.wide();
    const auto end = static_cast<int32_t>(wide.find(L'\0')) + 1;
    if (end > 0 && end < count)
        count = end - 1;
    return wide.substr(0, static_cast<size_t>(count));
}

template <class Call>
Side repeated(Call call)
{
    return {{}, [call] {
                for (int32_t number = 0; number < callsOfARun; ++number)
                    call(number);
            }};
}

Outcome fetchAgainst(const std::function<void(int32_t)>& baseline)
{
    trzProcedure record;
    const auto ours =
        repeated([&record](int32_t number) { fetchProcedure(QuickTool::firstObject + number % 1000, record); });
    return {runPairs(ours, repeated(baseline), microseconds, microseconds)};
}

Outcome fetchAgainstLiteral(int32_t)
{
    const QuickTool tool(1000);
    trzProcedure record;
    return fetchAgainst([&](int32_t number) { fetchLiterally(QuickTool::firstObject + number % 1000, record); });
}

Outcome fetchAgainstFloor(int32_t)
{
    const QuickTool tool(1000);
    ProcedureFloor floor;
    return fetchAgainst([&](int32_t number) { floor.fetch(QuickTool::firstObject + number % 1000); });
}

Outcome textAgainstLiteral(int32_t)
{
    QuickTool tool(1);
    tool.backend.on.RZGetString = [](int32_t, char* buffer, int32_t) {
        std::memcpy(buffer, "Opening the projects", 21);
        return 20;
    };
    return {runPairs(repeated([](int32_t number) { getRZString(number); }),
                     repeated([](int32_t number) { textLiterally(number); }), microseconds, microseconds)};
}

// clang-format off
constexpr Row rows[] = {
    {"fetch",       "us", 0.10, false, "fetch of one procedure", "the literal algorithm", fetchAgainstLiteral},
    {"fetch-floor", "us", 2.0,  false, "fetch of one procedure", "the floor: zeroing, the call, the used characters",
     fetchAgainstFloor},
    {"text",        "us", 0.25, false, "a message text of 20 characters", "the literal algorithm", textAgainstLiteral},
};
// clang-format on

} // namespace

std::span<const Row> recordRows()
{
    return rows;
}

} // namespace velk::bench
