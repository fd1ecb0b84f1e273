#include "backend/text_block.h"

#include "backend/fetch.h"
#include "backend/texts.h"
#include "support/fakeBackend.h"

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>

namespace velk {
namespace {

using ansi::TextBlock;
using test::FakeBackend;
namespace wire = devkit::wire;

bool isZeroed(const TextBlock& block, size_t size)
{
    return std::all_of(block.get(), block.get() + size, [](char byte) { return byte == '\0'; });
}

TEST(textBlock, blockAfterBlock_isTheSameMemory)
{
    const char* const first = TextBlock(100).get();
    EXPECT_EQ(TextBlock(TextBlock::keptSize).get(), first);
}

TEST(textBlock, blockAfterOneThatWasWritten_isZeroed)
{
    {
        const TextBlock block(TextBlock::keptSize);
        std::memset(block.get(), 'x', TextBlock::keptSize);
    }
    EXPECT_TRUE(isZeroed(TextBlock(TextBlock::keptSize), TextBlock::keptSize));
}

TEST(textBlock, blockWithinABlock_hasItsOwnMemory)
{
    const TextBlock outer(8);
    std::memset(outer.get(), 'x', 8);
    const TextBlock inner(8);
    EXPECT_TRUE(isZeroed(inner, 8));
    EXPECT_EQ(std::string(outer.get(), 8), "xxxxxxxx");
}

TEST(textBlock, endOfAnInnerBlock_leavesTheOuterItsMemory)
{
    const TextBlock outer(8);
    {
        const TextBlock inner(8);
    }
    const TextBlock next(8);
    EXPECT_NE(next.get(), outer.get());
}

TEST(textBlock, blockBeyondTheKeptSize_isZeroedMemoryOfItsOwn)
{
    const TextBlock large(TextBlock::keptSize + 1);
    EXPECT_TRUE(isZeroed(large, TextBlock::keptSize + 1));
    EXPECT_NE(TextBlock(1).get(), large.get());
}

void writeName(wire::trzProcedure* record, const char* name)
{
    std::strcpy(record->strName, name);
}

TEST(textBlock, fetchWithinAFetch_keepsBothRecordsApart)
{
    FakeBackend backend;
    trzProcedure inner;
    backend.on.RZProcedureGet = [&](int32_t handle, wire::trzProcedure* record) {
        writeName(record, handle == 1 ? "outer" : "in");
        if (handle == 1)
            fetchProcedure(2, inner);
        return 1;
    };
    trzProcedure outer;
    fetchProcedure(1, outer);
    EXPECT_EQ(outer.strName, L"outer");
    EXPECT_EQ(inner.strName, L"in");
}

TEST(textBlock, messageTextWithinAFetch_findsAnEmptyBuffer)
{
    FakeBackend backend;
    char found = 'x';
    backend.on.RZGetString = [&](int32_t, char* buffer, int32_t) {
        found = *buffer;
        return 0;
    };
    backend.on.RZProcedureGet = [](int32_t, wire::trzProcedure* record) {
        std::memset(record->strSchema, 'x', 256);
        getRZString(1);
        return 1;
    };
    trzProcedure record;
    fetchProcedure(1, record);
    EXPECT_EQ(found, '\0');
}

TEST(textBlock, recordThatIsFetchedAgain_keepsTheMemoryOfItsTexts)
{
    FakeBackend backend;
    const char* name = "a procedure of some length";
    backend.on.RZProcedureGet = [&](int32_t, wire::trzProcedure* record) {
        writeName(record, name);
        return 1;
    };
    trzProcedure record;
    fetchProcedure(1, record);
    const wchar_t* const memory = record.strName.data();
    name = "another procedure";
    fetchProcedure(1, record);
    EXPECT_EQ(record.strName, L"another procedure");
    EXPECT_EQ(record.strName.data(), memory);
}

} // namespace
} // namespace velk
