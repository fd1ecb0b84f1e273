#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velk::check {

// The bytes of a file; nothing when it cannot be read.
std::optional<std::vector<uint8_t>> readFile(const std::wstring& path);
bool writeFile(const std::wstring& path, std::string_view bytes);
bool isFile(const std::wstring& path);

std::wstring currentFolder();
std::wstring folderOf(const std::wstring& path); // without the backslash
std::wstring fileNameOf(const std::wstring& path);
std::wstring wholePath(const std::wstring& path);

// A folder that is not there yet, among the user's temporary ones.
std::wstring newTemporaryFolder();
void removeTree(const std::wstring& folder);

// A copy of the folder that a project file stands in, in a temporary folder that goes with it.
class ProjectCopy {
public:
    explicit ProjectCopy(const std::wstring& projectFile);
    ProjectCopy(const ProjectCopy&) = delete;
    ProjectCopy& operator=(const ProjectCopy&) = delete;
    ~ProjectCopy() { removeTree(m_folder); }

    // Empty when it could not be made, and why.
    const std::wstring& projectFile() const noexcept { return m_projectFile; }
    const std::string& trouble() const noexcept { return m_trouble; }

private:
    std::wstring m_folder;
    std::wstring m_projectFile;
    std::string m_trouble;
};

} // namespace velk::check
