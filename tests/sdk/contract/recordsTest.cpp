#define RZ_NO_PROTOTYPES
#include "sdk/velkbackend.h"

#include "backend/fields.h"
#include "devkit/contract/wire.h"

#include <gmock/gmock.h>

namespace velk::test {
namespace {

struct Field {
    std::string record, name;
    size_t offset, width;
    FieldKind kind;
    int32_t preset;
    bool operator==(const Field&) const = default;
    friend std::ostream& operator<<(std::ostream& out, const Field& field)
    {
        return out << field.record << "." << field.name << " at " << field.offset << ", " << field.width
                   << " bytes, kind " << static_cast<int>(field.kind) << ", preset " << field.preset;
    }
};

constexpr FieldKind NUMBER = FieldKind::number;
constexpr FieldKind FLAG = FieldKind::flag;
constexpr FieldKind STRING = FieldKind::text;

template <class Record>
void addFields(std::vector<Field>& fields, const char* record)
{
    for (const FieldRow& row : layoutOf<Record>().fields)
        fields.push_back({record, row.name, row.wire, row.kind == FLAG ? 2u : 4u, row.kind, row.capacity});
}

TEST(Records, ofTheTable_areTheProductsFieldByField)
{
    const std::vector<Field> table{
#define RZ_FIELD(record, field, offset, width, what, preset) {#record, #field, offset, width, what, preset},
#include "sdk/fields.inc"
#undef RZ_FIELD
    };
    std::vector<Field> product;
#define RECORD(name, bytes) addFields<velk::name>(product, #name);
    RZ_RECORDS(RECORD)
#undef RECORD
    EXPECT_EQ(table, product);
}

TEST(Records, ofTheHeader_haveTheProductsSizes)
{
#define RECORD(name, bytes)                                                                                            \
    EXPECT_EQ(layoutOf<velk::name>().wireSize, sizeof(::name)) << #name;                                               \
    EXPECT_EQ(sizeof(devkit::wire::name), sizeof(::name)) << #name;
    RZ_RECORDS(RECORD)
#undef RECORD
}

// Whether a member of the header's record is what the field is.
template <class Member>
constexpr FieldKind kindOf = std::is_same_v<Member, long>    ? FieldKind::number
                             : std::is_same_v<Member, short> ? FieldKind::flag
                                                             : FieldKind::text;
#define RZ_FIELD(record, field, offset, width, what, preset)                                                           \
    static_assert(kindOf<decltype(::record::field)> == what &&                                                         \
                  (what != STRING || std::is_same_v<decltype(::record::field), char*>));
#include "sdk/fields.inc"
#undef RZ_FIELD

} // namespace
} // namespace velk::test
