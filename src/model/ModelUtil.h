#pragma once

#include "com/com_ptr.h"

#include <cstdint>
#include <string>
#include <typelib/velkviadd.h>

namespace velk {

// The text range in an editor that code replaces: lines and columns as the tool counts them.
struct TextRange {
    int32_t startLine = 0;
    int32_t startColumn = 0;
    int32_t endLine = 0;
    int32_t endColumn = 0;
};

// The IDE's project model as the rest of the add-in asks for it. A value that shares the model object; a failure of
// the object, or a missing object, is thrown as Error.
class ModelUtil {
public:
    ModelUtil() = default;
    explicit ModelUtil(com_ptr<_ModelUtil> object) : m_object(std::move(object)) {}

    void insertClientCode(const std::wstring& clientCode, const std::wstring& projName,
                          const std::wstring& compName) const;
    void insertSQLCode(const std::wstring& sqlCode, const TextRange& range, const std::wstring& projName,
                       const std::wstring& compName) const;
    void addADOConnection(const std::wstring& conString, const std::wstring& conName, const std::wstring& dataenvName,
                          const std::wstring& projName) const;
    void AddADOCommand(int32_t commandType, const std::wstring& commandText, const std::wstring& commandName,
                       const std::wstring& conName, const std::wstring& dataenvName,
                       const std::wstring& projName) const;
    bool existsDataEnvObjs() const;
    std::wstring getActiveProjName() const;
    std::wstring getSelectedcompName() const;
    std::wstring GetDevLanguage() const;
    void saveRZFileName(const std::wstring& fileName) const;

private:
    _ModelUtil& object() const;
    void check(HRESULT result) const;
    com_ptr<_ModelUtil> m_object;
};

} // namespace velk
