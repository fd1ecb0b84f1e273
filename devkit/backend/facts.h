#pragma once

#include <cstdint>
#include <string>

namespace velk::devkit {

// The kinds of everything that has a handle. A folder's kind is one less than its objects' kind.
// clang-format off
enum Kind : int32_t {
    kindProject         = 5,
    kindConnection      = 6,
    kindProcedureFolder = 7,
    kindProcedure       = 8,
    kindFunctionFolder  = 9,
    kindFunction        = 10,
    kindTriggerFolder   = 11,
    kindTrigger         = 12,
    kindTableFolder     = 13,
    kindTable           = 14,
    kindViewFolder      = 15,
    kindView            = 16,
};
// clang-format on

inline constexpr int32_t folderKinds[] = {kindProcedureFolder, kindFunctionFolder, kindTriggerFolder, kindTableFolder,
                                          kindViewFolder};

constexpr bool isTableLike(int32_t folderKind)
{
    return folderKind == kindTableFolder || folderKind == kindViewFolder;
}

inline constexpr int32_t plainTable = 1; // a type of tables

// What is known of a database object of any kind; the fields that a kind does not have stay empty.
struct ObjectFacts {
    std::wstring key; // tells an object from its neighbours in the folder, for as long as the object lives
    std::wstring schema, name, specific, parameters, result, language, package;
    std::wstring tableSchema, tableName, tableSpace, comment, file;
    int32_t resultSets = 0;
    int32_t type = 0;
    bool dirty = false, canDebug = false, fenced = false;

    bool operator==(const ObjectFacts&) const = default;
};

// With its schema, where it has one.
inline std::wstring fullName(const ObjectFacts& facts)
{
    return facts.schema.empty() ? facts.name : facts.schema + L"." + facts.name;
}

struct ProjectFacts {
    std::wstring name, path;
};

struct ConnectionFacts {
    std::wstring database;
    bool connected = false;
    int32_t folders[std::size(folderKinds)]{}; // handles, in the order of folderKinds
};

} // namespace velk::devkit
