#include "sampleDatabase.h"

namespace velk {
namespace {

using testing::ElementsAre;

constexpr int32_t keepYes = 0x20000;
constexpr int32_t replaceWritable = 128;

class VSSItemTest : public test::SourceSafeFixture {};

TEST_F(VSSItemTest, root_hasTheSamplesProjectAsItsOnlyChild)
{
    const com_ptr<IDispatch> items = automation::getObject(item(open(), L"$/"), L"Items", {variant(false)});
    EXPECT_EQ(number(items, L"Count"), 1);
    EXPECT_EQ(name(automation::getObject(items, L"Item", {variant(int32_t{1})})), L"Orders");
    EXPECT_EQ(name(automation::getObject(items, L"Item", {text(L"orders")})), L"Orders");
}

TEST_F(VSSItemTest, itemsEnumeration_givesProjectsThenFiles)
{
    const com_ptr<IDispatch> database = open();
    added(database, L"a.sql", "one");
    automation::call(item(database, L"$/Orders"), L"NewSubproject", {text(L"Zoo"), text(L"")});
    const variant children = automation::get(automation::getObject(item(database, L"$/Orders"), L"Items"), L"_NewEnum");
    const auto walk = com_ptr<IUnknown>(children.get().punkVal).tryAs<IEnumVARIANT>();
    variant first, second, third;
    EXPECT_EQ(walk->Next(1, first.put(), nullptr), S_OK);
    EXPECT_EQ(walk->Next(1, second.put(), nullptr), S_OK);
    EXPECT_EQ(walk->Next(1, third.put(), nullptr), S_FALSE);
    EXPECT_EQ(name(first.asObject()), L"Zoo");
    EXPECT_EQ(name(second.asObject()), L"a.sql");
}

TEST_F(VSSItemTest, newSubproject_isThereForOthers)
{
    const com_ptr<IDispatch> made =
        automation::call(item(open(), L"$/"), L"NewSubproject", {text(L"New"), text(L"")}).asObject();
    EXPECT_EQ(automation::get(made, L"Spec").asText(), L"$/New");
    EXPECT_EQ(number(made, L"Type"), 0);
    EXPECT_EQ(name(item(open(L"bob", L""), L"$/New")), L"New");
}

TEST_F(VSSItemTest, newSubprojectThatExists_isRefused)
{
    const com_ptr<IDispatch> root = item(open(), L"$/");
    EXPECT_EQ(failureOf([&] { automation::call(root, L"NewSubproject", {text(L"ORDERS")}); }).result(),
              static_cast<HRESULT>(0x8004D694));
}

TEST_F(VSSItemTest, newSubprojectWithABadName_isRefused)
{
    const com_ptr<IDispatch> root = item(open(), L"$/");
    EXPECT_EQ(failureOf([&] { automation::call(root, L"NewSubproject", {text(L"a/b")}); }).result(),
              static_cast<HRESULT>(0x8004D693));
    EXPECT_EQ(failureOf([&] { automation::call(root, L"NewSubproject", {text(L"")}); }).result(),
              static_cast<HRESULT>(0x8004D693));
}

TEST_F(VSSItemTest, add_keepsVersionOneAndMakesTheLocalFileReadOnly)
{
    const com_ptr<IDispatch> file = added(open(), L"a.sql", "one");
    EXPECT_EQ(automation::get(file, L"Spec").asText(), L"$/Orders/a.sql");
    EXPECT_EQ(number(file, L"Type"), 1);
    EXPECT_EQ(number(file, L"VersionNumber"), 1);
    EXPECT_EQ(number(file, L"IsCheckedOut"), 0);
    EXPECT_TRUE(files::isReadOnly(local(L"a.sql")));
}

TEST_F(VSSItemTest, addOfAFileThatIsNotThere_isRefused)
{
    const com_ptr<IDispatch> project = item(open(), L"$/Orders");
    EXPECT_EQ(failureOf([&] { automation::call(project, L"Add", {text(local(L"none.sql"))}); }).result(),
              static_cast<HRESULT>(0x8004D74B));
}

TEST_F(VSSItemTest, addOfAFileThatTheProjectHas_isRefused)
{
    const com_ptr<IDispatch> database = open();
    added(database, L"a.sql", "one");
    EXPECT_EQ(failureOf([&] { added(database, L"A.SQL", "two"); }).result(), static_cast<HRESULT>(0x8004D694));
    EXPECT_EQ(number(item(database, L"$/Orders/a.sql"), L"VersionNumber"), 1);
}

TEST_F(VSSItemTest, addToAFile_isRefused)
{
    const com_ptr<IDispatch> file = added(open(), L"a.sql", "one");
    EXPECT_EQ(failureOf([&] { automation::call(file, L"Add", {text(local(L"a.sql"))}); }).result(),
              static_cast<HRESULT>(0x8004D687));
}

TEST_F(VSSItemTest, checkOut_makesTheLocalFileWritableAndIsSeenByAll)
{
    const com_ptr<IDispatch> file = added(open(), L"a.sql", "one");
    checkOut(file, local(L"a.sql"));
    EXPECT_FALSE(files::isReadOnly(local(L"a.sql")));
    EXPECT_EQ(number(file, L"IsCheckedOut"), 2);
    EXPECT_EQ(number(item(open(L"bob", L""), L"$/Orders/a.sql"), L"IsCheckedOut"), 1);
}

TEST_F(VSSItemTest, checkOutIntoAMissingFolder_makesItWithTheNewestContent)
{
    const com_ptr<IDispatch> file = added(open(), L"a.sql", "one");
    checkOut(file, work + L"\\deep\\er\\a.sql");
    EXPECT_EQ(files::read(work + L"\\deep\\er\\a.sql"), "one");
}

TEST_F(VSSItemTest, checkOutOfAFileThatAnotherHas_isRefusedWithTheirName)
{
    checkOut(added(open(), L"a.sql", "one"), local(L"a.sql"));
    const com_ptr<IDispatch> file = item(open(L"bob", L""), L"$/Orders/a.sql");
    const Error error = failureOf([&] { checkOut(file, local(L"b.sql")); });
    EXPECT_EQ(error.result(), static_cast<HRESULT>(0x8004D68A));
    EXPECT_EQ(error.description(), L"\"$/Orders/a.sql\" is checked out by user \"ann\".");
    EXPECT_FALSE(files::isFile(local(L"b.sql")));
}

TEST_F(VSSItemTest, secondCheckOutByTheSameUser_isRefused)
{
    const com_ptr<IDispatch> file = added(open(), L"a.sql", "one");
    checkOut(file, local(L"a.sql"));
    EXPECT_EQ(failureOf([&] { checkOut(file, local(L"a.sql")); }).result(), static_cast<HRESULT>(0x8004D75A));
}

TEST_F(VSSItemTest, checkOutOntoAWritableFile_leavesItAsItIs)
{
    const com_ptr<IDispatch> file = added(open(), L"a.sql", "one");
    checkOut(file, written(L"mine.sql", "my work"));
    EXPECT_EQ(files::read(local(L"mine.sql")), "my work");
    EXPECT_EQ(number(file, L"IsCheckedOut"), 2);
}

TEST_F(VSSItemTest, checkOutToldToReplace_replacesAWritableFile)
{
    const com_ptr<IDispatch> file = added(open(), L"a.sql", "one");
    automation::call(file, L"Checkout",
                     {variant(L""), text(written(L"mine.sql", "my work")), variant(replaceWritable)});
    EXPECT_EQ(files::read(local(L"mine.sql")), "one");
}

TEST_F(VSSItemTest, checkIn_makesAVersionAndGivesTheFileBack)
{
    const com_ptr<IDispatch> file = added(open(), L"a.sql", "one");
    checkOut(file, local(L"a.sql"));
    checkIn(file, written(L"a.sql", "two"));
    EXPECT_EQ(number(file, L"VersionNumber"), 2);
    EXPECT_EQ(number(file, L"IsCheckedOut"), 0);
    EXPECT_TRUE(files::isReadOnly(local(L"a.sql")));
}

TEST_F(VSSItemTest, checkInWithoutALocalPath_takesTheOneOfTheCheckOut)
{
    const com_ptr<IDispatch> file = added(open(), L"a.sql", "one");
    checkOut(file, local(L"copy.sql"));
    written(L"copy.sql", "two");
    automation::call(file, L"Checkin");
    checkOut(file, local(L"other.sql"));
    EXPECT_EQ(files::read(local(L"other.sql")), "two");
}

TEST_F(VSSItemTest, checkInThatKeeps_makesAVersionAndStaysCheckedOut)
{
    const com_ptr<IDispatch> file = added(open(), L"a.sql", "one");
    checkOut(file, local(L"a.sql"));
    automation::call(file, L"Checkin", {variant(L""), text(written(L"a.sql", "two")), variant(keepYes)});
    EXPECT_EQ(number(file, L"VersionNumber"), 2);
    EXPECT_EQ(number(file, L"IsCheckedOut"), 2);
    EXPECT_FALSE(files::isReadOnly(local(L"a.sql")));
}

TEST_F(VSSItemTest, checkInOfAFileThatIsNotCheckedOut_isRefused)
{
    const com_ptr<IDispatch> file = added(open(), L"a.sql", "one");
    const Error error = failureOf([&] { checkIn(file, local(L"a.sql")); });
    EXPECT_EQ(error.result(), static_cast<HRESULT>(0x8004D690));
    EXPECT_EQ(error.description(), L"\"$/Orders/a.sql\" is not checked out by you.");
    EXPECT_EQ(number(file, L"VersionNumber"), 1);
}

TEST_F(VSSItemTest, checkInOfAnothersFile_isRefused)
{
    checkOut(added(open(), L"a.sql", "one"), local(L"a.sql"));
    const com_ptr<IDispatch> file = item(open(L"bob", L""), L"$/Orders/a.sql");
    EXPECT_EQ(failureOf([&] { checkIn(file, local(L"a.sql")); }).result(), static_cast<HRESULT>(0x8004D690));
    EXPECT_EQ(number(file, L"IsCheckedOut"), 1);
}

TEST_F(VSSItemTest, checkInWithoutTheLocalFile_isRefusedAndStaysCheckedOut)
{
    const com_ptr<IDispatch> file = added(open(), L"a.sql", "one");
    checkOut(file, local(L"a.sql"));
    EXPECT_EQ(failureOf([&] { checkIn(file, local(L"none.sql")); }).result(), static_cast<HRESULT>(0x8004D74B));
    EXPECT_EQ(number(file, L"IsCheckedOut"), 2);
}

TEST_F(VSSItemTest, undoCheckOut_putsTheStoredContentBack)
{
    const com_ptr<IDispatch> file = added(open(), L"a.sql", "one");
    checkOut(file, local(L"a.sql"));
    written(L"a.sql", "changed");
    automation::call(file, L"UndoCheckout", {text(local(L"a.sql"))});
    EXPECT_EQ(files::read(local(L"a.sql")), "one");
    EXPECT_TRUE(files::isReadOnly(local(L"a.sql")));
    EXPECT_EQ(number(file, L"VersionNumber"), 1);
    EXPECT_EQ(number(file, L"IsCheckedOut"), 0);
}

TEST_F(VSSItemTest, versions_areAllKeptWithTheirUsersNewestFirst)
{
    const com_ptr<IDispatch> file = added(open(), L"a.sql", "one");
    const com_ptr<IDispatch> bobs = item(open(L"bob", L""), L"$/Orders/a.sql");
    checkOut(bobs, local(L"a.sql"));
    automation::call(bobs, L"Checkin", {text(L"Faster\r\nby an index"), text(written(L"a.sql", "two"))});
    const com_ptr<IDispatch> versions = automation::getObject(file, L"Versions");
    ASSERT_EQ(number(versions, L"Count"), 2);
    const com_ptr<IDispatch> newest = automation::getObject(versions, L"Item", {variant(int32_t{1})});
    EXPECT_EQ(number(newest, L"VersionNumber"), 2);
    EXPECT_EQ(automation::get(newest, L"Username").asText(), L"bob");
    EXPECT_EQ(automation::get(newest, L"Comment").asText(), L"Faster\r\nby an index");
}

TEST_F(VSSItemTest, oldVersion_givesItsContent)
{
    const com_ptr<IDispatch> file = added(open(), L"a.sql", "one");
    checkOut(file, local(L"a.sql"));
    checkIn(file, written(L"a.sql", "two"));
    const com_ptr<IDispatch> first = automation::getObject(file, L"Version", {variant(int32_t{1})});
    automation::call(first, L"Get", {text(local(L"first.sql"))});
    EXPECT_EQ(number(first, L"VersionNumber"), 1);
    EXPECT_EQ(files::read(local(L"first.sql")), "one");
}

TEST_F(VSSItemTest, contentWithEveryByte_comesBackUnchanged)
{
    std::string bytes("\0\r\n\x1a\xff\xfe", 6);
    const com_ptr<IDispatch> file = added(open(), L"a.bin", bytes);
    checkOut(file, local(L"b.bin"));
    EXPECT_EQ(files::read(local(L"b.bin")), bytes);
}

TEST_F(VSSItemTest, workingFolder_countsForWhatIsBelowIt)
{
    const com_ptr<IDispatch> database = open();
    const com_ptr<IDispatch> file = added(database, L"a.sql", "one");
    EXPECT_EQ(automation::get(file, L"LocalSpec").asText(), L"");
    automation::put(item(database, L"$/"), L"LocalSpec", text(work + L"\\all"));
    EXPECT_EQ(automation::get(file, L"LocalSpec").asText(), work + L"\\all\\Orders\\a.sql");
    automation::put(item(database, L"$/Orders"), L"LocalSpec", text(work + L"\\mine"));
    EXPECT_EQ(automation::get(file, L"LocalSpec").asText(), work + L"\\mine\\a.sql");
    EXPECT_EQ(automation::get(item(open(L"bob", L""), L"$/Orders"), L"LocalSpec").asText(), L"");
}

TEST_F(VSSItemTest, checkOutWithoutALocalPath_usesTheWorkingFolder)
{
    const com_ptr<IDispatch> database = open();
    const com_ptr<IDispatch> file = added(database, L"a.sql", "one");
    EXPECT_EQ(failureOf([&] { automation::call(file, L"Checkout"); }).result(), static_cast<HRESULT>(0x8004D74B));
    automation::put(item(database, L"$/Orders"), L"LocalSpec", text(work + L"\\mine"));
    automation::call(file, L"Checkout");
    EXPECT_EQ(files::read(work + L"\\mine\\a.sql"), "one");
}

TEST_F(VSSItemTest, checkOutOfAProject_isRefused)
{
    const com_ptr<IDispatch> project = item(open(), L"$/Orders");
    EXPECT_EQ(failureOf([&] { checkOut(project, work); }).result(), static_cast<HRESULT>(0x8004D688));
    EXPECT_EQ(failureOf([&] { number(project, L"VersionNumber"); }).result(), static_cast<HRESULT>(0x8004D688));
}

TEST_F(VSSItemTest, memberNumbers_areThoseOfTheInterface)
{
    const com_ptr<IDispatch> file = added(open(), L"a.sql", "one");
    wchar_t checkin[] = L"checkin";
    wchar_t flags[] = L"iFlags";
    LPOLESTR names[] = {checkin, flags};
    DISPID ids[2]{};
    EXPECT_EQ(file->GetIDsOfNames(IID_NULL, names, 2, 0, ids), S_OK);
    EXPECT_THAT(ids, ElementsAre(12, 2));
}

} // namespace
} // namespace velk
