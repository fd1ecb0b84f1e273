#include "serverview/folderKinds.h"

#include "support/shownMessages.h"
#include "ui/ownTexts.h"
#include "viewFixture.h"

namespace velk {
namespace {

using testing::ElementsAre;

class FolderKindsTest : public test::ViewFixture {
protected:
    FolderKindsTest()
    {
        addProject();
        tree().select(L"K20");
        backend.folders[20] = {100};
        backend.unjournaled.insert("RZProcedureEnumNext");
    }
    // Objects that come in turns, so many of them, until they were asked for that often.
    void fillWith(int objects, int times)
    {
        backend.on.RZProcedureEnumNext = [this, objects, times](int32_t, auto* record) {
            return asked < times ? record->lHdl = 100 + asked++ % objects : 0;
        };
        const FolderKindRow& procedures = *folderKindRow(7);
        procedures.fill(procedures, Session::none(), 20);
    }
    test::ShownMessages shownMessages;
    int asked = 0;
};

TEST_F(FolderKindsTest, objectsThatComeInTurnsForEver_areShownOnceAndToldAsEndless)
{
    fillWith(7, 1'000'000);
    EXPECT_EQ(list().rows().size(), 7u);
    EXPECT_THAT(shownMessages.lines, ElementsAre(ownTexts::endlessFolder));
    EXPECT_LT(asked, 1100);
    EXPECT_TRUE(backend.enumerations.empty());
}

TEST_F(FolderKindsTest, objectsThatComeAThousandTimesMore_areNotTakenForEndless)
{
    fillWith(7, 7 + 1000);
    EXPECT_EQ(list().rows().size(), 7u);
    EXPECT_TRUE(shownMessages.lines.empty());
    EXPECT_EQ(asked, 7 + 1000);
}

} // namespace
} // namespace velk
