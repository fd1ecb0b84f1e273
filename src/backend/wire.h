#pragma once

#include <cstdint>

// The records as they lie in memory during a call: the Backend was built against these offsets.
namespace velk::wire {

using Long = int32_t;
using Boolean = int16_t; // 0 or -1
using String = char*;    // behind a 32-bit byte length, before a NUL

struct trzNotify {
    Long lNotifyType, lProjectHdl, lConnectionHdl, lObjectType, lObjectHdl;
};

struct trzText {
    String strText;
    Long lTextSz, lTextType;
    String strButtons;
};

struct trzSQLText {
    String strVSProject, strVSFile;
    Long lSelFromLine, lSelFromColumn, lSelToLine, lSelToColumn;
    String strText;
    Long lTextSz;
};

struct trzADOText {
    String strVSProject, strVSFile, strText;
    Long lTextSz;
};

struct trzConnectionDE {
    String strVSProject, strDEName, strDEConnection, strConnectionString;
};

struct trzCommandDE {
    String strVSProject, strDEName, strDEConnection, strDECommand, strCommandText;
    Long lCommandType;
    Boolean bHasParemeters;
};

struct trzParameterDE {
    String strName;
    Long lMode, lSQLType, lSQLSize, lSQLPrecision;
    Boolean bBitData;
};

struct trzProject {
    Long lHdl;
    String strName, strPath;
};

struct trzConnection {
    Long lHdl;
    Boolean bConnected;
    String strDatabase;
    Long lProceduresHdl, lFunctionsHdl, lTriggersHdl, lTablesHdl, lViewsHdl;
};

struct trzProcedure {
    Long lHdl;
    Boolean bIsDirty, bCanDebug;
    String strSchema, strName, strSpecific, strParameters, strLanguage, strSQLPackage;
    Long lResultSets;
    Boolean bIsFenced;
    String strComment, strFileName;
};

struct trzFunction {
    Long lHdl;
    Boolean bIsDirty, bCanDebug;
    String strSchema, strName, strSpecific, strParameters, strResult, strLanguage;
    Long bIsFenced;
    String strComment, strFileName;
};

struct trzTrigger {
    Long lHdl;
    Boolean bIsDirty, bCanDebug;
    String strSchema, strName, strTableSchema, strTableName, strComment, strFileName;
};

struct trzTable {
    Long lHdl;
    Boolean bIsDirty;
    String strSchema, strName, strTableSpace;
    Long lType;
    String strComment;
};

struct trzView {
    Long lHdl;
    Boolean bIsDirty;
    String strSchema, strName, strComment;
};

} // namespace velk::wire
