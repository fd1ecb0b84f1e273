#pragma once

#include "backend/calls.h"
#include "backend/fetch.h"
#include "backend/records.h"
#include "backend/texts.h"
#include "base/win32.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace velk::test {

// A fresh copy of the sample project in a folder of its own, the library with a journal there, and the product's own
// bridge as the caller. At the end the library is unloaded, so that every test begins with the same handles.
class SampleBackend : public testing::Test {
protected:
    SampleBackend();
    ~SampleBackend() override;

    std::wstring path(const std::wstring& name) const { return m_folder + L"\\" + name; }
    std::wstring project() const { return path(L"rz\\orders.rzv"); }
    void write(const std::wstring& name, const std::string& bytes) const;
    std::string read(const std::wstring& name) const;
    void erase(const std::wstring& name) const;
    // A statement on the sample's database, by another connection than the library's.
    void execute(const std::wstring& sql) const;
    // The first cell of a query's result.
    std::wstring value(const std::wstring& sql) const;

    void begin();                        // RZInitialize, and its notification taken out
    void open(const std::wstring& file); // RZProjectDoAccess as the caller does it; the notifications stay
    void beginSample();                  // both, and all notifications taken out

    // All that wait, as "type kind handle" with a text in place of a text's handle. The first waits for what the
    // library's own thread is doing, and for what that brings about.
    std::vector<std::wstring> notifications() const;
    std::vector<std::wstring> notificationsNow() const;
    // The library looks for changes every 50 milliseconds from now on.
    void watchOften();
    // Waits long enough for it to look again.
    std::vector<std::wstring> notificationsAfterAWhile() const;
    std::vector<std::wstring> journal() const;
    std::vector<std::wstring> breaches() const;

    std::vector<std::wstring> names(int32_t folder, int32_t kind) const;

private:
    std::wstring m_folder;
    DWORD m_watchInterval = 1000; // milliseconds
};

} // namespace velk::test
