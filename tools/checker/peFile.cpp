#include "checker/peFile.h"

#include <algorithm>
#include <cstring>

namespace velk::check {
namespace {

constexpr size_t mostEntries = 65536; // of any table: a damaged count must not take the memory
constexpr size_t longestName = 512;

struct Section {
    uint32_t address, size, rawSize, file;
    bool isCode;
};

// Reads a file's bytes by their place in the file and in memory; what is not there is 0.
class Reader {
public:
    explicit Reader(std::span<const uint8_t> bytes) : m_bytes(bytes) {}

    template <class Number>
    Number at(size_t place) const
    {
        Number number = 0;
        if (place <= m_bytes.size() && m_bytes.size() - place >= sizeof number)
            std::memcpy(&number, m_bytes.data() + place, sizeof number);
        return number;
    }
    bool has(size_t place, size_t size) const { return place <= m_bytes.size() && m_bytes.size() - place >= size; }

    void addSection(const Section& section) { m_sections.push_back(section); }
    const Section* sectionOf(uint32_t address) const
    {
        const auto found = std::find_if(m_sections.begin(), m_sections.end(), [&](const Section& section) {
            return address >= section.address && address - section.address < std::max(section.size, section.rawSize);
        });
        return found == m_sections.end() ? nullptr : &*found;
    }
    // The place in the file of what stands at an address in memory; behind the file's end when it is not in it.
    size_t placeOf(uint32_t address) const
    {
        const Section* const section = sectionOf(address);
        const bool isThere = section && address - section->address < section->rawSize;
        return isThere ? size_t{section->file} + (address - section->address) : m_bytes.size();
    }
    std::string textAt(uint32_t address) const
    {
        std::string text;
        for (size_t place = placeOf(address); place < m_bytes.size() && m_bytes[place] != 0; ++place) {
            if (text.size() == longestName)
                break;
            text += static_cast<char>(m_bytes[place]);
        }
        return text;
    }

private:
    std::span<const uint8_t> m_bytes;
    std::vector<Section> m_sections;
};

void readSections(Reader& reader, size_t first, size_t count)
{
    constexpr size_t rowSize = 40;
    constexpr uint32_t isCode = 0x20000000; // may be carried out
    for (size_t row = 0; row < count && reader.has(first + row * rowSize, rowSize); ++row) {
        const size_t at = first + row * rowSize;
        reader.addSection({reader.at<uint32_t>(at + 12), reader.at<uint32_t>(at + 8), reader.at<uint32_t>(at + 16),
                           reader.at<uint32_t>(at + 20), (reader.at<uint32_t>(at + 36) & isCode) != 0});
    }
}

void readExports(const Reader& reader, uint32_t address, uint32_t size, PeFile& file)
{
    const size_t table = reader.placeOf(address);
    const size_t functions = reader.placeOf(reader.at<uint32_t>(table + 28));
    const size_t names = reader.placeOf(reader.at<uint32_t>(table + 32));
    const size_t ordinals = reader.placeOf(reader.at<uint32_t>(table + 36));
    const auto functionsThere = reader.at<uint32_t>(table + 20);
    const size_t count = std::min<size_t>(reader.at<uint32_t>(table + 24), mostEntries);
    for (size_t row = 0; row < count && reader.has(names + 4 * row, 4); ++row) {
        const auto ordinal = reader.at<uint16_t>(ordinals + 2 * row);
        PeExport one;
        one.name = reader.textAt(reader.at<uint32_t>(names + 4 * row));
        one.address = ordinal < functionsThere ? reader.at<uint32_t>(functions + 4 * size_t{ordinal}) : 0;
        one.isForwarded = one.address >= address && one.address - address < size;
        const Section* const section = reader.sectionOf(one.address);
        one.isCode = section && section->isCode;
        file.exports.push_back(std::move(one));
    }
}

void readLibraries(const Reader& reader, uint32_t address, PeFile& file)
{
    constexpr size_t rowSize = 20;
    constexpr size_t most = 1024;
    const size_t table = reader.placeOf(address);
    for (size_t row = 0; row < most && reader.has(table + row * rowSize, rowSize); ++row) {
        const auto name = reader.at<uint32_t>(table + row * rowSize + 12);
        if (name == 0)
            return;
        file.libraries.push_back(reader.textAt(name));
    }
}

std::optional<PeFile> refused(std::string& reason, const char* why)
{
    reason = why;
    return std::nullopt;
}

} // namespace

const PeExport* PeFile::find(std::string_view name) const noexcept
{
    const auto found = std::find_if(exports.begin(), exports.end(), [&](const auto& one) { return one.name == name; });
    return found == exports.end() ? nullptr : &*found;
}

std::optional<PeFile> readPe(std::span<const uint8_t> bytes, std::string& reason)
{
    Reader reader(bytes);
    if (reader.at<uint16_t>(0) != 0x5A4D)
        return refused(reason, "it does not begin as a program does");
    const size_t header = reader.at<uint32_t>(0x3C);
    if (reader.at<uint32_t>(header) != 0x00004550)
        return refused(reason, "it has no header of a Windows program");
    const size_t optional = header + 24;
    const auto magic = reader.at<uint16_t>(optional);
    if (magic != 0x10B && magic != 0x20B)
        return refused(reason, "its header is cut off or of no known form");
    PeFile file;
    file.machine = reader.at<uint16_t>(header + 4);
    file.isWide = magic == 0x20B;
    file.isLibrary = (reader.at<uint16_t>(header + 22) & 0x2000) != 0;
    readSections(reader, optional + reader.at<uint16_t>(header + 20), reader.at<uint16_t>(header + 6));
    const size_t directories = optional + (file.isWide ? 112 : 96);
    const auto directoryCount = reader.at<uint32_t>(directories - 4);
    if (directoryCount > 0 && reader.at<uint32_t>(directories) != 0)
        readExports(reader, reader.at<uint32_t>(directories), reader.at<uint32_t>(directories + 4), file);
    if (directoryCount > 1 && reader.at<uint32_t>(directories + 8) != 0)
        readLibraries(reader, reader.at<uint32_t>(directories + 8), file);
    return file;
}

} // namespace velk::check
