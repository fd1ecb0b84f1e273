#pragma once

#include "base/win32.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace velk {

// The name of the class by which SourceSafe is asked for.
inline constexpr wchar_t sourceSafeProgId[] = L"SourceSafe";

// A registered SourceSafe database: its name, and the folder that holds its srcsafe.ini.
struct SourceSafeDatabase {
    std::wstring name;
    std::wstring folder;
};
using DatabaseTable = std::vector<SourceSafeDatabase>;

// Whether SourceSafe stands in the registry. A failure counts as absent.
bool isSourceSafeInstalled() noexcept;

// Name and data of a key's value by its number from 0 on; "Not Found" as data when there is none.
std::array<std::wstring, 2> getRegValueByIndex(HKEY root, const std::wstring& subKey, uint32_t index);

// Fills the table with the registered databases; false when there are none. A folder that is called "Not Found" ends
// the list: the words are its end mark.
bool getSourceSafeDatabases(DatabaseTable& table);

// Opens a database of the table with a user's credentials and keeps it as the open one, the one before being let go.
// A failure is shown as SourceSafe tells it, and leaves no database open.
bool openSourceSafeDatabase(const std::wstring& userName, std::wstring_view password, const std::wstring& databaseName,
                            const DatabaseTable& table);

bool isSourceSafeOpen() noexcept;

// Appends the names of the projects below the root; false when the list is empty then. Failures end it quietly.
bool getSourceSafeProjects(std::vector<std::wstring>& projects);
// The project below the root that the file operations work in. A failure leaves it as it was.
void setCurrentProject(const std::wstring& name);
// Creates a project below the root unless it exists, and makes it current in any case.
void createSourceSafeProject(const std::wstring& name);

// Operations on a local file in the current project. Without an open database a message says so; SourceSafe's own
// failures go to the failure observer only.
void addFileToSourceSafe(const std::wstring& path);
void checkOutFile(const std::wstring& path);
void checkInFile(const std::wstring& path);

// Lets go of the open database and the current project. To be called before the add-in leaves the IDE.
void closeSourceSafe() noexcept;

} // namespace velk
