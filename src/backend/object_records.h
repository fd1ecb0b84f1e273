#pragma once

#include <cstdint>
#include <string>

namespace velk {

// The project and what hangs below it.

struct trzProject {
    int32_t lHdl = 0;
    std::wstring strName{};
    std::wstring strPath{};
};

// A database connection with the handles of its object folders.
struct trzConnection {
    int32_t lHdl = 0;
    bool bConnected = false;
    std::wstring strDatabase{};
    int32_t lProceduresHdl = 0;
    int32_t lFunctionsHdl = 0;
    int32_t lTriggersHdl = 0;
    int32_t lTablesHdl = 0;
    int32_t lViewsHdl = 0;
};

struct trzProcedure {
    int32_t lHdl = 0;
    bool bIsDirty = false;
    bool bCanDebug = false;
    std::wstring strSchema{};
    std::wstring strName{};
    std::wstring strSpecific{};
    std::wstring strParameters{};
    std::wstring strLanguage{};
    std::wstring strSQLPackage{};
    int32_t lResultSets = 0;
    bool bIsFenced = false;
    std::wstring strComment{};
    std::wstring strFileName{};
};

// A user-defined function. Its bIsFenced is a whole number (0 or not), unlike a procedure's.
struct trzFunction {
    int32_t lHdl = 0;
    bool bIsDirty = false;
    bool bCanDebug = false;
    std::wstring strSchema{};
    std::wstring strName{};
    std::wstring strSpecific{};
    std::wstring strParameters{};
    std::wstring strResult{};
    std::wstring strLanguage{};
    int32_t bIsFenced = 0;
    std::wstring strComment{};
    std::wstring strFileName{};
};

struct trzTrigger {
    int32_t lHdl = 0;
    bool bIsDirty = false;
    bool bCanDebug = false;
    std::wstring strSchema{};
    std::wstring strName{};
    std::wstring strTableSchema{};
    std::wstring strTableName{};
    std::wstring strComment{};
    std::wstring strFileName{};
};

struct trzTable {
    int32_t lHdl = 0;
    bool bIsDirty = false;
    std::wstring strSchema{};
    std::wstring strName{};
    std::wstring strTableSpace{};
    int32_t lType = 0;
    std::wstring strComment{};
};

struct trzView {
    int32_t lHdl = 0;
    bool bIsDirty = false;
    std::wstring strSchema{};
    std::wstring strName{};
    std::wstring strComment{};
};

} // namespace velk
