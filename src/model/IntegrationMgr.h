#pragma once

#include "base/session.h"
#include "com/com_ptr.h"
#include "model/ModelUtil.h"

#include <cstdint>
#include <string>
#include <typelib/velkviadd.h>
#include <vector>

namespace velk {

// What the IDE type tells about the host. The menus and the project file's storage depend on it.
inline constexpr int32_t ideTypeVisualInterDev = 3;

// What the add-in's windows and the notification pump may ask of the IDE. A value that shares the manager object; a
// failure of the manager, or a missing manager, is thrown as Error.
class IntegrationMgr {
public:
    IntegrationMgr() = default;
    explicit IntegrationMgr(com_ptr<_IntegrationMgr> object, Session session = {})
        : m_object(std::move(object)), m_session(std::move(session))
    {
    }
    IntegrationMgr(const IntegrationMgr& other) noexcept;
    IntegrationMgr& operator=(const IntegrationMgr& other) noexcept;
    ~IntegrationMgr();
    explicit operator bool() const noexcept { return static_cast<bool>(m_object); }
    const com_ptr<_IntegrationMgr>& object() const noexcept { return m_object; }
    // The session that the manager was given for: each of the requests below may end it.
    const Session& session() const noexcept { return m_session; }

    void showDevView() const;
    void setRZFileName(const std::wstring& rzFile) const;
    std::wstring getRZFileName() const;
    void openRZProject() const;
    std::vector<std::wstring> getProjList() const;
    std::vector<std::wstring> getDataEnvList(const std::wstring& projName) const;
    std::vector<std::wstring> getConnectionList(const std::wstring& dataenvName, const std::wstring& projName) const;
    ModelUtil getModel() const;
    int32_t getIdeType() const;
    void minimizeVSAppWin() const;
    void restoreVSAppWinState() const;

private:
    _IntegrationMgr& manager() const;
    void check(HRESULT result) const;
    com_ptr<_IntegrationMgr> m_object;
    Session m_session = Session::none();
};

} // namespace velk
