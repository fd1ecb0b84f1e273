#include "peFile.h"

#include "base/win32.h"

#include <cstring>
#include <optional>

namespace velk::doctor {
namespace {

constexpr uint32_t mostNames = 65536;
constexpr uint32_t mostLibraries = 1024;
constexpr size_t longestName = 512;

class Reader {
public:
    explicit Reader(std::span<const unsigned char> bytes) : m_bytes(bytes) {}

    template <class T>
    std::optional<T> at(uint64_t offset) const
    {
        if (offset > m_bytes.size() || m_bytes.size() - offset < sizeof(T))
            return std::nullopt;
        T value;
        memcpy(&value, m_bytes.data() + offset, sizeof value);
        return value;
    }

    bool readHeader(PeFile& file)
    {
        const auto dos = at<IMAGE_DOS_HEADER>(0);
        if (!dos || dos->e_magic != IMAGE_DOS_SIGNATURE || dos->e_lfanew < 0)
            return false;
        const auto header = static_cast<uint64_t>(dos->e_lfanew);
        const auto signature = at<uint32_t>(header);
        const auto kind = at<IMAGE_FILE_HEADER>(header + sizeof(uint32_t));
        if (!signature || *signature != IMAGE_NT_SIGNATURE || !kind)
            return false;
        file.machine = kind->Machine;
        file.isLibrary = (kind->Characteristics & IMAGE_FILE_DLL) != 0;
        const uint64_t optional = header + sizeof(uint32_t) + sizeof(IMAGE_FILE_HEADER);
        readDirectories(optional);
        m_sections = optional + kind->SizeOfOptionalHeader;
        m_sectionCount = kind->NumberOfSections;
        return true;
    }

    // Where the file holds what stands at an address of the loaded library.
    std::optional<uint64_t> place(uint32_t address) const
    {
        for (uint32_t index = 0; index < m_sectionCount; ++index) {
            const auto section = at<IMAGE_SECTION_HEADER>(m_sections + uint64_t{index} * sizeof(IMAGE_SECTION_HEADER));
            if (!section)
                return std::nullopt;
            const uint32_t size = section->SizeOfRawData;
            if (address >= section->VirtualAddress && address - section->VirtualAddress < size)
                return uint64_t{section->PointerToRawData} + (address - section->VirtualAddress);
        }
        return std::nullopt;
    }

    template <class T>
    std::optional<T> atAddress(uint64_t address) const
    {
        const auto offset = address > UINT32_MAX ? std::nullopt : place(static_cast<uint32_t>(address));
        return offset ? at<T>(*offset) : std::nullopt;
    }

    std::string name(uint32_t address) const
    {
        std::string text;
        const auto offset = place(address);
        for (uint64_t index = 0; offset && index < longestName; ++index) {
            const auto character = at<char>(*offset + index);
            if (!character || *character == '\0')
                break;
            text += *character;
        }
        return text;
    }

    IMAGE_DATA_DIRECTORY directory(size_t index) const { return m_directories[index]; }

private:
    void readDirectories(uint64_t optional)
    {
        const bool isWide = at<uint16_t>(optional) == IMAGE_NT_OPTIONAL_HDR64_MAGIC;
        const uint64_t first = optional + (isWide ? offsetof(IMAGE_OPTIONAL_HEADER64, DataDirectory)
                                                  : offsetof(IMAGE_OPTIONAL_HEADER32, DataDirectory));
        for (size_t index = 0; index < 2; ++index)
            m_directories[index] =
                at<IMAGE_DATA_DIRECTORY>(first + index * sizeof(IMAGE_DATA_DIRECTORY)).value_or(IMAGE_DATA_DIRECTORY{});
    }

    std::span<const unsigned char> m_bytes;
    IMAGE_DATA_DIRECTORY m_directories[2]{}; // exports, imports
    uint64_t m_sections = 0;
    uint32_t m_sectionCount = 0;
};

void readExports(const Reader& reader, PeFile& file)
{
    const auto table = reader.atAddress<IMAGE_EXPORT_DIRECTORY>(reader.directory(0).VirtualAddress);
    if (reader.directory(0).VirtualAddress == 0 || !table)
        return;
    for (uint32_t index = 0; index < table->NumberOfNames && index < mostNames; ++index) {
        const auto address = reader.atAddress<uint32_t>(uint64_t{table->AddressOfNames} + index * sizeof(uint32_t));
        if (!address)
            return;
        file.exports.push_back(reader.name(*address));
    }
}

void readImports(const Reader& reader, PeFile& file)
{
    const uint32_t first = reader.directory(1).VirtualAddress;
    for (uint32_t index = 0; first != 0 && index < mostLibraries; ++index) {
        const auto row =
            reader.atAddress<IMAGE_IMPORT_DESCRIPTOR>(first + uint64_t{index} * sizeof(IMAGE_IMPORT_DESCRIPTOR));
        if (!row || row->Name == 0)
            return;
        if (const std::string name = reader.name(row->Name); !name.empty())
            file.imports.push_back(name);
    }
}

} // namespace

PeFile readPeFile(std::span<const unsigned char> bytes)
{
    PeFile file;
    Reader reader(bytes);
    file.isProgram = reader.readHeader(file);
    if (!file.isProgram)
        return file;
    readExports(reader, file);
    readImports(reader, file);
    return file;
}

std::wstring bitsText(uint16_t machine)
{
    switch (machine) {
    case machine32:
        return L"32-bit";
    case 0x8664:
    case 0xAA64:
    case 0x0200:
        return L"64-bit";
    default:
        return L"for another processor";
    }
}

} // namespace velk::doctor
