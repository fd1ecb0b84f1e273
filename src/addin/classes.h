#pragma once

#include "com/com_ptr.h"

#include <span>

namespace velk {

// A class that the DLL publishes: the product's name, a dot and its own make its ProgID.
struct PublishedClass {
    const CLSID* clsid;
    const wchar_t* name;
    const wchar_t* description;
    com_ptr<IUnknown> (*make)();
    bool isDocument; // hosted in a tool window of the IDE
};

std::span<const PublishedClass> publishedClasses();

} // namespace velk
