// The tool's library held against its contract.
#include "base/module.h"
#include "machine.h"

namespace velk::test {
namespace {

class DoctorOfTheContract : public DoctorTest {};

TEST_F(DoctorOfTheContract, libraryThatKeepsIt_isNoComplaint)
{
    putFile(module::folder() + L"\\" VELK_BIN "\\velkvsadd.dll", library());
    const Diagnosis diagnosis = diagnose(L"--contract");
    EXPECT_THAT(diagnosis, IsHealthy());
    EXPECT_EQ(diagnosis.lines.at("backend-contract").state, "OK");
}

TEST_F(DoctorOfTheContract, libraryThatBreaksIt_isToldByTheRule)
{
    const Diagnosis diagnosis = diagnose(L"--contract"); // it has one text only
    EXPECT_THAT(diagnosis, ComplainsOnlyOf("backend-contract"));
    EXPECT_NE(diagnosis.lines.at("backend-contract").whole.find("T1 "), std::string::npos);
}

TEST_F(DoctorOfTheContract, contractThatIsNotAskedFor_isNotLookedAt)
{
    EXPECT_EQ(diagnose().lines.at("backend-contract").state, "SKIPPED");
}

TEST_F(DoctorOfTheContract, libraryThatDoesNotAnswer_isNotHeldAgainstIt)
{
    SetEnvironmentVariableW(L"VELK_TEST_LIBRARY", L"no text");
    EXPECT_THAT(diagnose(L"--contract"), ComplainsOnlyOf("backend-texts"));
}

} // namespace
} // namespace velk::test
