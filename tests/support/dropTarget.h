#pragma once

#include "com/com_object.h"

#include <functional>
#include <oleidl.h>
#include <string>
#include <vector>

namespace velk::test {

// An edit control that takes dropped texts, as editors do; a window of its own.
class DropEdit {
public:
    explicit DropEdit(const RECT& place);
    DropEdit(const DropEdit&) = delete;
    DropEdit& operator=(const DropEdit&) = delete;
    ~DropEdit();

    std::wstring text() const;
    POINT middle() const; // on the screen

    HWND hwnd = nullptr;
    CLIPFORMAT format = CF_UNICODETEXT; // that it asks for
    std::vector<std::string> calls;
    std::vector<DWORD> allowed;           // the effects that the source allowed, a call each
    std::function<void()> onOver = [] {}; // inside its calls
    std::function<void()> onDrop = [] {};
    com_ptr<IDataObject> kept; // what was dropped, for a target that holds on to it
    bool keeps = false;

private:
    class Target;
};

} // namespace velk::test
