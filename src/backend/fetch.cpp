#include "backend/fetch.h"

#include "backend/calls.h"

#include "base/boundary.h"
#include "base/text.h"

#include <limits>

namespace velk {
namespace {

constexpr std::wstring_view why = L"the caller is told by the status";

template <class Call, class Record>
int32_t fetchRecord(std::wstring_view where, const Call& call, int32_t handle, Record& record) noexcept
{
    int32_t status = 0;
    swallow(where, why, [&] {
        WireCopy<Record> copy(record);
        status = call.onWire(handle, copy.address());
        copy.readBack(record);
        call.reportOverrun(copy.overrunField());
    });
    return status;
}

// A size that is told by mistake must not take the host's memory: no source text is as long as that.
constexpr int32_t longestText = 16 * 1024 * 1024; // characters

int32_t oneMore(int32_t number)
{
    if (number == std::numeric_limits<int32_t>::max())
        throw Error(errorOverflow);
    if (number > longestText)
        throw Error(errorOutOfMemory, L"the tool asks for room for " + numberText(number) + L" characters");
    return number + 1;
}

// Only the text gets more room. The other fields, lTextSz among them, go in again as the first call left them, with
// whatever stands behind their ends: the Backend still sees its own answer.
template <class Call, class Record>
void fetchLonger(const Call& call, int32_t handle, Record& record, int32_t& status)
{
    record.strText = std::wstring(static_cast<size_t>(oneMore(record.lTextSz)), L'\0');
    WireCopy<Record> copy(record, Fill::asItStands);
    status = call.onWire(handle, copy.address());
    copy.readBack(record, Texts::whole);
    trimTexts(record);
    call.reportOverrun(copy.overrunField());
}

template <class Call, class Record>
int32_t fetchAnyLength(std::wstring_view where, const Call& call, int32_t handle, Record& record) noexcept
{
    int32_t status = 0;
    swallow(where, why, [&] {
        WireCopy<Record> copy(record);
        status = call.onWire(handle, copy.address());
        const bool tooShort = copy.asksForMore();
        copy.readBack(record, tooShort ? Texts::whole : Texts::trimmed);
        call.reportOverrun(copy.overrunField());
        if (tooShort)
            fetchLonger(call, handle, record, status);
    });
    return status;
}

} // namespace

int32_t fetchText(int32_t handle, trzText& record) noexcept
{
    return fetchAnyLength(L"fetchText", RZGetText, handle, record);
}

int32_t fetchSQLText(int32_t handle, trzSQLText& record) noexcept
{
    return fetchAnyLength(L"fetchSQLText", RZGetSQLText, handle, record);
}

int32_t fetchADOText(int32_t handle, trzADOText& record) noexcept
{
    return fetchAnyLength(L"fetchADOText", RZGetADOText, handle, record);
}

int32_t fetchConnectionDE(int32_t handle, trzConnectionDE& record) noexcept
{
    return fetchRecord(L"fetchConnectionDE", RZConnectionGetDE, handle, record);
}

int32_t fetchCommandDE(int32_t handle, trzCommandDE& record) noexcept
{
    return fetchRecord(L"fetchCommandDE", RZCommandGetDE, handle, record);
}

int32_t fetchProject(int32_t handle, trzProject& record) noexcept
{
    return fetchRecord(L"fetchProject", RZProjectGet, handle, record);
}

int32_t fetchConnection(int32_t handle, trzConnection& record) noexcept
{
    return fetchRecord(L"fetchConnection", RZConnectionGet, handle, record);
}

int32_t nextProcedure(int32_t enumeration, trzProcedure& record) noexcept
{
    return fetchRecord(L"nextProcedure", RZProcedureEnumNext, enumeration, record);
}

int32_t fetchProcedure(int32_t handle, trzProcedure& record) noexcept
{
    return fetchRecord(L"fetchProcedure", RZProcedureGet, handle, record);
}

int32_t nextFunction(int32_t enumeration, trzFunction& record) noexcept
{
    return fetchRecord(L"nextFunction", RZFunctionEnumNext, enumeration, record);
}

int32_t fetchFunction(int32_t handle, trzFunction& record) noexcept
{
    return fetchRecord(L"fetchFunction", RZFunctionGet, handle, record);
}

int32_t nextTrigger(int32_t enumeration, trzTrigger& record) noexcept
{
    return fetchRecord(L"nextTrigger", RZTriggerEnumNext, enumeration, record);
}

int32_t fetchTrigger(int32_t handle, trzTrigger& record) noexcept
{
    return fetchRecord(L"fetchTrigger", RZTriggerGet, handle, record);
}

int32_t nextTable(int32_t enumeration, trzTable& record) noexcept
{
    return fetchRecord(L"nextTable", RZTableEnumNext, enumeration, record);
}

int32_t fetchTable(int32_t handle, trzTable& record) noexcept
{
    return fetchRecord(L"fetchTable", RZTableGet, handle, record);
}

int32_t nextView(int32_t enumeration, trzView& record) noexcept
{
    return fetchRecord(L"nextView", RZViewEnumNext, enumeration, record);
}

int32_t fetchView(int32_t handle, trzView& record) noexcept
{
    return fetchRecord(L"fetchView", RZViewGet, handle, record);
}

} // namespace velk
