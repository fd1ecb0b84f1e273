#pragma once

#include "base/boundary.h"
#include "model/IntegrationMgr.h"

#include <cstdint>
#include <optional>
#include <string>

namespace velk {

// What the user chose, as it was at that moment. All of it is a copy: the view may change, or go, while a command's
// dialog is open.
struct Choice {
    // The node or the row that the item's menu acts on.
    struct Object {
        std::wstring key;
        std::wstring tag;
    };

    IntegrationMgr manager;
    Session life; // the view's
    int32_t code; // the item's action code
    std::wstring caption;
    std::wstring viewSourceCaption; // what is to be done first with an object that has no file
    std::optional<Object> object;   // empty when nothing is selected

    ~Choice();
};

// What an item of the menus does. A failure is thrown.
using Command = void (*)(const Choice& choice);

// Nearly all of it is the tool's work: the object's handle and the action code go over the bridge, and what comes of it
// arrives as notifications. Without an object this and the next four are error 91.
void doMenuCommand(const Choice& choice);
// Opens another project file instead of the object.
void openOtherProject(const Choice& choice);
// The tool makes the code of an object; it arrives later, as a notification.
void addCode(const Choice& choice);
// The tool makes an object for the data environment that the user chooses.
void addConnectionObject(const Choice& choice);
void addCommandObject(const Choice& choice);

// These need no object, or do nothing without one.
void projSaveAsMnuItem_Click(const Choice& choice);
void scmPropsMnuItem_Click(const Choice& choice);
void devObjAddFileMnuItem_Click(const Choice& choice);
void devObjChkOutMnuItem_Click(const Choice& choice);
void devObjChkInMnuItem_Click(const Choice& choice);

// Tells the user of a command's failure: its description and number.
void tellCommandFailure(const Session& life, const Error& failure) noexcept;

// Carries out what the user chose; a failure is told. The life is a copy: the control may be gone when the command
// comes back.
template <class Body>
void carryOut(const Session life, Body&& body) noexcept
{
    if (const auto failure = attempt(std::forward<Body>(body)))
        tellCommandFailure(life, *failure);
}

} // namespace velk
