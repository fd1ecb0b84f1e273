#pragma once

#include "devkit/backend/clientCode.h"
#include "devkit/backend/connections.h"
#include "devkit/backend/objectReports.h"
#include "devkit/backend/projectAccess.h"
#include "devkit/backend/routineFiles.h"
#include "devkit/backend/routineWork.h"

namespace velk::devkit {

// What a session is made of, each part knowing only those above it. Long work is done by the worker, one piece after
// the other; all else, also what follows from such work, is done on the caller's thread.
struct Parts {
    Parts(Handles& handles, const TextTable& texts) : conversation(texts), tree(handles) {}

    Conversation conversation;
    ProjectTree tree;
    Worker worker;
    FolderContents folders{tree, conversation};
    Connections connections{tree, conversation, worker, folders};
    ProjectAccess project{tree, conversation, worker, connections};
    RoutineFiles routineFiles{tree, conversation, folders};
    RoutineWork routineWork{tree, conversation, worker, folders};
    ObjectReports reports{tree, conversation, worker};
    ClientCode client{tree, conversation};
};

} // namespace velk::devkit
