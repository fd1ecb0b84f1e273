#pragma once

#include <string>
#include <string_view>

namespace velk {

struct DriveAndRest {
    std::wstring drive; // with its colon
    std::wstring rest;
};
struct PathParts {
    std::wstring drive;
    std::wstring directory;
    std::wstring file;
};

// Parts a path behind its first colon; without one there is no drive.
DriveAndRest splitDrive(std::wstring_view path);

// Parts what follows the drive at its last backslash, which belongs to neither side. When that backslash is the
// first character, or there is none, all of it is the directory and there is no file.
PathParts splitPath(std::wstring_view path);

// What stands before the last backslash, drive included; empty without one. Unlike splitPath it also parts at a
// backslash that is the first character.
std::wstring parentDir(std::wstring_view path);

// What follows the last backslash of a path; the whole of a path without one.
std::wstring fileNameOf(std::wstring_view path);

// Whether a folder's name means one place whatever the current directory and drive are: "C:\tools", "\\server\share"
// and the long forms of both that begin with "\\?\". "C:", "C:tools", "\tools" and "." are not.
bool isFullyQualified(std::wstring_view folder) noexcept;

} // namespace velk
