#include "serverview/keptRecords.h"

#include "serverview/folderKinds.h"
#include "viewFixture.h"

namespace velk {
namespace {

using test::Calls;
using Taken = KeptRecords::Taken<trzProcedure>;
namespace wire = devkit::wire;

class KeptRecordsTest : public testing::Test {
protected:
    std::shared_ptr<KeptRecords> records = std::make_shared<KeptRecords>();
};

TEST_F(KeptRecordsTest, secondCall_getsTheFirstOnesRecordAsNew)
{
    const trzProcedure* first = nullptr;
    {
        Taken taken(records);
        first = &taken.get();
        taken.get() = {.lHdl = 5,
                       .bIsDirty = true,
                       .bCanDebug = true,
                       .strSchema = L"s",
                       .strName = L"RAISE",
                       .lResultSets = 2,
                       .bIsFenced = true,
                       .strFileName = L"a file's name of some length"};
    }
    Taken taken(records);
    const trzProcedure& record = taken.get();
    EXPECT_EQ(&record, first);
    EXPECT_EQ(record.lHdl, 0);
    EXPECT_EQ(record.lResultSets, 0);
    EXPECT_FALSE(record.bIsDirty || record.bCanDebug || record.bIsFenced);
    EXPECT_EQ(record.strSchema + record.strName + record.strFileName, L"");
    EXPECT_GE(record.strFileName.capacity(), 28u);
}

TEST_F(KeptRecordsTest, callWithinACall_hasARecordOfItsOwn)
{
    Taken outer(records);
    outer.get().strName = L"outer";
    {
        Taken inner(records);
        EXPECT_NE(&inner.get(), &outer.get());
        EXPECT_EQ(inner.get().strName, L"");
    }
    Taken afterwards(records); // the inner one has not given back what it never had
    EXPECT_NE(&afterwards.get(), &outer.get());
    EXPECT_EQ(outer.get().strName, L"outer");
}

TEST_F(KeptRecordsTest, callWithoutAView_hasARecordOfItsOwn)
{
    Taken taken(nullptr);
    EXPECT_EQ(taken.get().lHdl, 0);
}

TEST_F(KeptRecordsTest, viewThatGoesInsideACall_leavesItTheRecord)
{
    const std::weak_ptr<KeptRecords> kept = records;
    {
        Taken taken(records);
        records.reset();
        EXPECT_FALSE(kept.expired());
    }
    EXPECT_TRUE(kept.expired());
}

// The folder kinds' deeds with the records of a published view.
class RecordsOfAViewTest : public test::ViewFixture {
protected:
    RecordsOfAViewTest()
    {
        addProject();
        tree().select(L"K20");
    }
    void add(int32_t handle) { procedures.addIfShown(procedures, session, handle); }
    // How the tool answers: with an object whose flags are set; what it was given is noted before.
    void answer(int32_t handle, wire::trzProcedure* record, const char* name)
    {
        given.push_back(record->lHdl + record->bIsDirty + record->bCanDebug + record->lResultSets + record->bIsFenced);
        record->lHdl = handle;
        record->bIsDirty = record->bCanDebug = record->bIsFenced = VARIANT_TRUE;
        record->lResultSets = 3;
        std::strcpy(record->strName, name);
    }

    const FolderKindRow& procedures = *folderKindRow(7);
    Session session;
    std::vector<int32_t> given;
};

TEST_F(RecordsOfAViewTest, nextFetch_givesTheToolNothingOfTheLastObject)
{
    backend.on.RZProcedureGet = [this](int32_t handle, wire::trzProcedure* record) {
        answer(handle, record, "RAISE");
        return 1;
    };
    add(100);
    add(101);
    EXPECT_EQ(given, (std::vector<int32_t>{0, 0}));
    EXPECT_EQ(shownRows(), 2);
}

TEST_F(RecordsOfAViewTest, fetchInsideAFetch_leavesTheOutersRecordAlone)
{
    backend.on.RZProcedureGet = [this](int32_t handle, wire::trzProcedure* record) {
        answer(handle, record, handle == 100 ? "OUTER" : "INNER");
        if (handle == 100)
            add(101);
        return 1;
    };
    add(100);
    EXPECT_EQ(given, (std::vector<int32_t>{0, 0}));
    EXPECT_EQ(cell(0, 0), L"INNER");
    EXPECT_EQ(cell(1, 0), L"OUTER");
}

TEST_F(RecordsOfAViewTest, objectWithoutItsTexts_showsNoneOfTheLastOne)
{
    backend.on.RZProcedureGet = [this](int32_t handle, wire::trzProcedure* record) {
        answer(handle, record, handle == 100 ? "RAISE" : "");
        return 1;
    };
    add(100);
    add(101);
    EXPECT_EQ(cell(1, 0), L"");
}

TEST_F(RecordsOfAViewTest, viewThatIsGone_keepsNoRecords)
{
    const std::weak_ptr<KeptRecords> kept = publishedView().records;
    EXPECT_FALSE(kept.expired());
    DestroyWindow(std::exchange(host, nullptr));
    EXPECT_TRUE(kept.expired());
}

} // namespace
} // namespace velk
