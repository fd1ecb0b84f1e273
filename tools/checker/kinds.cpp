#include "checker/kinds.h"

#include <iterator>

namespace velk::check {
namespace {

template <class Record>
struct NameOf;
#define RECORD_NAME(record)                                                                                            \
    template <>                                                                                                        \
    struct NameOf<record> {                                                                                            \
        static constexpr const char* name = #record;                                                                   \
    };
RECORD_NAME(trzText)
RECORD_NAME(trzSQLText)
RECORD_NAME(trzADOText)
RECORD_NAME(trzConnectionDE)
RECORD_NAME(trzCommandDE)
RECORD_NAME(trzProject)
RECORD_NAME(trzConnection)
RECORD_NAME(trzProcedure)
RECORD_NAME(trzFunction)
RECORD_NAME(trzTrigger)
RECORD_NAME(trzTable)
RECORD_NAME(trzView)
#undef RECORD_NAME

template <class Record>
WireRecord made()
{
    return WireRecord::of<Record>(NameOf<Record>::name);
}

#define FOLDER(kind, name, field, record)                                                                              \
    {kind,        Fn::RZ##name##EnumBegin, Fn::RZ##name##EnumNext, Fn::RZ##name##EnumEnd, Fn::RZ##name##Get, field,    \
     made<record>}

// clang-format off
constexpr FolderKind folders[] = {
    FOLDER( 7, Procedure, "lProceduresHdl", trzProcedure),
    FOLDER( 9, Function,  "lFunctionsHdl",  trzFunction),
    FOLDER(11, Trigger,   "lTriggersHdl",   trzTrigger),
    FOLDER(13, Table,     "lTablesHdl",     trzTable),
    FOLDER(15, View,      "lViewsHdl",      trzView),
};

struct KindFetch { int32_t kind; Fetch fetch; };
constexpr KindFetch kinds[] = {
    { 5, {Fn::RZProjectGet,    made<trzProject>}},
    { 6, {Fn::RZConnectionGet, made<trzConnection>}},
    { 8, {Fn::RZProcedureGet,  made<trzProcedure>}},
    {10, {Fn::RZFunctionGet,   made<trzFunction>}},
    {12, {Fn::RZTriggerGet,    made<trzTrigger>}},
    {14, {Fn::RZTableGet,      made<trzTable>}},
    {16, {Fn::RZViewGet,       made<trzView>}},
};
constexpr KindFetch types[] = {
    { 2, {Fn::RZGetText,         made<trzText>}},
    { 3, {Fn::RZGetSQLText,      made<trzSQLText>}},
    { 4, {Fn::RZGetADOText,      made<trzADOText>}},
    { 9, {Fn::RZConnectionGetDE, made<trzConnectionDE>}},
    {10, {Fn::RZCommandGetDE,    made<trzCommandDE>}},
};
// clang-format on
static_assert(std::size(folders) == folderKindCount);

const Fetch* found(std::span<const KindFetch> rows, int32_t number) noexcept
{
    for (const KindFetch& row : rows)
        if (row.kind == number)
            return &row.fetch;
    return nullptr;
}

} // namespace

std::span<const FolderKind> folderKinds() noexcept
{
    return folders;
}

const FolderKind& folderKindOf(int32_t kind) noexcept
{
    return folders[static_cast<size_t>(kind - kindFirstFolder) / 2];
}

const Fetch* fetchOfKind(int32_t kind) noexcept
{
    return found(kinds, kind);
}

const Fetch* fetchOfType(int32_t type) noexcept
{
    return found(types, type);
}

} // namespace velk::check
