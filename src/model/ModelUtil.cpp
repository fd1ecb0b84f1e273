#include "model/ModelUtil.h"

#include "base/error.h"
#include "com/bstr.h"
#include "com/com_boundary.h"

namespace velk {

_ModelUtil& ModelUtil::object() const
{
    if (!m_object)
        throw Error(errorObjectNotSet);
    return *m_object.get();
}

void ModelUtil::check(HRESULT result) const
{
    throwIfFailed(result, m_object.get(), __uuidof(_ModelUtil));
}

void ModelUtil::insertClientCode(const std::wstring& clientCode, const std::wstring& projName,
                                 const std::wstring& compName) const
{
    bstr code(clientCode);
    bstr project(projName);
    bstr component(compName);
    check(object().insertClientCode(code.ref(), project.ref(), component.ref()));
}

void ModelUtil::insertSQLCode(const std::wstring& sqlCode, const TextRange& range, const std::wstring& projName,
                              const std::wstring& compName) const
{
    bstr code(sqlCode);
    bstr project(projName);
    bstr component(compName);
    long startLine = range.startLine;
    long startColumn = range.startColumn;
    long endLine = range.endLine;
    long endColumn = range.endColumn;
    check(object().insertSQLCode(code.ref(), &startLine, &startColumn, &endLine, &endColumn, project.ref(),
                                 component.ref()));
}

void ModelUtil::addADOConnection(const std::wstring& conString, const std::wstring& conName,
                                 const std::wstring& dataenvName, const std::wstring& projName) const
{
    bstr connectionString(conString);
    bstr connection(conName);
    bstr dataEnvironment(dataenvName);
    bstr project(projName);
    check(object().addADOConnection(connectionString.ref(), connection.ref(), dataEnvironment.ref(), project.ref()));
}

void ModelUtil::AddADOCommand(int32_t commandType, const std::wstring& commandText, const std::wstring& commandName,
                              const std::wstring& conName, const std::wstring& dataenvName,
                              const std::wstring& projName) const
{
    long type = commandType;
    bstr text(commandText);
    bstr name(commandName);
    bstr connection(conName);
    bstr dataEnvironment(dataenvName);
    bstr project(projName);
    check(
        object().AddADOCommand(&type, text.ref(), name.ref(), connection.ref(), dataEnvironment.ref(), project.ref()));
}

bool ModelUtil::existsDataEnvObjs() const
{
    VARIANT_BOOL exist = VARIANT_FALSE;
    check(object().existsDataEnvObjs(&exist));
    return exist != VARIANT_FALSE;
}

std::wstring ModelUtil::getActiveProjName() const
{
    bstr name;
    check(object().getActiveProjName(name.put()));
    return name.text();
}

std::wstring ModelUtil::getSelectedcompName() const
{
    bstr name;
    check(object().getSelectedcompName(name.put()));
    return name.text();
}

std::wstring ModelUtil::GetDevLanguage() const
{
    bstr language;
    check(object().GetDevLanguage(language.put()));
    return language.text();
}

void ModelUtil::saveRZFileName(const std::wstring& fileName) const
{
    const bstr name(fileName);
    check(object().saveRZFileName(name.get()));
}

} // namespace velk
