#include "base/win32.h"
#include "support/badManners.h"
#include "support/keptView.h"

#include <gmock/gmock.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

// A program that is run once more in another code page must not pass in the usual one unnoticed.
bool isInTheCodePageThatTheRunIsFor()
{
    const char* expected = std::getenv("VELK_EXPECTED_CODE_PAGE");
    if (!expected || std::to_string(GetACP()) == expected)
        return true;
    std::printf("This run is for code page %s, but the process has %u.\n", expected, GetACP());
    return false;
}

// What would end the process elsewhere fails the test: inside a window procedure Wine passes over it in silence.
class FaultListener : public testing::EmptyTestEventListener {
public:
    FaultListener() { AddVectoredExceptionHandler(1, note); }

private:
    static int& faults()
    {
        static int count = 0;
        return count;
    }
    static LONG CALLBACK note(EXCEPTION_POINTERS* raised)
    {
        const DWORD code = raised->ExceptionRecord->ExceptionCode;
        if (code == EXCEPTION_ACCESS_VIOLATION || code == EXCEPTION_ILLEGAL_INSTRUCTION)
            ++faults();
        return EXCEPTION_CONTINUE_SEARCH;
    }
    void OnTestStart(const testing::TestInfo&) override { velk::test::expectedFaults() = faults() = 0; }
    void OnTestEnd(const testing::TestInfo&) override
    {
        EXPECT_EQ(faults(), velk::test::expectedFaults()) << "faults were passed over";
    }
};

// What a test leaves of a view's looks is not another's, nor what a view shows there that a program opens afterwards.
class NewUser : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override { velk::test::forgetKeptView(); }
    void OnTestEnd(const testing::TestInfo&) override { velk::test::forgetKeptView(); }
};

} // namespace

// Forms tests create real controls and COM objects, so every test program runs as an apartment with OLE started.
int main(int argc, char** argv)
{
    if (!isInTheCodePageThatTheRunIsFor())
        return 1;
    OleInitialize(nullptr);
    INITCOMMONCONTROLSEX classes{sizeof classes, ICC_WIN95_CLASSES};
    InitCommonControlsEx(&classes);
    testing::InitGoogleMock(&argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new FaultListener);
    testing::UnitTest::GetInstance()->listeners().Append(new NewUser);
    const int result = RUN_ALL_TESTS();
    OleUninitialize();
    return result;
}
