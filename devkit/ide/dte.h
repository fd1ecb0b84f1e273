#pragma once

#include "devkit/ide/automatedWindows.h"
#include "devkit/ide/commandBars.h"

namespace velk::devkit {

// The open project of the IDE: a file path, or none.
class Solution : public Automated<Solution> {
public:
    Solution() : Automated(L"Solution") {}
    static std::span<const Member<Solution>> members();
    void open(const std::wstring& path);
    void close();
    const std::wstring& fullName() const { return m_fullName; }

    std::function<void()> onChange;

private:
    std::wstring m_fullName;
};

// Where add-ins get their event sources.
class Events : public Automated<Events> {
public:
    Events() : Automated(L"Events") {}
    static std::span<const Member<Events>> members();
};

// An add-in that is known to the IDE.
class AddIn : public Automated<AddIn> {
public:
    explicit AddIn(std::wstring name) : Automated(L"AddIn"), progId(std::move(name)) {}
    static std::span<const Member<AddIn>> members();
    std::wstring label() const override { return L"AddIn \"" + progId + L"\""; }
    void changed() const {}

    const std::wstring progId;
    std::wstring friendlyName;
    bool connected = false;
};

class AddIns : public Automated<AddIns> {
public:
    AddIns() : Automated(L"AddIns") {}
    static std::span<const Member<AddIns>> members();
    std::vector<com_ptr<AddIn>> all;
};

// The IDE's root object.
class Dte : public Automated<Dte> {
public:
    Dte() : Automated(L"DTE") {}
    static std::span<const Member<Dte>> members();

    com_ptr<AutomatedWindow> mainWindow; // set by the shell
    const com_ptr<AutomatedWindows> windows = makeObject<AutomatedWindows>();
    const com_ptr<Solution> solution = makeObject<Solution>();
    const com_ptr<Events> events = makeObject<Events>();
    const com_ptr<CommandBars> bars = makeObject<CommandBars>();
    const com_ptr<AddIns> addIns = makeObject<AddIns>();
};

} // namespace velk::devkit
