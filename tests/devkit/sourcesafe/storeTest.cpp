// The files of a database by themselves, above all what stands there after a program stopped in the middle.

#include "devkit/sourcesafe/store.h"
#include "devkit/sourcesafe/failures.h"
#include "sampleDatabase.h"

namespace velk {
namespace {

using devkit::vss::Place;
using devkit::vss::Store;

struct Crash {};

// Stops at the step of this number (from 1 on), as a crash would; no number, no crash. Counts the steps.
class CrashAt {
public:
    explicit CrashAt(int number = 0)
    {
        files::setStepObserver([this, number](const wchar_t*, const std::wstring&) {
            if (++steps == number)
                throw Crash{};
        });
    }
    CrashAt(const CrashAt&) = delete;
    CrashAt& operator=(const CrashAt&) = delete;
    ~CrashAt() { files::setStepObserver({}); }
    int steps = 0;
};

class StoreTest : public test::SampleDatabase {
protected:
    StoreTest() : store(ini) {}

    Place checkedOut(const std::wstring& fileName, const std::string& content)
    {
        const Place file = store.addFile(store.find(L"$/Orders"), written(fileName, content), L"ann", L"");
        store.checkOut(file, L"ann", local(fileName), false);
        return file;
    }
    // True when the action was stopped at that step.
    static bool crashes(int step, const std::function<void()>& action)
    {
        const CrashAt crash(step);
        try {
            action();
        } catch (const Crash&) {
            return true;
        }
        return false;
    }

    Store store;
};

// Every step of a check-in that changes the disk. The count is tested, so that a new step cannot stay untested.
constexpr int checkInSteps = 10;

TEST_F(StoreTest, checkIn_hasAsManyStepsAsAreTested)
{
    const Place file = checkedOut(L"a.sql", "one");
    const CrashAt nowhere;
    store.checkIn(file, L"ann", written(L"a.sql", "two"), L"", false);
    EXPECT_EQ(nowhere.steps, checkInSteps + 4); // four of them write the local file of the test
}

class CrashTest : public StoreTest, public testing::WithParamInterface<int> {};

TEST_P(CrashTest, crashInACheckIn_losesNothing)
{
    const Place file = checkedOut(L"a.sql", "one");
    written(L"a.sql", "two");
    ASSERT_TRUE(crashes(GetParam(), [&] { store.checkIn(file, L"ann", local(L"a.sql"), L"", false); }));

    Store after(ini);
    EXPECT_EQ(after.contentOf(file, 1), "one");
    EXPECT_EQ(files::read(local(L"a.sql")), "two");
    // Either the version is not there, or it is there as a whole.
    const int32_t newest = after.versionsOf(file).back().number;
    EXPECT_EQ(after.contentOf(file, newest), newest == 1 ? "one" : "two");
    EXPECT_TRUE(newest == 2 || after.checkOutOf(file));
}

TEST_P(CrashTest, checkInAfterACrash_succeeds)
{
    const Place file = checkedOut(L"a.sql", "one");
    written(L"a.sql", "two");
    crashes(GetParam(), [&] { store.checkIn(file, L"ann", local(L"a.sql"), L"", false); });

    Store after(ini);
    // The last step of all comes when the check-out is over.
    if (!after.checkOutOf(file))
        after.checkOut(file, L"ann", local(L"a.sql"), false);
    after.checkIn(file, L"ann", local(L"a.sql"), L"", false);
    EXPECT_EQ(after.contentOf(file, after.versionsOf(file).back().number), "two");
    EXPECT_FALSE(after.checkOutOf(file));
}

INSTANTIATE_TEST_SUITE_P(EachStep, CrashTest, testing::Range(1, checkInSteps + 1));

// An Add takes the same steps, after its folder was made.
class CrashInAddTest : public StoreTest, public testing::WithParamInterface<int> {};

TEST_P(CrashInAddTest, addAfterACrash_succeeds)
{
    const Place project = store.find(L"$/Orders");
    written(L"a.sql", "one");
    ASSERT_TRUE(crashes(GetParam(), [&] { store.addFile(project, local(L"a.sql"), L"ann", L""); }));

    Store after(ini);
    EXPECT_TRUE(after.childrenOf(project).empty());
    EXPECT_EQ(after.contentOf(after.addFile(project, local(L"a.sql"), L"ann", L""), 1), "one");
}

INSTANTIATE_TEST_SUITE_P(EachStepToTheRename, CrashInAddTest, testing::Range(1, 10));

TEST_F(StoreTest, crashInTheMiddle_leavesNoLockBehind)
{
    const Place file = checkedOut(L"a.sql", "one");
    crashes(1, [&] { store.checkIn(file, L"ann", local(L"a.sql"), L"", false); });
    EXPECT_FALSE(files::isFile(folder + L"\\vss\\data\\lock"));
}

TEST_F(StoreTest, anotherWriter_isWaitedForAndThenReported)
{
    const files::Lock another(folder + L"\\vss\\data\\lock");
    HRESULT result = S_OK;
    try {
        store.addProject(store.find(L"$/"), L"New");
    } catch (const Error& error) {
        result = error.result();
    }
    EXPECT_EQ(result, devkit::vss::resultOf(devkit::vss::Code::fileShare));
}

TEST_F(StoreTest, localFileInUnicode_keepsItsName)
{
    const Place file = store.addFile(store.find(L"$/Orders"), written(L"\u6ce8\u6587.sql", "one"), L"ann", L"\u65b0");
    EXPECT_EQ(store.find(L"$/Orders/\u6ce8\u6587.sql").name, L"\u6ce8\u6587.sql");
    EXPECT_EQ(store.versionsOf(file).at(0).comment, L"\u65b0");
}

TEST_F(StoreTest, missingData_isReportedAsDamage)
{
    MoveFileW((folder + L"\\vss\\data").c_str(), (folder + L"\\vss\\gone").c_str());
    HRESULT result = S_OK;
    try {
        Store again(ini);
    } catch (const Error& error) {
        result = error.result();
    }
    EXPECT_EQ(result, devkit::vss::resultOf(devkit::vss::Code::corrupt));
}

} // namespace
} // namespace velk
