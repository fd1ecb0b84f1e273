#include "checker/guarded.h"

#include "checker/recordCopy.h"

#include "base/win32.h"

#include <cstring>
#include <gmock/gmock.h>

namespace velk::check {
namespace {

TEST(CountedBuffer, untouched_hasNoHarm)
{
    const CountedBuffer buffer("text", size_t{256});
    EXPECT_EQ(buffer.harm(), Harm::none);
    EXPECT_EQ(buffer.capacity(), 256u);
    EXPECT_EQ(buffer.text(), "");
}

TEST(CountedBuffer, filledToItsEnd_hasNoHarmAndNoNul)
{
    const CountedBuffer buffer("text", size_t{256});
    std::memset(buffer.characters(), 'x', 256);
    EXPECT_EQ(buffer.harm(), Harm::none);
    EXPECT_FALSE(buffer.hasNul());
    EXPECT_EQ(buffer.text().size(), 256u);
}

TEST(CountedBuffer, byteBehindIt_isHarm)
{
    const CountedBuffer buffer("text", size_t{256});
    buffer.characters()[256] = 'x';
    EXPECT_EQ(buffer.harm(), Harm::behind);
}

TEST(CountedBuffer, byteInTheGapBeforeThePage_isHarm)
{
    const CountedBuffer buffer("text", size_t{256}); // its end with the NUL is no multiple of four
    buffer.characters()[257] = '\0';
    EXPECT_EQ(buffer.harm(), Harm::behind);
}

TEST(CountedBuffer, lengthWritten_isHarm)
{
    const CountedBuffer buffer("text", size_t{256});
    buffer.characters()[-4] = 5;
    EXPECT_EQ(buffer.harm(), Harm::prefix);
}

TEST(CountedBuffer, byteBeforeTheLength_isHarm)
{
    const CountedBuffer buffer("text", size_t{256});
    buffer.characters()[-5] = 0;
    EXPECT_EQ(buffer.harm(), Harm::before);
}

TEST(CountedBuffer, characters_standAtAMultipleOfFour)
{
    const CountedBuffer buffer("text", std::string_view("abc"));
    EXPECT_EQ(reinterpret_cast<uintptr_t>(buffer.characters()) % 4, 0u);
    EXPECT_EQ(buffer.text(), "abc");
}

TEST(GuardedBytes, pageBehind_isKnownByItsName)
{
    const GuardedBytes bytes("the record", 32);
    const GuardedBytes other("another", 32);
    const GuardedBytes* const found = GuardedBytes::behindWhich(bytes.data() + 32);
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->name(), "the record");
    EXPECT_EQ(GuardedBytes::behindWhich(bytes.data()), nullptr);
}

TEST(GuardedBytes, pageBehind_cannotBeRead)
{
    const GuardedBytes bytes("the record", 32);
    MEMORY_BASIC_INFORMATION region{};
    VirtualQuery(bytes.data() + 31, &region, sizeof region);
    EXPECT_EQ(region.Protect, DWORD{PAGE_READWRITE});
    VirtualQuery(bytes.data() + 32, &region, sizeof region);
    EXPECT_EQ(region.Protect, DWORD{PAGE_NOACCESS});
}

TEST(WireRecord, fresh_hasPresetsAndOwnPointers)
{
    const WireRecord record = WireRecord::of<trzText>("trzText");
    EXPECT_EQ(record.number("lTextSz"), 4096);
    EXPECT_EQ(record.text("strText").capacity(), 4096u);
    EXPECT_EQ(record.text("strButtons").capacity(), 256u);
    for (const FieldRow& row : record.layout().fields)
        EXPECT_TRUE(row.kind != FieldKind::text || record.isPointerKept(row));
}

TEST(WireRecord, pointerReplaced_isSeen)
{
    const WireRecord record = WireRecord::of<trzView>("trzView");
    std::memset(static_cast<char*>(record.address()) + 8, 0, 4); // strSchema
    EXPECT_FALSE(record.isPointerKept(record.layout().fields[2]));
    EXPECT_TRUE(record.isPointerKept(record.layout().fields[3]));
}

TEST(RecordCopy, otherText_isNamedAsDifference)
{
    const WireRecord one = WireRecord::of<trzView>("trzView");
    const WireRecord other = WireRecord::of<trzView>("trzView");
    std::strcpy(other.text("strName").characters(), "SALES");
    EXPECT_EQ(RecordCopy(one).difference(RecordCopy(other)), "strName is \"\", then \"SALES\"");
    EXPECT_EQ(RecordCopy(one).difference(RecordCopy(other), {"strName"}), "");
}

} // namespace
} // namespace velk::check
