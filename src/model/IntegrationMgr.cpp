#include "model/IntegrationMgr.h"

#include "base/error.h"
#include "com/bstr.h"
#include "com/com_boundary.h"
#include "com/string_arrays.h"

namespace velk {

// Not in the header, for the size of all the places that copy one.
IntegrationMgr::IntegrationMgr(const IntegrationMgr& other) noexcept = default;
IntegrationMgr& IntegrationMgr::operator=(const IntegrationMgr& other) noexcept = default;
IntegrationMgr::~IntegrationMgr() = default;

_IntegrationMgr& IntegrationMgr::manager() const
{
    if (!m_object)
        throw Error(errorObjectNotSet);
    return *m_object.get();
}

void IntegrationMgr::check(HRESULT result) const
{
    throwIfFailed(result, m_object.get(), __uuidof(_IntegrationMgr));
}

void IntegrationMgr::showDevView() const
{
    check(manager().showDevView());
}

void IntegrationMgr::setRZFileName(const std::wstring& rzFile) const
{
    bstr name(rzFile);
    check(manager().setRZFileName(name.ref()));
}

std::wstring IntegrationMgr::getRZFileName() const
{
    bstr name;
    check(manager().getRZFileName(name.put()));
    return name.text();
}

void IntegrationMgr::openRZProject() const
{
    check(manager().openRZProject());
}

std::vector<std::wstring> IntegrationMgr::getProjList() const
{
    text_array list;
    check(manager().getProjList(list.ref()));
    return list.texts();
}

std::vector<std::wstring> IntegrationMgr::getDataEnvList(const std::wstring& projName) const
{
    text_array list;
    bstr project(projName);
    check(manager().getDataEnvList(list.ref(), project.ref()));
    return list.texts();
}

std::vector<std::wstring> IntegrationMgr::getConnectionList(const std::wstring& dataenvName,
                                                            const std::wstring& projName) const
{
    text_array list;
    bstr dataEnvironment(dataenvName);
    bstr project(projName);
    check(manager().getConnectionList(list.ref(), dataEnvironment.ref(), project.ref()));
    return list.texts();
}

ModelUtil IntegrationMgr::getModel() const
{
    com_ptr<_ModelUtil> model;
    check(manager().get_getModel(model.put()));
    return ModelUtil(std::move(model));
}

int32_t IntegrationMgr::getIdeType() const
{
    long type = 0;
    check(manager().get_getIdeType(&type));
    return type;
}

void IntegrationMgr::minimizeVSAppWin() const
{
    check(manager().minimizeVSAppWin());
}

void IntegrationMgr::restoreVSAppWinState() const
{
    check(manager().restoreVSAppWinState());
}

} // namespace velk
