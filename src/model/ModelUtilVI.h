#pragma once

#include "com/com_object.h"

#include <string>
#include <typelib/velkviadd.h>

namespace velk {

// The project model's operations as the interface alone has them: each does nothing and gives the empty value.
class ModelOperations : public dual<_ModelUtil> {
public:
    STDMETHODIMP insertClientCode(BSTR* clientCode, BSTR* projName, BSTR* compName) noexcept override;
    STDMETHODIMP insertSQLCode(BSTR* sqlCode, long* startLine, long* startCol, long* endLine, long* endCol,
                               BSTR* projName, BSTR* compName) noexcept override;
    STDMETHODIMP addADOConnection(BSTR* conString, BSTR* conName, BSTR* dataenvName, BSTR* projName) noexcept override;
    STDMETHODIMP AddADOCommand(long* commandType, BSTR* commandText, BSTR* commandName, BSTR* conName,
                               BSTR* dataenvName, BSTR* projName) noexcept override;
    STDMETHODIMP existsDataEnvObjs(VARIANT_BOOL* exist) noexcept override;
    STDMETHODIMP getProjList(SAFEARRAY** projList) noexcept override;
    STDMETHODIMP getDataEnvList(SAFEARRAY** dataEnvList, BSTR* projName) noexcept override;
    STDMETHODIMP getConnectionList(SAFEARRAY** conList, BSTR* dataenvName, BSTR* projName) noexcept override;
    STDMETHODIMP getActiveProjName(BSTR* name) noexcept override;
    STDMETHODIMP getSelectedcompName(BSTR* name) noexcept override;
    STDMETHODIMP GetDevLanguage(BSTR* language) noexcept override;
    STDMETHODIMP saveRZFileName(BSTR fileName) noexcept override;
};

// The class "ModelUtil" as it can be created: the empty model.
class EmptyModelUtil : public ComObject<EmptyModelUtil, ModelOperations> {};

// The model of Visual InterDev. The tool's requests to insert code or to make data-environment objects are accepted
// without effect, on purpose: this IDE has no place for them. Only the binding to the IDE does real work.
class ModelUtilVI : public ComObject<ModelUtilVI, dual<_ModelUtilVI>, ModelOperations> {
public:
    // Binds the IDE and looks for its status window, the first window of type 5; there may be none.
    STDMETHODIMP putref_VIInstance(IDispatch* instance) noexcept override;
    STDMETHODIMP get_VIInstance(IDispatch** instance) noexcept override;
    STDMETHODIMP ModelUtil_saveRZFileName(BSTR fileName) noexcept override;
    // Types a text into the status window, or into whatever window has the focus.
    STDMETHODIMP printToFocusedWindow(BSTR* strText, VARIANT_BOOL* toStatusWin) noexcept override;

    STDMETHODIMP GetDevLanguage(BSTR* language) noexcept override;
    STDMETHODIMP saveRZFileName(BSTR fileName) noexcept override;

private:
    void findStatusWindow();

    com_ptr<IDispatch> m_instance;
    com_ptr<IDispatch> m_statusWindow;
};

} // namespace velk
