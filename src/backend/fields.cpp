#include "backend/fields.h"

#include "backend/wire.h"

#include <algorithm>
#include <type_traits>

namespace velk {
namespace {

template <class Member, class Wire>
consteval FieldKind kindOf()
{
    if constexpr (std::is_same_v<Member, int32_t> && std::is_same_v<Wire, wire::Long>)
        return FieldKind::number;
    else if constexpr (std::is_same_v<Member, bool> && std::is_same_v<Wire, wire::Boolean>)
        return FieldKind::flag;
    else {
        static_assert(std::is_same_v<Member, std::wstring> && std::is_same_v<Wire, wire::String>);
        return FieldKind::text;
    }
}

// The offset that the Backend expects is written out in the row; a layout that misses it does not compile.
consteval FieldRow row(FieldKind kind, size_t member, size_t wire, size_t expected, int32_t capacity)
{
    if (wire != expected)
        throw "the field does not stand where the Backend expects it";
    return {kind, static_cast<uint16_t>(member), static_cast<uint16_t>(wire), capacity};
}

// What the rows cover, to the byte: every hole between them must be a flag's padding.
consteval size_t extent(std::span<const FieldRow> rows)
{
    size_t end = 0;
    for (const FieldRow& field : rows) {
        const size_t width = field.kind == FieldKind::flag ? 2 : 4;
        if (field.wire != (end + width - 1) / width * width)
            throw "a field is missing, or out of order";
        end = field.wire + width;
    }
    return (end + 3) / 4 * 4;
}

consteval size_t texts(std::span<const FieldRow> rows)
{
    return static_cast<size_t>(
        std::count_if(rows.begin(), rows.end(), [](const FieldRow& field) { return field.kind == FieldKind::text; }));
}

#define FIELD(record, name, offset, capacity)                                                                          \
    row(kindOf<decltype(record::name), decltype(wire::record::name)>(), offsetof(record, name),                        \
        offsetof(wire::record, name), offset, capacity)

#define LAYOUT(record, size, rows)                                                                                     \
    static_assert(std::is_standard_layout_v<record>);                                                                  \
    static_assert(sizeof(wire::record) == size && extent(rows) == size && size <= largestWireRecord);                  \
    static_assert(texts(rows) <= mostTextsInRecord);                                                                   \
    template <>                                                                                                        \
    const RecordLayout& layoutOf<record>() noexcept                                                                    \
    {                                                                                                                  \
        static constexpr RecordLayout layout{rows, size};                                                              \
        return layout;                                                                                                 \
    }

// clang-format off
constexpr FieldRow notifyRows[] = {
    FIELD(trzNotify,       lNotifyType,          0,     0),
    FIELD(trzNotify,       lProjectHdl,          4,     0),
    FIELD(trzNotify,       lConnectionHdl,       8,     0),
    FIELD(trzNotify,       lObjectType,         12,     0),
    FIELD(trzNotify,       lObjectHdl,          16,     0),
};
constexpr FieldRow textRows[] = {
    FIELD(trzText,         strText,              0,  4096),
    FIELD(trzText,         lTextSz,              4,  4096),
    FIELD(trzText,         lTextType,            8,     0),
    FIELD(trzText,         strButtons,          12,   256),
};
constexpr FieldRow sqlTextRows[] = {
    FIELD(trzSQLText,      strVSProject,         0,     0),
    FIELD(trzSQLText,      strVSFile,            4,  1024),
    FIELD(trzSQLText,      lSelFromLine,         8,     0),
    FIELD(trzSQLText,      lSelFromColumn,      12,     0),
    FIELD(trzSQLText,      lSelToLine,          16,     0),
    FIELD(trzSQLText,      lSelToColumn,        20,     0),
    FIELD(trzSQLText,      strText,             24,  4096),
    FIELD(trzSQLText,      lTextSz,             28,  4096),
};
constexpr FieldRow adoTextRows[] = {
    FIELD(trzADOText,      strVSProject,         0,  1024),
    FIELD(trzADOText,      strVSFile,            4,  1024),
    FIELD(trzADOText,      strText,              8, 65536),
    FIELD(trzADOText,      lTextSz,             12, 65536),
};
constexpr FieldRow connectionDeRows[] = {
    FIELD(trzConnectionDE, strVSProject,         0,   256),
    FIELD(trzConnectionDE, strDEName,            4,   256),
    FIELD(trzConnectionDE, strDEConnection,      8,   256),
    FIELD(trzConnectionDE, strConnectionString, 12,  1024),
};
constexpr FieldRow commandDeRows[] = {
    FIELD(trzCommandDE,    strVSProject,         0,   256),
    FIELD(trzCommandDE,    strDEName,            4,   256),
    FIELD(trzCommandDE,    strDEConnection,      8,   256),
    FIELD(trzCommandDE,    strDECommand,        12,   256),
    FIELD(trzCommandDE,    strCommandText,      16,  4096),
    FIELD(trzCommandDE,    lCommandType,        20,     0),
    FIELD(trzCommandDE,    bHasParemeters,      24,     0),
};
constexpr FieldRow parameterDeRows[] = {
    FIELD(trzParameterDE,  strName,              0,     0),
    FIELD(trzParameterDE,  lMode,                4,     0),
    FIELD(trzParameterDE,  lSQLType,             8,     0),
    FIELD(trzParameterDE,  lSQLSize,            12,     0),
    FIELD(trzParameterDE,  lSQLPrecision,       16,     0),
    FIELD(trzParameterDE,  bBitData,            20,     0),
};
constexpr FieldRow projectRows[] = {
    FIELD(trzProject,      lHdl,                 0,     0),
    FIELD(trzProject,      strName,              4,   256),
    FIELD(trzProject,      strPath,              8,  1024),
};
constexpr FieldRow connectionRows[] = {
    FIELD(trzConnection,   lHdl,                 0,     0),
    FIELD(trzConnection,   bConnected,           4,     0),
    FIELD(trzConnection,   strDatabase,          8,   256),
    FIELD(trzConnection,   lProceduresHdl,      12,     0),
    FIELD(trzConnection,   lFunctionsHdl,       16,     0),
    FIELD(trzConnection,   lTriggersHdl,        20,     0),
    FIELD(trzConnection,   lTablesHdl,          24,     0),
    FIELD(trzConnection,   lViewsHdl,           28,     0),
};
constexpr FieldRow procedureRows[] = {
    FIELD(trzProcedure,    lHdl,                 0,     0),
    FIELD(trzProcedure,    bIsDirty,             4,     0),
    FIELD(trzProcedure,    bCanDebug,            6,     0),
    FIELD(trzProcedure,    strSchema,            8,   256),
    FIELD(trzProcedure,    strName,             12,  1024),
    FIELD(trzProcedure,    strSpecific,         16,  1024),
    FIELD(trzProcedure,    strParameters,       20,  1024),
    FIELD(trzProcedure,    strLanguage,         24,   256),
    FIELD(trzProcedure,    strSQLPackage,       28,   256),
    FIELD(trzProcedure,    lResultSets,         32,     0),
    FIELD(trzProcedure,    bIsFenced,           36,     0),
    FIELD(trzProcedure,    strComment,          40,   256),
    FIELD(trzProcedure,    strFileName,         44,  1024),
};
constexpr FieldRow functionRows[] = {
    FIELD(trzFunction,     lHdl,                 0,     0),
    FIELD(trzFunction,     bIsDirty,             4,     0),
    FIELD(trzFunction,     bCanDebug,            6,     0),
    FIELD(trzFunction,     strSchema,            8,   256),
    FIELD(trzFunction,     strName,             12,   256),
    FIELD(trzFunction,     strSpecific,         16,  1024),
    FIELD(trzFunction,     strParameters,       20,  1024),
    FIELD(trzFunction,     strResult,           24,  1024),
    FIELD(trzFunction,     strLanguage,         28,   256),
    FIELD(trzFunction,     bIsFenced,           32,     0),
    FIELD(trzFunction,     strComment,          36,   256),
    FIELD(trzFunction,     strFileName,         40,  1024),
};
constexpr FieldRow triggerRows[] = {
    FIELD(trzTrigger,      lHdl,                 0,     0),
    FIELD(trzTrigger,      bIsDirty,             4,     0),
    FIELD(trzTrigger,      bCanDebug,            6,     0),
    FIELD(trzTrigger,      strSchema,            8,   256),
    FIELD(trzTrigger,      strName,             12,   256),
    FIELD(trzTrigger,      strTableSchema,      16,   256),
    FIELD(trzTrigger,      strTableName,        20,   256),
    FIELD(trzTrigger,      strComment,          24,   256),
    FIELD(trzTrigger,      strFileName,         28,  1024),
};
constexpr FieldRow tableRows[] = {
    FIELD(trzTable,        lHdl,                 0,     0),
    FIELD(trzTable,        bIsDirty,             4,     0),
    FIELD(trzTable,        strSchema,            8,   256),
    FIELD(trzTable,        strName,             12,   256),
    FIELD(trzTable,        strTableSpace,       16,   256),
    FIELD(trzTable,        lType,               20,     0),
    FIELD(trzTable,        strComment,          24,   256),
};
constexpr FieldRow viewRows[] = {
    FIELD(trzView,         lHdl,                 0,     0),
    FIELD(trzView,         bIsDirty,             4,     0),
    FIELD(trzView,         strSchema,            8,   256),
    FIELD(trzView,         strName,             12,   256),
    FIELD(trzView,         strComment,          16,   256),
};
// clang-format on

} // namespace

LAYOUT(trzNotify, 20, notifyRows)
LAYOUT(trzText, 16, textRows)
LAYOUT(trzSQLText, 32, sqlTextRows)
LAYOUT(trzADOText, 16, adoTextRows)
LAYOUT(trzConnectionDE, 16, connectionDeRows)
LAYOUT(trzCommandDE, 28, commandDeRows)
LAYOUT(trzParameterDE, 24, parameterDeRows)
LAYOUT(trzProject, 12, projectRows)
LAYOUT(trzConnection, 32, connectionRows)
LAYOUT(trzProcedure, 48, procedureRows)
LAYOUT(trzFunction, 44, functionRows)
LAYOUT(trzTrigger, 32, triggerRows)
LAYOUT(trzTable, 28, tableRows)
LAYOUT(trzView, 20, viewRows)

} // namespace velk
