#include "checker/peFile.h"

#include "checker/files.h"
#include "checker/head.h"

#include "base/module.h"

#include <gmock/gmock.h>

namespace velk::check {
namespace {

using testing::Contains;

std::vector<uint8_t> bytesOf(const wchar_t* name)
{
    const auto bytes = readFile(module::folder() + L"\\" + name);
    return bytes ? *bytes : std::vector<uint8_t>();
}

PeFile read(const std::vector<uint8_t>& bytes)
{
    std::string reason;
    const auto file = readPe(bytes, reason);
    return file ? *file : PeFile();
}

constexpr wchar_t sample[] = L"../../bin/sample/velkvsadd.dll";

TEST(PeFile, sampleLibrary_isReadWithItsExports)
{
    const PeFile file = read(bytesOf(sample));
    EXPECT_TRUE(file.is32BitX86());
    EXPECT_TRUE(file.isLibrary);
    ASSERT_NE(file.find("RZInitialize"), nullptr);
    EXPECT_TRUE(file.find("RZInitialize")->isCode);
    EXPECT_FALSE(file.find("RZInitialize")->isForwarded);
    EXPECT_EQ(file.find("RZNothing"), nullptr);
    EXPECT_THAT(file.libraries, Contains("KERNEL32.dll"));
}

TEST(PeFile, otherMachine_isSaid)
{
    std::vector<uint8_t> bytes = bytesOf(sample);
    const size_t header = bytes[0x3C] + 256u * bytes[0x3D];
    bytes[header + 4] = 0x64;
    bytes[header + 5] = 0x86;
    EXPECT_FALSE(read(bytes).is32BitX86());
}

TEST(PeFile, textFile_isNone)
{
    std::string reason;
    EXPECT_FALSE(readPe(std::vector<uint8_t>{'a', 'b'}, reason));
    EXPECT_NE(reason, "");
    EXPECT_FALSE(readPe({}, reason));
}

TEST(PeFile, everyCutOffFile_isReadWithoutHarm)
{
    const std::vector<uint8_t> bytes = bytesOf(sample);
    ASSERT_FALSE(bytes.empty());
    for (size_t size = 0; size < bytes.size(); size += size < 1024 ? 1 : 997)
        read({bytes.begin(), bytes.begin() + static_cast<ptrdiff_t>(size)});
}

TEST(PeFile, program_isNoLibrary)
{
    std::string reason;
    const auto bytes = readFile(module::path());
    ASSERT_TRUE(bytes);
    const auto file = readPe(*bytes, reason);
    ASSERT_TRUE(file);
    EXPECT_TRUE(file->is32BitX86());
    EXPECT_FALSE(file->isLibrary);
}

TEST(PeFile, headerWithAnyByteSpoiled_endsTheReading)
{
    std::vector<uint8_t> bytes = bytesOf(sample);
    ASSERT_FALSE(bytes.empty());
    size_t libraries = 0;
    for (size_t place = 0; place < 1024; ++place) {
        const uint8_t before = bytes[place];
        bytes[place] = 0xFF;
        libraries += read(bytes).isLibrary;
        bytes[place] = before;
    }
    EXPECT_GT(libraries, 500u);
    EXPECT_LT(libraries, 1024u);
}

TEST(PeFile, tablesThatLeadNowhere_areEmpty)
{
    std::vector<uint8_t> bytes = bytesOf(sample);
    ASSERT_FALSE(bytes.empty());
    const size_t directory = bytes[0x3C] + 256u * bytes[0x3D] + 24 + 96;
    for (size_t place = directory; place < directory + 16; ++place)
        bytes[place] = 0x7F;
    const PeFile file = read(bytes);
    EXPECT_TRUE(file.exports.empty());
    EXPECT_TRUE(file.libraries.empty());
}

TEST(Head, hash_isThatOfTheBytes)
{
    const std::wstring path = module::folder() + L"\\abc.txt";
    ASSERT_TRUE(writeFile(path, "abc"));
    EXPECT_EQ(sha256Of(path), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
}

TEST(Head, fileWithoutAVersion_saysSo)
{
    EXPECT_EQ(versionOf(module::folder() + L"\\" + sample), "(no version resource)");
}

} // namespace
} // namespace velk::check
