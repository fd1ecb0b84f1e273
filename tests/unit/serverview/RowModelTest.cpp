#include "serverview/RowModel.h"

#include "base/error.h"

#include <gtest/gtest.h>

namespace velk {
namespace {

Row row(const std::wstring& key)
{
    return {key, {L"name of " + key}, {}};
}

RowModel threeRows()
{
    RowModel rows;
    rows.add(row(L"K1"));
    rows.add(row(L"K2"));
    rows.add(row(L"K3"));
    return rows;
}

TEST(RowModel, addedRows_keepTheirOrder)
{
    const RowModel rows = threeRows();
    EXPECT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows.at(0).key, L"K1");
    EXPECT_EQ(rows.at(2).key, L"K3");
}

TEST(RowModel, takenKey_isRefusedAndChangesNothing)
{
    RowModel rows = threeRows();
    EXPECT_THROW(rows.add(row(L"K2")), Error);
    EXPECT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows.at(1).cells[0], L"name of K2");
}

TEST(RowModel, removedRow_movesThoseBehindIt)
{
    RowModel rows = threeRows();
    EXPECT_EQ(rows.remove(L"K1"), 0u);
    EXPECT_EQ(rows.find(L"K1"), std::nullopt);
    EXPECT_EQ(rows.find(L"K2"), 0u);
    EXPECT_EQ(rows.find(L"K3"), 1u);
}

TEST(RowModel, missingKey_cannotBeRemoved)
{
    RowModel rows = threeRows();
    EXPECT_THROW(rows.remove(L"K4"), Error);
    EXPECT_EQ(rows.size(), 3u);
}

TEST(RowModel, cleared_takesTheSameKeysAgain)
{
    RowModel rows = threeRows();
    rows.clear();
    rows.add(row(L"K2"));
    EXPECT_EQ(rows.find(L"K2"), 0u);
}

} // namespace
} // namespace velk
