#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace velk::devkit {

// A line of a project file that cannot be understood. The lines are counted from 1.
class ProjectFileError : public std::runtime_error {
public:
    ProjectFileError(int badLine, std::wstring why)
        : std::runtime_error("project file"), line(badLine), reason(std::move(why))
    {
    }
    int line;
    std::wstring reason;
};

struct ProjectConnection {
    std::wstring name;
    std::wstring odbc; // connection string
};
struct ProjectRoutine {
    std::wstring file;
    std::wstring connection; // empty: the first one
    bool debug = false;
};
struct ProjectFile {
    std::wstring name;
    std::wstring filter = L"*o*"; // the name pattern that "Filter" proposes
    std::vector<ProjectConnection> connections;
    std::vector<ProjectRoutine> procedures;
    std::vector<ProjectRoutine> functions;
};

// Reads the UTF-8 text of a project file (sections in brackets, name=value lines, # comments).
ProjectFile parseProject(std::string_view bytes);
// The text of a project file, UTF-8.
std::string projectText(const ProjectFile& project);

} // namespace velk::devkit
