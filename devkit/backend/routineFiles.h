#pragma once

#include "devkit/backend/folderContents.h"

#include <optional>
#include <string>

namespace velk::devkit {

// A procedure or function with its source.
struct Routine {
    int32_t handle = 0;
    TreePlace place; // has nulls for anything else
    std::optional<std::wstring> source;
};
// Where the source cannot be read the user is told.
Routine readRoutine(const ProjectTree& tree, Conversation& conversation, int32_t handle);
// That the file which was used last cannot be read or written.
void tellUnread(Conversation& conversation, const std::wstring& file);

// There because a routine is a source file that the project names: new, imported and copied ones come in, and removed
// and dropped ones leave.
class RoutineFiles {
public:
    RoutineFiles(ProjectTree& tree, Conversation& conversation, FolderContents& folders)
        : m_tree(tree), m_conversation(conversation), m_folders(folders)
    {
    }
    RoutineFiles(const RoutineFiles&) = delete;
    RoutineFiles& operator=(const RoutineFiles&) = delete;

    // Actions: false when the handle is not of their kind of thing.
    bool add(int32_t folder);
    bool import(int32_t folder);
    void copy(const Routine& routine); // one whose source was read
    bool paste(int32_t folder);
    bool remove(int32_t routine);
    bool drop(int32_t routine); // after a question, out of the database as well

private:
    void write(const TreePlace& folder, const std::wstring& name, std::wstring source);
    void include(const TreePlace& folder, const std::wstring& file);
    void exclude(const TreePlace& object);
    void dropNow(int32_t routine);

    ProjectTree& m_tree;
    Conversation& m_conversation;
    FolderContents& m_folders;
    std::wstring m_copied; // the source of the routine that was copied last
};

} // namespace velk::devkit
