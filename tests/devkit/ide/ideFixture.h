#pragma once

#include "com/automation.h"
#include "devkit/ide/recorder.h"
#include "devkit/ide/shell.h"

#include <gmock/gmock.h>

namespace velk::devkit {

// The IDE without its looks, and what an add-in says to it.
class IdeFixture : public testing::Test {
protected:
    IdeFixture()
    {
        recorder().clear();
        recorder().setFailing(L"");
        recorder().setMissing(L"");
    }
    ~IdeFixture() override
    {
        recorder().setFailing(L"");
        recorder().setMissing(L"");
    }

    com_ptr<IDispatch> bars() { return automation::getObject(root, L"CommandBars"); }
    com_ptr<IDispatch> bar(int16_t number) { return automation::getObject(bars(), L"Item", {variant(number)}); }
    com_ptr<IDispatch> addButton()
    {
        return automation::call(automation::getObject(bar(13), L"Controls"), L"Add", {variant(1)}).asObject();
    }
    static int32_t failureOf(const std::function<void()>& use)
    {
        try {
            use();
        } catch (const Error& error) {
            return error.number();
        }
        return 0;
    }

    const com_ptr<Dte> dte = makeObject<Dte>();
    const com_ptr<IDispatch> root{dte.get()};
};

} // namespace velk::devkit
