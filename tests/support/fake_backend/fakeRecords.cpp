#include "support/fake_backend/fakeRecords.h"

#include "base/text.h"
#include "support/fake_backend/counted.h"

#include <algorithm>
#include <cstring>

namespace velk::test {
namespace {

int16_t flag(bool truth)
{
    return truth ? int16_t{-1} : int16_t{0};
}

// The text as far as it fits, and the length that all of it needs.
void writeLong(char* target, int32_t& size, const std::wstring& text)
{
    writeCounted(target, text);
    size = static_cast<int32_t>(toAnsi(text).size());
}

} // namespace

uint32_t roomOf(const char* counted)
{
    uint32_t length = 0;
    std::memcpy(&length, counted - sizeof length, sizeof length);
    return length;
}

void writeCounted(char* counted, const std::wstring& text)
{
    const std::string bytes = toAnsi(text);
    const size_t room = roomOf(counted);
    std::copy_n(bytes.begin(), std::min(room, bytes.size()), counted);
    if (bytes.size() < room)
        counted[bytes.size()] = '\0';
}

void write(wire::trzText& target, const trzText& source)
{
    writeLong(target.strText, target.lTextSz, source.strText);
    target.lTextType = source.lTextType;
    writeCounted(target.strButtons, source.strButtons);
}

// The project's name has no room in the record, so it stays as the caller gave it.
void write(wire::trzSQLText& target, const trzSQLText& source)
{
    writeCounted(target.strVSFile, source.strVSFile);
    target.lSelFromLine = source.lSelFromLine;
    target.lSelFromColumn = source.lSelFromColumn;
    target.lSelToLine = source.lSelToLine;
    target.lSelToColumn = source.lSelToColumn;
    writeLong(target.strText, target.lTextSz, source.strText);
}

void write(wire::trzADOText& target, const trzADOText& source)
{
    writeCounted(target.strVSProject, source.strVSProject);
    writeCounted(target.strVSFile, source.strVSFile);
    writeLong(target.strText, target.lTextSz, source.strText);
}

void write(wire::trzConnectionDE& target, const trzConnectionDE& source)
{
    writeCounted(target.strVSProject, source.strVSProject);
    writeCounted(target.strDEName, source.strDEName);
    writeCounted(target.strDEConnection, source.strDEConnection);
    writeCounted(target.strConnectionString, source.strConnectionString);
}

void write(wire::trzCommandDE& target, const trzCommandDE& source)
{
    writeCounted(target.strVSProject, source.strVSProject);
    writeCounted(target.strDEName, source.strDEName);
    writeCounted(target.strDEConnection, source.strDEConnection);
    writeCounted(target.strDECommand, source.strDECommand);
    writeCounted(target.strCommandText, source.strCommandText);
    target.lCommandType = source.lCommandType;
    target.bHasParemeters = flag(source.bHasParemeters);
}

void write(wire::trzProject& target, const trzProject& source)
{
    target.lHdl = source.lHdl;
    writeCounted(target.strName, source.strName);
    writeCounted(target.strPath, source.strPath);
}

void write(wire::trzConnection& target, const trzConnection& source)
{
    target.lHdl = source.lHdl;
    target.bConnected = flag(source.bConnected);
    writeCounted(target.strDatabase, source.strDatabase);
    target.lProceduresHdl = source.lProceduresHdl;
    target.lFunctionsHdl = source.lFunctionsHdl;
    target.lTriggersHdl = source.lTriggersHdl;
    target.lTablesHdl = source.lTablesHdl;
    target.lViewsHdl = source.lViewsHdl;
}

void write(wire::trzProcedure& target, const trzProcedure& source)
{
    target.lHdl = source.lHdl;
    target.bIsDirty = flag(source.bIsDirty);
    target.bCanDebug = flag(source.bCanDebug);
    writeCounted(target.strSchema, source.strSchema);
    writeCounted(target.strName, source.strName);
    writeCounted(target.strSpecific, source.strSpecific);
    writeCounted(target.strParameters, source.strParameters);
    writeCounted(target.strLanguage, source.strLanguage);
    writeCounted(target.strSQLPackage, source.strSQLPackage);
    target.lResultSets = source.lResultSets;
    target.bIsFenced = flag(source.bIsFenced);
    writeCounted(target.strComment, source.strComment);
    writeCounted(target.strFileName, source.strFileName);
}

void write(wire::trzFunction& target, const trzFunction& source)
{
    target.lHdl = source.lHdl;
    target.bIsDirty = flag(source.bIsDirty);
    target.bCanDebug = flag(source.bCanDebug);
    writeCounted(target.strSchema, source.strSchema);
    writeCounted(target.strName, source.strName);
    writeCounted(target.strSpecific, source.strSpecific);
    writeCounted(target.strParameters, source.strParameters);
    writeCounted(target.strResult, source.strResult);
    writeCounted(target.strLanguage, source.strLanguage);
    target.bIsFenced = source.bIsFenced;
    writeCounted(target.strComment, source.strComment);
    writeCounted(target.strFileName, source.strFileName);
}

void write(wire::trzTrigger& target, const trzTrigger& source)
{
    target.lHdl = source.lHdl;
    target.bIsDirty = flag(source.bIsDirty);
    target.bCanDebug = flag(source.bCanDebug);
    writeCounted(target.strSchema, source.strSchema);
    writeCounted(target.strName, source.strName);
    writeCounted(target.strTableSchema, source.strTableSchema);
    writeCounted(target.strTableName, source.strTableName);
    writeCounted(target.strComment, source.strComment);
    writeCounted(target.strFileName, source.strFileName);
}

void write(wire::trzTable& target, const trzTable& source)
{
    target.lHdl = source.lHdl;
    target.bIsDirty = flag(source.bIsDirty);
    writeCounted(target.strSchema, source.strSchema);
    writeCounted(target.strName, source.strName);
    writeCounted(target.strTableSpace, source.strTableSpace);
    target.lType = source.lType;
    writeCounted(target.strComment, source.strComment);
}

void write(wire::trzView& target, const trzView& source)
{
    target.lHdl = source.lHdl;
    target.bIsDirty = flag(source.bIsDirty);
    writeCounted(target.strSchema, source.strSchema);
    writeCounted(target.strName, source.strName);
    writeCounted(target.strComment, source.strComment);
}

} // namespace velk::test
