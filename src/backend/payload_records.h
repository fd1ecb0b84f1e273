#pragma once

#include <cstdint>
#include <string>

namespace velk {

// What a notification says, and the payloads that it may name.

// One pending notification. lObjectHdl names an object, or the payload to fetch next.
struct trzNotify {
    int32_t lNotifyType = 0;
    int32_t lProjectHdl = 0;
    int32_t lConnectionHdl = 0;
    int32_t lObjectType = 0;
    int32_t lObjectHdl = 0;
};

// A message with the buttons to offer. lTextSz: capacity of strText in characters, after a call the length needed.
struct trzText {
    std::wstring strText{};
    int32_t lTextSz = 0;
    int32_t lTextType = 0;
    std::wstring strButtons{};
};

// SQL text for a range of an editor. strVSProject goes to the Backend as it stands; it has no room for an answer.
struct trzSQLText {
    std::wstring strVSProject{};
    std::wstring strVSFile{};
    int32_t lSelFromLine = 0;
    int32_t lSelFromColumn = 0;
    int32_t lSelToLine = 0;
    int32_t lSelToColumn = 0;
    std::wstring strText{};
    int32_t lTextSz = 0;
};

// Client code to insert into a file.
struct trzADOText {
    std::wstring strVSProject{};
    std::wstring strVSFile{};
    std::wstring strText{};
    int32_t lTextSz = 0;
};

// A connection to make in a data environment.
struct trzConnectionDE {
    std::wstring strVSProject{};
    std::wstring strDEName{};
    std::wstring strDEConnection{};
    std::wstring strConnectionString{};
};

// A command to make in a data environment. (bHasParemeters is how the Backend and the type library spell it.)
struct trzCommandDE {
    std::wstring strVSProject{};
    std::wstring strDEName{};
    std::wstring strDEConnection{};
    std::wstring strDECommand{};
    std::wstring strCommandText{};
    int32_t lCommandType = 0;
    bool bHasParemeters = false;
};

// One parameter of such a command.
struct trzParameterDE {
    std::wstring strName{};
    int32_t lMode = 0;
    int32_t lSQLType = 0;
    int32_t lSQLSize = 0;
    int32_t lSQLPrecision = 0;
    bool bBitData = false;
};

} // namespace velk
