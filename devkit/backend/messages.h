#pragma once

#include <cstdint>

namespace velk::devkit {

// Numbers of the tool's own messages in the table of texts.
// clang-format off
enum Message : int32_t {
    messageNotAvailable    = 801, // action
    messageProjectMissing  = 802, // file
    messageProjectBroken   = 803, // file, line, reason
    messageProjectUnread   = 804, // file, reason
    messageDatabaseClosed  = 805, // connection, database, reason, project file
    messageDatabaseLost    = 806, // connection, database, reason
    messageSourceMissing   = 807, // source file, project file
    messageNoConnection    = 808, // project file
    messageWrongObject     = 809, // action
    messageNoTool          = 810, // what was to be started
    actionNames            = 820, // and the action's code
};
// clang-format on

} // namespace velk::devkit
