#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace velk::doctor {

// What a program file's own header says, without loading it.
struct PeFile {
    bool isProgram = false; // it is a program or library of Windows at all
    bool isLibrary = false;
    uint16_t machine = 0;
    std::vector<std::string> exports; // names
    std::vector<std::string> imports; // the libraries that it needs to be loaded
};

// Reads it from a file's bytes; what is damaged is left out, and nothing beyond the bytes is touched.
PeFile readPeFile(std::span<const unsigned char> bytes);

inline constexpr uint16_t machine32 = 0x014C;
// "32-bit", "64-bit", "for another processor"
std::wstring bitsText(uint16_t machine);

} // namespace velk::doctor
