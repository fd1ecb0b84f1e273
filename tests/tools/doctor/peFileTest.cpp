#include "doctor/peFile.h"

#include "base/module.h"
#include "doctor/files.h"

#include <gmock/gmock.h>

namespace velk::doctor {
namespace {

std::vector<unsigned char> ownBytes()
{
    std::vector<unsigned char> bytes;
    readBytes(module::path(), 100 * 1024 * 1024, Part::beginning, bytes);
    return bytes;
}

TEST(PeFileTest, program_isReadWithoutLoading)
{
    const PeFile file = readPeFile(ownBytes());
    EXPECT_TRUE(file.isProgram);
    EXPECT_FALSE(file.isLibrary);
    EXPECT_EQ(file.machine, machine32);
    EXPECT_THAT(file.imports, testing::Contains(std::string("KERNEL32.dll")));
}

TEST(PeFileTest, nothing_isNoProgram)
{
    EXPECT_FALSE(readPeFile({}).isProgram);
}

TEST(PeFileTest, programThatIsCutAnywhere_isReadAsFarAsItGoes)
{
    const std::vector<unsigned char> bytes = ownBytes();
    for (size_t length = 0; length < 2048; ++length) {
        const std::vector<unsigned char> part(bytes.begin(), bytes.begin() + static_cast<ptrdiff_t>(length));
        EXPECT_TRUE(readPeFile(part).imports.empty()) << length;
    }
}

TEST(PeFileTest, headerWithAnyByteSpoiled_endsTheReading)
{
    std::vector<unsigned char> bytes = ownBytes();
    bytes.resize(64 * 1024);
    size_t programs = 0;
    for (size_t place = 0; place < 1024; ++place) {
        const unsigned char before = bytes[place];
        bytes[place] = 0xFF;
        programs += readPeFile(bytes).isProgram;
        bytes[place] = before;
    }
    EXPECT_GT(programs, 500u);
    EXPECT_LT(programs, 1024u);
}

} // namespace
} // namespace velk::doctor
