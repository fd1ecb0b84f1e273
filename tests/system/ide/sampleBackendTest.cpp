// The add-in with the Backend of the kit in place of the stand-in.
#include "ideRun.h"

namespace velk {
namespace {

class SampleBackendTest : public test::IdeRun {
protected:
    SampleBackendTest()
    {
        CopyFileW(VELK_BIN L"\\sample\\velkvsadd.dll", path(L"velkvsadd.dll").c_str(), FALSE);
        CopyFileW(L"sdk\\shop.sln", path(L"shop.sln").c_str(), FALSE);
    }
};

TEST_F(SampleBackendTest, tourOfTheSample_holdsAtEveryStep)
{
    EXPECT_EQ(runFile(L"sdk\\tour.script", L""), 0u);
}

TEST_F(SampleBackendTest, sampleWithoutAProjectFile_isWhatRan)
{
    EXPECT_EQ(run("open-solution $SAMPLE\\shop.sln\nclick Add-Ins/Rozel Development\nexpect-node Sample/SHOP\n"), 0u);
    EXPECT_TRUE(backendJournal().empty());
}

} // namespace
} // namespace velk
