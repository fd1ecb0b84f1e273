#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace velk::check {

struct PeExport {
    std::string name;
    uint32_t address = 0; // relative; 0: nothing stands behind the name
    bool isForwarded = false;
    bool isCode = false; // in a section that may be carried out
};

// What a library's file says of itself, read without loading it.
struct PeFile {
    uint16_t machine = 0;
    bool isLibrary = false;
    bool isWide = false; // 64 bits
    std::vector<PeExport> exports;
    std::vector<std::string> libraries; // those that it needs

    bool is32BitX86() const noexcept { return machine == 0x014C && !isWide; }
    const PeExport* find(std::string_view name) const noexcept;
};

// Nothing, and the reason, for bytes that are no such file. A table that leads out of the file ends where the file
// does.
std::optional<PeFile> readPe(std::span<const uint8_t> bytes, std::string& reason);

} // namespace velk::check
