#include "backend/fields.h"

#include <algorithm>
#include <type_traits>

namespace velk {
namespace {

template <class Member>
consteval FieldKind kindOf()
{
    if constexpr (std::is_same_v<Member, int32_t>)
        return FieldKind::number;
    else if constexpr (std::is_same_v<Member, bool>)
        return FieldKind::flag;
    else {
        static_assert(std::is_same_v<Member, std::wstring>);
        return FieldKind::text;
    }
}

// Bytes in the Backend's record, where a field also stands at a multiple of them: a number, the address of a counted
// string, and a truth value of 16 bits (0 or -1).
consteval size_t wireWidth(FieldKind kind)
{
    return kind == FieldKind::flag ? 2 : 4;
}

consteval size_t upTo(size_t multiple, size_t offset)
{
    return (offset + multiple - 1) / multiple * multiple;
}

// Place and width that the Backend expects are written out in the row; a member of another type does not compile.
consteval FieldRow row(const char* name, FieldKind kind, size_t member, size_t offset, size_t width, int32_t capacity)
{
    if (width != wireWidth(kind))
        throw "the member's type is not what the Backend expects";
    return {kind, static_cast<uint16_t>(member), static_cast<uint16_t>(offset), capacity, name};
}

// The size of the Backend's record, laid out from its fields as its compiler did. A layout that misses an expected
// offset does not compile.
consteval size_t wireSize(std::span<const FieldRow> rows)
{
    size_t end = 0;
    for (const FieldRow& field : rows) {
        const size_t width = wireWidth(field.kind);
        if (field.wire != upTo(width, end))
            throw "the field does not stand where the Backend expects it";
        end = field.wire + width;
    }
    return upTo(4, end);
}

consteval size_t texts(std::span<const FieldRow> rows)
{
    return static_cast<size_t>(
        std::count_if(rows.begin(), rows.end(), [](const FieldRow& field) { return field.kind == FieldKind::text; }));
}

struct AnyValue {
    template <class Value>
    operator Value() const;
};

// How many members a record has: as many as it can be made from values.
template <class Record, class... Values>
consteval size_t memberCount()
{
    if constexpr (requires { Record{Values()..., AnyValue()}; })
        return memberCount<Record, Values..., AnyValue>();
    else
        return sizeof...(Values);
}

// Whether every member has a row, in the members' order.
template <class Record>
consteval bool isComplete(std::span<const FieldRow> rows)
{
    return rows.size() == memberCount<Record>() &&
           std::is_sorted(rows.begin(), rows.end(),
                          [](const FieldRow& one, const FieldRow& other) { return one.member <= other.member; });
}

#define FIELD(record, name, offset, width, capacity)                                                                   \
    row(#name, kindOf<decltype(record::name)>(), offsetof(record, name), offset, width, capacity)

#define LAYOUT(record, rows)                                                                                           \
    static_assert(std::is_standard_layout_v<record> && isComplete<record>(rows));                                      \
    static_assert(wireSize(rows) <= largestWireRecord && texts(rows) <= mostTextsInRecord);                            \
    template <>                                                                                                        \
    const RecordLayout& layoutOf<record>() noexcept                                                                    \
    {                                                                                                                  \
        static constexpr RecordLayout layout{rows, wireSize(rows)};                                                    \
        return layout;                                                                                                 \
    }

// clang-format off
// record, member, offset and width in the Backend's record (bytes), preset
constexpr FieldRow notifyRows[] = {
    FIELD(trzNotify,       lNotifyType,          0, 4,     0),
    FIELD(trzNotify,       lProjectHdl,          4, 4,     0),
    FIELD(trzNotify,       lConnectionHdl,       8, 4,     0),
    FIELD(trzNotify,       lObjectType,         12, 4,     0),
    FIELD(trzNotify,       lObjectHdl,          16, 4,     0),
};
constexpr FieldRow textRows[] = {
    FIELD(trzText,         strText,              0, 4,  4096),
    FIELD(trzText,         lTextSz,              4, 4,  4096),
    FIELD(trzText,         lTextType,            8, 4,     0),
    FIELD(trzText,         strButtons,          12, 4,   256),
};
constexpr FieldRow sqlTextRows[] = {
    FIELD(trzSQLText,      strVSProject,         0, 4,     0),
    FIELD(trzSQLText,      strVSFile,            4, 4,  1024),
    FIELD(trzSQLText,      lSelFromLine,         8, 4,     0),
    FIELD(trzSQLText,      lSelFromColumn,      12, 4,     0),
    FIELD(trzSQLText,      lSelToLine,          16, 4,     0),
    FIELD(trzSQLText,      lSelToColumn,        20, 4,     0),
    FIELD(trzSQLText,      strText,             24, 4,  4096),
    FIELD(trzSQLText,      lTextSz,             28, 4,  4096),
};
constexpr FieldRow adoTextRows[] = {
    FIELD(trzADOText,      strVSProject,         0, 4,  1024),
    FIELD(trzADOText,      strVSFile,            4, 4,  1024),
    FIELD(trzADOText,      strText,              8, 4, 65536),
    FIELD(trzADOText,      lTextSz,             12, 4, 65536),
};
constexpr FieldRow connectionDeRows[] = {
    FIELD(trzConnectionDE, strVSProject,         0, 4,   256),
    FIELD(trzConnectionDE, strDEName,            4, 4,   256),
    FIELD(trzConnectionDE, strDEConnection,      8, 4,   256),
    FIELD(trzConnectionDE, strConnectionString, 12, 4,  1024),
};
constexpr FieldRow commandDeRows[] = {
    FIELD(trzCommandDE,    strVSProject,         0, 4,   256),
    FIELD(trzCommandDE,    strDEName,            4, 4,   256),
    FIELD(trzCommandDE,    strDEConnection,      8, 4,   256),
    FIELD(trzCommandDE,    strDECommand,        12, 4,   256),
    FIELD(trzCommandDE,    strCommandText,      16, 4,  4096),
    FIELD(trzCommandDE,    lCommandType,        20, 4,     0),
    FIELD(trzCommandDE,    bHasParemeters,      24, 2,     0),
};
constexpr FieldRow parameterDeRows[] = {
    FIELD(trzParameterDE,  strName,              0, 4,     0),
    FIELD(trzParameterDE,  lMode,                4, 4,     0),
    FIELD(trzParameterDE,  lSQLType,             8, 4,     0),
    FIELD(trzParameterDE,  lSQLSize,            12, 4,     0),
    FIELD(trzParameterDE,  lSQLPrecision,       16, 4,     0),
    FIELD(trzParameterDE,  bBitData,            20, 2,     0),
};
constexpr FieldRow projectRows[] = {
    FIELD(trzProject,      lHdl,                 0, 4,     0),
    FIELD(trzProject,      strName,              4, 4,   256),
    FIELD(trzProject,      strPath,              8, 4,  1024),
};
constexpr FieldRow connectionRows[] = {
    FIELD(trzConnection,   lHdl,                 0, 4,     0),
    FIELD(trzConnection,   bConnected,           4, 2,     0),
    FIELD(trzConnection,   strDatabase,          8, 4,   256),
    FIELD(trzConnection,   lProceduresHdl,      12, 4,     0),
    FIELD(trzConnection,   lFunctionsHdl,       16, 4,     0),
    FIELD(trzConnection,   lTriggersHdl,        20, 4,     0),
    FIELD(trzConnection,   lTablesHdl,          24, 4,     0),
    FIELD(trzConnection,   lViewsHdl,           28, 4,     0),
};
constexpr FieldRow procedureRows[] = {
    FIELD(trzProcedure,    lHdl,                 0, 4,     0),
    FIELD(trzProcedure,    bIsDirty,             4, 2,     0),
    FIELD(trzProcedure,    bCanDebug,            6, 2,     0),
    FIELD(trzProcedure,    strSchema,            8, 4,   256),
    FIELD(trzProcedure,    strName,             12, 4,  1024),
    FIELD(trzProcedure,    strSpecific,         16, 4,  1024),
    FIELD(trzProcedure,    strParameters,       20, 4,  1024),
    FIELD(trzProcedure,    strLanguage,         24, 4,   256),
    FIELD(trzProcedure,    strSQLPackage,       28, 4,   256),
    FIELD(trzProcedure,    lResultSets,         32, 4,     0),
    FIELD(trzProcedure,    bIsFenced,           36, 2,     0),
    FIELD(trzProcedure,    strComment,          40, 4,   256),
    FIELD(trzProcedure,    strFileName,         44, 4,  1024),
};
constexpr FieldRow functionRows[] = {
    FIELD(trzFunction,     lHdl,                 0, 4,     0),
    FIELD(trzFunction,     bIsDirty,             4, 2,     0),
    FIELD(trzFunction,     bCanDebug,            6, 2,     0),
    FIELD(trzFunction,     strSchema,            8, 4,   256),
    FIELD(trzFunction,     strName,             12, 4,   256),
    FIELD(trzFunction,     strSpecific,         16, 4,  1024),
    FIELD(trzFunction,     strParameters,       20, 4,  1024),
    FIELD(trzFunction,     strResult,           24, 4,  1024),
    FIELD(trzFunction,     strLanguage,         28, 4,   256),
    FIELD(trzFunction,     bIsFenced,           32, 4,     0),
    FIELD(trzFunction,     strComment,          36, 4,   256),
    FIELD(trzFunction,     strFileName,         40, 4,  1024),
};
constexpr FieldRow triggerRows[] = {
    FIELD(trzTrigger,      lHdl,                 0, 4,     0),
    FIELD(trzTrigger,      bIsDirty,             4, 2,     0),
    FIELD(trzTrigger,      bCanDebug,            6, 2,     0),
    FIELD(trzTrigger,      strSchema,            8, 4,   256),
    FIELD(trzTrigger,      strName,             12, 4,   256),
    FIELD(trzTrigger,      strTableSchema,      16, 4,   256),
    FIELD(trzTrigger,      strTableName,        20, 4,   256),
    FIELD(trzTrigger,      strComment,          24, 4,   256),
    FIELD(trzTrigger,      strFileName,         28, 4,  1024),
};
constexpr FieldRow tableRows[] = {
    FIELD(trzTable,        lHdl,                 0, 4,     0),
    FIELD(trzTable,        bIsDirty,             4, 2,     0),
    FIELD(trzTable,        strSchema,            8, 4,   256),
    FIELD(trzTable,        strName,             12, 4,   256),
    FIELD(trzTable,        strTableSpace,       16, 4,   256),
    FIELD(trzTable,        lType,               20, 4,     0),
    FIELD(trzTable,        strComment,          24, 4,   256),
};
constexpr FieldRow viewRows[] = {
    FIELD(trzView,         lHdl,                 0, 4,     0),
    FIELD(trzView,         bIsDirty,             4, 2,     0),
    FIELD(trzView,         strSchema,            8, 4,   256),
    FIELD(trzView,         strName,             12, 4,   256),
    FIELD(trzView,         strComment,          16, 4,   256),
};
// clang-format on

} // namespace

LAYOUT(trzNotify, notifyRows)
LAYOUT(trzText, textRows)
LAYOUT(trzSQLText, sqlTextRows)
LAYOUT(trzADOText, adoTextRows)
LAYOUT(trzConnectionDE, connectionDeRows)
LAYOUT(trzCommandDE, commandDeRows)
LAYOUT(trzParameterDE, parameterDeRows)
LAYOUT(trzProject, projectRows)
LAYOUT(trzConnection, connectionRows)
LAYOUT(trzProcedure, procedureRows)
LAYOUT(trzFunction, functionRows)
LAYOUT(trzTrigger, triggerRows)
LAYOUT(trzTable, tableRows)
LAYOUT(trzView, viewRows)

} // namespace velk
