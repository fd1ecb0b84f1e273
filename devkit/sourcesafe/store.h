#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace velk::devkit::vss {

// A project or file of a database.
struct Place {
    std::wstring spec;   // "$/Orders/close.sql", in the letters in which it was made
    std::wstring name;   // its last part; empty for the root
    std::wstring folder; // where the database keeps it
    bool isProject = true;
};

// One version of a file.
struct Version {
    int32_t number = 0;
    std::wstring user;
    std::wstring comment;
};

// Who has a file, and the local path of the copy that they work on.
struct CheckOut {
    std::wstring user;
    std::wstring local;
};

// A database in a folder with a "srcsafe.ini":
//
//     srcsafe.ini            Database_Name, Data_Path and Users_Txt, as "key=value"
//     users.txt              "name=password"
//     data\p,Orders          a project; projects and files below it
//     data\p,Orders\f,a.sql  a file: its versions "1", "2", ... with "1.txt", ... (who, and the comment), and "out.txt"
//                            (who has it, and where) while it is checked out
//
// Nothing of it is kept in memory, so several programs may work on one database; writing takes turns by a lock. A
// version is there with the rename of its content, the last step that makes it: what stops before leaves the versions
// before it as they were. Failures are those of failures.h, or the system's.
class Store {
public:
    explicit Store(const std::wstring& iniPath);

    const std::wstring& iniPath() const { return m_iniPath; }
    const std::wstring& name() const { return m_name; }
    // The user's name in the letters of the list of users; fails for a user or a password that is not in it.
    std::wstring logIn(const std::wstring& user, const std::wstring& password) const;

    // What a spec names ("$/", "$/a", "$/a/b"; case does not count), read from the project named first unless it begins
    // with "$".
    Place find(const std::wstring& spec, const std::wstring& from = L"$/") const;
    // Projects, then files, each in the alphabet's order.
    std::vector<Place> childrenOf(const Place& project) const;
    Place addProject(const Place& parent, const std::wstring& name);

    // A file's first version, from a local file, which becomes read-only.
    Place addFile(const Place& parent, const std::wstring& local, const std::wstring& user,
                  const std::wstring& comment);
    std::vector<Version> versionsOf(const Place& file) const; // oldest first, never empty
    std::string contentOf(const Place& file, int32_t version) const;
    std::optional<CheckOut> checkOutOf(const Place& file) const;

    // Puts the newest content into the local file and records who has it. A writable local file is somebody's work: it
    // is left as it is unless it shall be replaced.
    void checkOut(const Place& file, const std::wstring& user, const std::wstring& local, bool replacesWritable);
    // Makes a version of the local file (or of the one it was checked out to), and ends the check-out unless kept.
    void checkIn(const Place& file, const std::wstring& user, const std::wstring& local, const std::wstring& comment,
                 bool keepsCheckOut);
    // Ends a check-out and puts the newest content back into the local file.
    void undoCheckOut(const Place& file, const std::wstring& user, const std::wstring& local);

    // The folder of a user for a project; empty when none was set for it or above it.
    std::wstring workingFolder(const Place& project, const std::wstring& user) const;
    void setWorkingFolder(const Place& project, const std::wstring& user, const std::wstring& folder);

private:
    Place childOf(const Place& parent, const std::wstring& name) const;
    std::optional<Place> lookUp(const Place& parent, const std::wstring& name) const;
    CheckOut ownCheckOut(const Place& file, const std::wstring& user) const;
    std::wstring lockPath() const;

    std::wstring m_iniPath;
    std::wstring m_name;
    std::wstring m_data;
    std::wstring m_users;
};

} // namespace velk::devkit::vss
