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
    messageProjectUnsaved  = 811, // file, reason
    messageProjectNoPath   = 812,
    messageProjectSaved    = 813, // file
    messageFileUnread      = 814, // file, reason
    messageNothingCopied   = 815,
    messageNothingToImport = 816, // folder
    messageBuildFailed     = 817, // routine, reason
    messageBuilt           = 818, // routine
    messageRunFailed       = 819, // routine, reason
    actionNames            = 820, // and the action's code
    messageRan             = 860, // routine, statements
    messageResult          = 861, // routine, rows
    messageNotBuilt        = 862, // routine
    messageSample          = 863, // object, rows
    messageUnreadable      = 864, // object, reason
    messageRunSettings     = 865, // routine, file, values
    messageProperties      = 866, // facts
    questionDrop           = 867, // object
    questionDropButtons    = 868,
    questionFilter         = 869, // folder, pattern
    questionFilterButtons  = 870,
    messageDropFailed      = 871, // object, reason
    messageNoDatabaseCode  = 872, // routine
};
// clang-format on

} // namespace velk::devkit
