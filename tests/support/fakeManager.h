#pragma once

#include "com/bstr.h"
#include "com/com_object.h"
#include "com/string_arrays.h"

#include <functional>
#include <map>
#include <string>
#include <typelib/velkviadd.h>
#include <vector>

namespace velk::test {

using Lines = std::vector<std::wstring>;

// A project model that writes down what it is told and answers from what is set here.
class FakeModel : public ComObject<FakeModel, dual<_ModelUtil>> {
public:
    explicit FakeModel(Lines& journal) : m_journal(journal) {}
    HRESULT failWith = S_OK;
    bool hasDataEnvironment = false;
    std::wstring project;
    std::wstring component;
    std::function<void()> whileDataEnvironmentIsSought; // runs inside existsDataEnvObjs

    STDMETHODIMP insertClientCode(BSTR* code, BSTR* proj, BSTR* comp) noexcept override
    {
        return note(L"insertClientCode", {text(code), text(proj), text(comp)});
    }
    STDMETHODIMP insertSQLCode(BSTR* code, long* line, long* column, long* endLine, long* endColumn, BSTR* proj,
                               BSTR* comp) noexcept override
    {
        return note(L"insertSQLCode", {text(code), number(line), number(column), number(endLine), number(endColumn),
                                       text(proj), text(comp)});
    }
    STDMETHODIMP addADOConnection(BSTR* string, BSTR* name, BSTR* environment, BSTR* proj) noexcept override
    {
        return note(L"addADOConnection", {text(string), text(name), text(environment), text(proj)});
    }
    STDMETHODIMP AddADOCommand(long* type, BSTR* command, BSTR* name, BSTR* connection, BSTR* environment,
                               BSTR* proj) noexcept override
    {
        return note(L"AddADOCommand",
                    {number(type), text(command), text(name), text(connection), text(environment), text(proj)});
    }
    STDMETHODIMP existsDataEnvObjs(VARIANT_BOOL* exist) noexcept override
    {
        if (whileDataEnvironmentIsSought)
            whileDataEnvironmentIsSought();
        *exist = hasDataEnvironment ? VARIANT_TRUE : VARIANT_FALSE;
        return failWith;
    }
    STDMETHODIMP getProjList(SAFEARRAY**) noexcept override { return S_OK; }
    STDMETHODIMP getDataEnvList(SAFEARRAY**, BSTR*) noexcept override { return S_OK; }
    STDMETHODIMP getConnectionList(SAFEARRAY**, BSTR*, BSTR*) noexcept override { return S_OK; }
    STDMETHODIMP getActiveProjName(BSTR* name) noexcept override { return answer(name, project); }
    STDMETHODIMP getSelectedcompName(BSTR* name) noexcept override { return answer(name, component); }
    STDMETHODIMP GetDevLanguage(BSTR* language) noexcept override { return answer(language, L"3"); }
    STDMETHODIMP saveRZFileName(BSTR name) noexcept override
    {
        return note(L"saveRZFileName", {std::wstring(bstr::viewOf(name))});
    }

private:
    static std::wstring text(BSTR* value) { return std::wstring(bstr::viewOf(*value)); }
    static std::wstring number(long* value) { return std::to_wstring(*value); }
    static HRESULT answer(BSTR* target, const std::wstring& value)
    {
        *target = bstr(value).detach();
        return S_OK;
    }
    HRESULT note(const wchar_t* what, const std::vector<std::wstring>& arguments)
    {
        std::wstring line = std::wstring(what) + L"(";
        for (const std::wstring& argument : arguments)
            line += (line.back() == L'(' ? L"" : L", ") + argument;
        m_journal.push_back(line + L")");
        return failWith;
    }
    Lines& m_journal;
};

// A manager that writes down what it is asked for and answers from what is set here.
class FakeManager : public ComObject<FakeManager, dual<_IntegrationMgr>> {
    Lines& m_journal; // first: the model is made with it

public:
    explicit FakeManager(Lines& journal) : m_journal(journal) {}
    HRESULT failWith = S_OK;
    long ideType = 3;
    std::wstring rzFile = L"C:\\work\\rz\\orders.rzv";
    std::vector<std::wstring> projects;
    std::map<std::wstring, std::vector<std::wstring>> dataEnvironments; // by project
    std::map<std::wstring, std::vector<std::wstring>> connections;      // by "project/environment"
    com_ptr<FakeModel> model = makeObject<FakeModel>(m_journal);
    // Runs inside every request that is written down, before it answers.
    std::function<void(const std::wstring& request)> whileAsked;

    std::function<void()> onShowDevView;

    STDMETHODIMP showDevView() noexcept override
    {
        if (onShowDevView)
            onShowDevView();
        return note(L"showDevView");
    }
    STDMETHODIMP setRZFileName(BSTR* name) noexcept override
    {
        rzFile = bstr::viewOf(*name);
        return note(L"setRZFileName");
    }
    STDMETHODIMP getRZFileName(BSTR* name) noexcept override
    {
        *name = bstr(rzFile).detach();
        return note(L"getRZFileName");
    }
    std::function<void()> onOpenRZProject;
    STDMETHODIMP openRZProject() noexcept override
    {
        if (onOpenRZProject)
            onOpenRZProject();
        return note(L"openRZProject");
    }
    STDMETHODIMP getProjList(SAFEARRAY** list) noexcept override { return give(list, projects, L"getProjList"); }
    STDMETHODIMP getDataEnvList(SAFEARRAY** list, BSTR* project) noexcept override
    {
        return give(list, dataEnvironments[std::wstring(bstr::viewOf(*project))], L"getDataEnvList");
    }
    STDMETHODIMP getConnectionList(SAFEARRAY** list, BSTR* environment, BSTR* project) noexcept override
    {
        const std::wstring place =
            std::wstring(bstr::viewOf(*project)) + L"/" + std::wstring(bstr::viewOf(*environment));
        return give(list, connections[place], L"getConnectionList");
    }
    STDMETHODIMP get_getModel(_ModelUtil** given) noexcept override
    {
        com_ptr<_ModelUtil>(model.get()).copyTo(given);
        return note(L"getModel");
    }
    STDMETHODIMP get_getIdeType(long* type) noexcept override
    {
        *type = ideType;
        return S_OK;
    }
    STDMETHODIMP minimizeVSAppWin() noexcept override { return note(L"minimizeVSAppWin"); }
    STDMETHODIMP restoreVSAppWinState() noexcept override { return note(L"restoreVSAppWinState"); }

private:
    HRESULT give(SAFEARRAY** list, const std::vector<std::wstring>& texts, const wchar_t* what)
    {
        if (*list)
            SafeArrayDestroy(*list);
        *list = arrayOf(texts);
        return note(what);
    }
    HRESULT note(const wchar_t* what) noexcept
    {
        m_journal.push_back(what);
        if (const auto asked = whileAsked) // a copy: it may take itself away
            asked(what);
        return failWith;
    }
};

} // namespace velk::test
