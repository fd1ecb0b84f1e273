#include "quickTool.h"

#include "devkit/contract/wire.h"

#include <cstdio>
#include <cstring>
#include <string_view>

namespace velk::bench {
namespace {

namespace wire = devkit::wire;

constexpr int32_t procedureKind = 8;

// The texts that all objects share; the one without is the name.
constexpr std::array<std::string_view, QuickTool::textCount> sharedTexts = {
    "sales", {}, "SQL061122014500200", "IN a INTEGER, OUT b VARCHAR(20)", "SQL", "PKG1", "of the orders", "o.sql"};

constexpr std::array<char * wire::trzProcedure::*, QuickTool::textCount> wireTexts = {
    &wire::trzProcedure::strSchema,     &wire::trzProcedure::strName,     &wire::trzProcedure::strSpecific,
    &wire::trzProcedure::strParameters, &wire::trzProcedure::strLanguage, &wire::trzProcedure::strSQLPackage,
    &wire::trzProcedure::strComment,    &wire::trzProcedure::strFileName};

} // namespace

QuickTool::QuickTool(int32_t most) : m_names(static_cast<size_t>(most)), m_count(most), m_wrap(most)
{
    // In no order that a list could profit from; the factor has no divisor in common with any number of objects here.
    for (int32_t number = 0; number < most; ++number) {
        Name& made = m_names[static_cast<size_t>(number)];
        made.length = static_cast<uint8_t>(
            std::snprintf(made.text, sizeof made.text, "procedure%d", static_cast<int>(number * 7919LL % most)));
    }
    backend.numbersAsTexts = true;
    setCalls();
}

std::string_view QuickTool::text(int32_t handle, size_t index) const
{
    if (index != name)
        return sharedTexts[index];
    const Name& own = m_names[static_cast<size_t>(handle - firstObject)];
    return {own.text, own.length};
}

void QuickTool::write(int32_t handle, wire::trzProcedure& record) const
{
    record.lHdl = handle;
    record.bIsDirty = handle % 3 == 0 ? int16_t{-1} : int16_t{0};
    record.bCanDebug = 0;
    record.lResultSets = resultSets(handle);
    record.bIsFenced = 0;
    for (size_t index = 0; index < textCount; ++index) {
        const std::string_view source = text(handle, index);
        std::memcpy(record.*wireTexts[index], source.data(), source.size() + 1);
    }
}

void QuickTool::queue(int32_t type, int32_t notifications, int32_t first, int32_t step)
{
    m_type = type;
    m_first = first;
    m_step = step;
    m_queued = notifications;
    m_next = 0;
}

int32_t QuickTool::next(wire::trzNotify& record, int16_t& more)
{
    more = 0;
    if (m_next >= m_queued)
        return 0;
    const int64_t place = m_first + static_cast<int64_t>(m_step) * m_next++;
    const bool isFolder = m_type == 5;
    record = {m_type, 1, 2, isFolder ? procedureKind - 1 : procedureKind,
              isFolder ? folder : firstObject + static_cast<int32_t>(place % m_wrap)};
    more = m_next < m_queued ? int16_t{-1} : int16_t{0};
    return 1;
}

void QuickTool::setCalls()
{
    backend.on.RZGetNotification = [this](wire::trzNotify* record, int16_t* more) { return next(*record, *more); };
    backend.on.RZProcedureEnumBegin = [this](int32_t, int32_t*, int32_t* enumeration) {
        m_enumerated = 0;
        *enumeration = 1;
        return 1;
    };
    backend.on.RZProcedureEnumNext = [this](int32_t, wire::trzProcedure* record) {
        if (m_enumerated >= m_count)
            return 0;
        write(firstObject + m_enumerated++, *record);
        return 1;
    };
    backend.on.RZProcedureEnumEnd = [](int32_t) { return 1; };
    backend.on.RZProcedureGet = [this](int32_t handle, wire::trzProcedure* record) {
        write(handle, *record);
        return 1;
    };
    backend.on.RZSetCurrentFolder = [](int32_t, int32_t) { return 1; };
}

} // namespace velk::bench
