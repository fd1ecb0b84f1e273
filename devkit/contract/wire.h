#pragma once

#include <cstdint>

// The Backend's side of the records, declared on its own: what the bridge and its other side agree on has been
// written down twice. Every field stands at a multiple of its width; holes are spelled out.
namespace velk::devkit::wire {

#pragma pack(push, 1)

struct trzNotify {
    int32_t lNotifyType;
    int32_t lProjectHdl;
    int32_t lConnectionHdl;
    int32_t lObjectType;
    int32_t lObjectHdl;
};

struct trzText {
    char* strText;
    int32_t lTextSz;
    int32_t lTextType;
    char* strButtons;
};

struct trzSQLText {
    char* strVSProject;
    char* strVSFile;
    int32_t lSelFromLine;
    int32_t lSelFromColumn;
    int32_t lSelToLine;
    int32_t lSelToColumn;
    char* strText;
    int32_t lTextSz;
};

struct trzADOText {
    char* strVSProject;
    char* strVSFile;
    char* strText;
    int32_t lTextSz;
};

struct trzConnectionDE {
    char* strVSProject;
    char* strDEName;
    char* strDEConnection;
    char* strConnectionString;
};

struct trzCommandDE {
    char* strVSProject;
    char* strDEName;
    char* strDEConnection;
    char* strDECommand;
    char* strCommandText;
    int32_t lCommandType;
    int16_t bHasParemeters;
    int16_t hole;
};

struct trzParameterDE {
    char* strName;
    int32_t lMode;
    int32_t lSQLType;
    int32_t lSQLSize;
    int32_t lSQLPrecision;
    int16_t bBitData;
    int16_t hole;
};

struct trzProject {
    int32_t lHdl;
    char* strName;
    char* strPath;
};

struct trzConnection {
    int32_t lHdl;
    int16_t bConnected;
    int16_t hole;
    char* strDatabase;
    int32_t lProceduresHdl;
    int32_t lFunctionsHdl;
    int32_t lTriggersHdl;
    int32_t lTablesHdl;
    int32_t lViewsHdl;
};

struct trzProcedure {
    int32_t lHdl;
    int16_t bIsDirty;
    int16_t bCanDebug;
    char* strSchema;
    char* strName;
    char* strSpecific;
    char* strParameters;
    char* strLanguage;
    char* strSQLPackage;
    int32_t lResultSets;
    int16_t bIsFenced;
    int16_t hole;
    char* strComment;
    char* strFileName;
};

struct trzFunction {
    int32_t lHdl;
    int16_t bIsDirty;
    int16_t bCanDebug;
    char* strSchema;
    char* strName;
    char* strSpecific;
    char* strParameters;
    char* strResult;
    char* strLanguage;
    int32_t bIsFenced;
    char* strComment;
    char* strFileName;
};

struct trzTrigger {
    int32_t lHdl;
    int16_t bIsDirty;
    int16_t bCanDebug;
    char* strSchema;
    char* strName;
    char* strTableSchema;
    char* strTableName;
    char* strComment;
    char* strFileName;
};

struct trzTable {
    int32_t lHdl;
    int16_t bIsDirty;
    int16_t hole;
    char* strSchema;
    char* strName;
    char* strTableSpace;
    int32_t lType;
    char* strComment;
};

struct trzView {
    int32_t lHdl;
    int16_t bIsDirty;
    int16_t hole;
    char* strSchema;
    char* strName;
    char* strComment;
};

#pragma pack(pop)

// clang-format off
static_assert(sizeof(trzNotify)       == 20);
static_assert(sizeof(trzText)         == 16);
static_assert(sizeof(trzSQLText)      == 32);
static_assert(sizeof(trzADOText)      == 16);
static_assert(sizeof(trzConnectionDE) == 16);
static_assert(sizeof(trzCommandDE)    == 28);
static_assert(sizeof(trzParameterDE)  == 24);
static_assert(sizeof(trzProject)      == 12);
static_assert(sizeof(trzConnection)   == 32);
static_assert(sizeof(trzProcedure)    == 48);
static_assert(sizeof(trzFunction)     == 44);
static_assert(sizeof(trzTrigger)      == 32);
static_assert(sizeof(trzTable)        == 28);
static_assert(sizeof(trzView)         == 20);
// clang-format on

} // namespace velk::devkit::wire
